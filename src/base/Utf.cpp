#include "base/Utf.h"

#include <algorithm>

namespace ventlock {
namespace {

bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

struct Decoded {
    char32_t character = kReplacementCharacter;
    std::size_t length = 1;
    bool valid = false;
};

Decoded Decode(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80) return {lead, 1, true};
    std::size_t length = 0;
    char32_t value = 0;
    char32_t smallest = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, value = lead & 0x1FU, smallest = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, value = lead & 0x0FU, smallest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, value = lead & 0x07U, smallest = 0x10000;
    } else {
        return {};
    }
    if (at + length > text.size()) return {};
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80U) return {};
        value = (value << 6U) | (byte(at + i) & 0x3FU);
    }
    if (value < smallest || value > 0x10FFFF) return {};
    return {value, length, true};
}

}  // namespace

char32_t NextCharacter(std::string_view utf8, std::size_t& position) {
    const Decoded decoded = Decode(utf8, position);
    position += decoded.length;
    return decoded.character;
}

void AppendCharacter(std::string& utf8, char32_t character) {
    const auto put = [&](char32_t bits) { utf8 += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6U));
        put(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12U));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    } else {
        put(0xF0U | (character >> 18U));
        put(0x80U | ((character >> 12U) & 0x3FU));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    }
}

std::u16string ToUtf16(std::string_view utf8) {
    std::u16string result;
    result.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = NextCharacter(utf8, at);
        if (c < 0x10000) {
            result += static_cast<char16_t>(c);
        } else {
            result += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10U));
            result += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FFU));
        }
    }
    return result;
}

std::string FromUtf16(std::u16string_view utf16) {
    std::string result;
    result.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const char32_t unit = utf16[i];
        if (IsHighSurrogate(unit) && i + 1 < utf16.size() && IsLowSurrogate(utf16[i + 1])) {
            AppendCharacter(result, 0x10000 + ((unit - 0xD800) << 10U) + (utf16[i + 1] - 0xDC00));
            ++i;
        } else {
            AppendCharacter(result, unit);
        }
    }
    return result;
}

std::optional<std::string> FromUtf16Bytes(std::string_view bytes) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    std::u16string units;
    units.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                       (static_cast<unsigned char>(bytes[i + 1]) << 8U));
    }
    return FromUtf16(units);
}

std::string ToUtf16Bytes(std::string_view utf8) {
    std::string bytes;
    for (const char16_t unit : ToUtf16(utf8)) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8U);
    }
    return bytes;
}

bool IsAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; });
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Decoded decoded = Decode(text, at);
        if (!decoded.valid || IsHighSurrogate(decoded.character) || IsLowSurrogate(decoded.character))
            return false;
        at += decoded.length;
    }
    return true;
}

}  // namespace ventlock
