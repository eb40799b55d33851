#pragma once

#include <cstddef>

namespace ventlock {

/// True for the text boxes that take hexadecimal digits only, the two identifiers. The revision lists have
/// the same filter; every other text box takes any key.
bool HasKeyFilter(std::size_t textBoxIndex);

/// What a typed character becomes where only hexadecimal digits may be typed: digits and capitals stay, "a"
/// to "f" become capitals, Backspace (8), Tab (9), line feed (10) and carriage return (13) pass.
/// @param code  the character's code point
/// @return the code point to type, 0 when the key is swallowed
char32_t FilterKey(char32_t code);

}  // namespace ventlock
