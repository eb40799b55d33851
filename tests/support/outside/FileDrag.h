#pragma once

#include <string>
#include <vector>

namespace ventlock::test {

/// Drags files over the middle of the window of a program and lets them go there, as a file manager does by
/// the protocol XDND, and waits until the program has taken them. A program that does not want them fails the
/// test.
/// @param paths  whole ones, in UTF-8
void DropFiles(int process, const std::vector<std::string>& paths);

}  // namespace ventlock::test
