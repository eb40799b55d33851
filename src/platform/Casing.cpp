#include "platform/Casing.h"

#include <cstdint>

#include "base/Utf.h"

namespace ventlock {
namespace {

/// A byte that is no UTF-8 counts as a character of its own beyond all others, so that it is kept and equals
/// only itself.
constexpr char32_t kRawByte = 0x110000;

bool IsAsciiByte(char c) {
    return (static_cast<unsigned char>(c) & 0x80U) == 0;
}

char AsciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char32_t NextOrRawByte(std::string_view utf8, std::size_t& position) {
    const std::size_t begin = position;
    const char32_t character = NextCharacter(utf8, position);
    const bool isRaw = character == kReplacementCharacter && position == begin + 1;
    return isRaw ? kRawByte + static_cast<unsigned char>(utf8[begin]) : character;
}

template <class AsciiCase, class WideCase>
std::string Converted(std::string_view utf8, AsciiCase asciiCase, WideCase wideCase) {
    std::string result(utf8);
    for (char& c : result) c = asciiCase(c);
    if (IsAscii(utf8)) return result;
    result.clear();
    for (std::size_t at = 0; at < utf8.size();) {
        if (IsAsciiByte(utf8[at])) {
            result += asciiCase(utf8[at++]);
            continue;
        }
        const char32_t character = NextOrRawByte(utf8, at);
        if (character >= kRawByte) {
            result += utf8[at - 1];
        } else {
            AppendCharacter(result, wideCase(character));
        }
    }
    return result;
}

}  // namespace

std::string UpperCase(std::string_view utf8) {
    return Converted(utf8, AsciiUpper, [](char32_t c) { return UpperCase(c); });
}

std::string LowerCase(std::string_view utf8) {
    return Converted(utf8, AsciiLower, [](char32_t c) { return LowerCase(c); });
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    std::size_t atA = 0;
    std::size_t atB = 0;
    while (atA < a.size() && atB < b.size()) {
        if (IsAsciiByte(a[atA]) && IsAsciiByte(b[atB])) {
            if (AsciiUpper(a[atA++]) != AsciiUpper(b[atB++])) return false;
            continue;
        }
        // Lengths need not agree: the dotless i takes two bytes and its capital one.
        if (UpperCase(NextOrRawByte(a, atA)) != UpperCase(NextOrRawByte(b, atB))) return false;
    }
    return atA == a.size() && atB == b.size();
}

std::size_t HashIgnoringCase(std::string_view utf8) {
    constexpr std::uint64_t kBegin = 0xcbf29ce484222325U;  // FNV-1a, a character at a time
    constexpr std::uint64_t kFactor = 0x100000001b3U;
    std::uint64_t hash = kBegin;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = IsAsciiByte(utf8[at]) ? static_cast<unsigned char>(AsciiUpper(utf8[at++]))
                                                         : UpperCase(NextOrRawByte(utf8, at));
        hash = (hash ^ character) * kFactor;
    }
    return static_cast<std::size_t>(hash);
}

}  // namespace ventlock
