#pragma once

#include <string>

namespace ventlock::test {

/// The beginning of a program library; the system loads none of it. Class 1 is of 32 bits, class 2 of 64.
inline std::string LibraryOfClass(char wordSizeClass) {
    const std::string identification = std::string("\x7F") + "ELF" + wordSizeClass + "\x01\x01";
    return identification + std::string(9, '\0') + std::string("\x03\0\x03\0", 4) + std::string(100, '\0');
}

inline constexpr char kOwnWordSizeClass = sizeof(void*) == 8 ? 2 : 1;
inline constexpr char kOtherWordSizeClass = sizeof(void*) == 8 ? 1 : 2;

}  // namespace ventlock::test
