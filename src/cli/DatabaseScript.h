#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ventlock {

/// The statements of an SQL script, each without its ";": comments from "--" to the line's end and texts in
/// single quotes are understood.
std::vector<std::string> SplitStatements(std::string_view script);

}  // namespace ventlock
