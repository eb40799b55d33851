#pragma once

#include <string>
#include <vector>

#include "core/IList.h"

namespace ventlock::test {

/// The texts of a list's items in order.
inline std::vector<std::string> Items(const IList& list) {
    std::vector<std::string> texts;
    for (int i = 0; i < list.Count(); ++i) texts.push_back(list.Text(i));
    return texts;
}

}  // namespace ventlock::test
