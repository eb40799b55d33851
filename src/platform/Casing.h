#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ventlock {

/// Simple upper-casing of every character of a UTF-8 text (one character gives one), whatever the locale.
std::string UpperCase(std::string_view utf8);

/// Simple lower-casing, likewise.
std::string LowerCase(std::string_view utf8);

/// True when both texts have the same upper-case form.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// A number that is the same for all texts that EqualIgnoringCase calls equal, and rarely for others.
std::size_t HashIgnoringCase(std::string_view utf8);

/// One character, by the host's own tables.
char32_t UpperCase(char32_t character);
char32_t LowerCase(char32_t character);

}  // namespace ventlock
