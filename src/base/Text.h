#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace ventlock {

/// The text without blanks (0x20) at both ends; no other character is taken for a blank.
/// The view lives as long as the text that was given.
std::string_view Trim(std::string_view text);

/// Characters (code points) of a UTF-8 text; a byte that is no UTF-8 counts as one.
std::size_t CharacterCount(std::string_view utf8);

/// The count and what is counted, "1 error" and "2 errors", of a noun that takes an "s".
std::string Counted(std::size_t count, std::string_view noun);

/// The texts, one after the other, with the separator between each two.
std::string Joined(std::span<const std::string> texts, std::string_view separator);

}  // namespace ventlock
