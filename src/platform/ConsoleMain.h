#pragma once

#include <string>
#include <vector>

namespace ventlock {

/// What a console program consists of; the host's own entry point calls it. Text that it writes to stdout and
/// stderr is UTF-8.
/// @param arguments  without the program's name, UTF-8
/// @return the process's exit code
int ConsoleMain(const std::vector<std::string>& arguments);

}  // namespace ventlock
