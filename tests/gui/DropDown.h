#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/frmMain.h"

namespace ventlock::test {

/// Has the list of a text box dropped down by `drop` and presses keys in it, one after the other; the last is
/// to close it. Returns, once it has closed, the captions that it showed, those that cannot be chosen in
/// brackets.
std::vector<std::string> InDropDown(frmMain& window, std::size_t box, const std::function<void()>& drop,
                                    const std::vector<int>& keys);

}  // namespace ventlock::test
