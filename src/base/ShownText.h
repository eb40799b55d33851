#pragma once

#include <string>
#include <string_view>

namespace ventlock {

/// The text with its control characters, but for line ends and tabs, written out, "\x1B" for one: names and
/// paths come from files that anybody may have made. All other bytes stay.
std::string ShownText(std::string_view text);

/// The same with line ends and tabs written out as well: for a name or value, which must not look like more.
std::string ShownWord(std::string_view text);

}  // namespace ventlock
