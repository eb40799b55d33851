#pragma once

#include <string>
#include <string_view>

#include "platform/ProfileFile.h"

namespace ventlock::test {

/// A profile file of these bytes in Western code page 1252.
inline ProfileFile WesternFile(std::string_view bytes) {
    return {std::string(bytes), CodePage(1252)};
}

/// The bytes of a Western file after one key was set.
inline std::string AfterWrite(std::string_view bytes, std::string_view section, std::string_view key,
                              std::string_view value) {
    ProfileFile file = WesternFile(bytes);
    file.Write(section, key, value);
    return file.Bytes();
}

/// The bytes of a Western file after the tidy pass.
inline std::string AfterTidy(std::string_view bytes) {
    ProfileFile file = WesternFile(bytes);
    file.SeparateSections();
    return file.Bytes();
}

/// An ASCII text as UTF-16LE bytes with the mark in front.
inline std::string MarkedUtf16(std::string_view ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) {
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

}  // namespace ventlock::test
