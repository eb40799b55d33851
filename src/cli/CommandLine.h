#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/ExitCode.h"
#include "platform/Host.h"

namespace ventlock {

/// Runs one call of the command line.
/// @param arguments   what follows the program's name, UTF-8
/// @param out         data; one JSON document with --json
/// @param err         everything else
/// @param isTerminal  `err` is a terminal: long work shows how far it has come
ExitCode RunCommandLine(const std::vector<std::string>& arguments, Host& host, std::ostream& out,
                        std::ostream& err, bool isTerminal);

}  // namespace ventlock
