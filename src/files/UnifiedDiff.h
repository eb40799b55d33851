#pragma once

#include <string>
#include <string_view>

namespace ventlock {

/// What changes from one text to another as a unified diff with three lines of context, "" for equal texts.
/// Lines are compared without their ends; a change of line ends alone is said in one line of its own.
/// @param before, after  UTF-8
/// @param path           of the file, for the two heading lines; `existed` False names /dev/null before
std::string UnifiedDiff(std::string_view before, std::string_view after, const std::string& path,
                        bool existed);

}  // namespace ventlock
