#include "platform/posix/StoredValue.h"

#include <array>
#include <charconv>

#include "base/Utf.h"
#include "platform/IRegistry.h"

namespace ventlock {
namespace {

constexpr std::string_view kTextBegin = "text:\"";
constexpr std::string_view kDwordBegin = "dword:";
constexpr std::string_view kHexBegin = "hex(";
constexpr std::size_t kDwordSize = 4;

constexpr std::array<std::pair<char, char>, 5> kEscapes{
    {{'\\', '\\'}, {'"', '"'}, {'\n', 'n'}, {'\r', 'r'}, {'\0', '0'}}};

void AppendHex(std::string& text, char byte) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(byte);
    text += kDigits[value >> 4U];
    text += kDigits[value & 0x0FU];
}

/// Reads all of `text` as one number.
template <class Number>
bool ReadWhole(std::string_view text, int base, Number& number) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool ReadByte(std::string_view digits, std::string& bytes) {
    unsigned char value = 0;
    if (!ReadWhole(digits, 16, value)) return false;
    bytes += static_cast<char>(value);
    return true;
}

void AppendEscaped(std::string& text, char c) {
    for (const auto& [character, sign] : kEscapes) {
        if (c != character) continue;
        text += '\\';
        text += sign;
        return;
    }
    text += "\\x";
    AppendHex(text, c);
}

bool NeedsEscape(std::string_view piece) {
    const auto first = static_cast<unsigned char>(piece.front());
    return first < 0x20 || first == 0x7F || first == '\\' || first == '"' || !IsUtf8(piece);
}

std::string Quoted(std::string_view bytes) {
    std::string text(kTextBegin);
    for (std::size_t at = 0; at < bytes.size();) {
        std::size_t next = at;
        NextCharacter(bytes, next);
        const std::string_view piece = bytes.substr(at, next - at);
        if (NeedsEscape(piece)) {
            for (const char c : piece) AppendEscaped(text, c);
        } else {
            text += piece;
        }
        at = next;
    }
    return text + '"';
}

std::optional<StoredValue> ParseQuoted(std::string_view inside) {
    StoredValue value{kRegistryString, {}};
    for (std::size_t at = 0; at < inside.size(); ++at) {
        if (inside[at] == '"') return std::nullopt;
        if (inside[at] != '\\') {
            value.bytes += inside[at];
            continue;
        }
        if (++at == inside.size()) return std::nullopt;
        if (inside[at] == 'x') {
            if (at + 2 >= inside.size() || !ReadByte(inside.substr(at + 1, 2), value.bytes))
                return std::nullopt;
            at += 2;
            continue;
        }
        bool known = false;
        for (const auto& [character, sign] : kEscapes) {
            if (inside[at] != sign) continue;
            value.bytes += character;
            known = true;
        }
        if (!known) return std::nullopt;
    }
    return value;
}

std::optional<StoredValue> ParseDword(std::string_view digits) {
    std::uint32_t number = 0;
    if (!ReadWhole(digits, 16, number)) return std::nullopt;
    StoredValue value{kRegistryDword, {}};
    for (std::size_t i = 0; i < kDwordSize; ++i)
        value.bytes += static_cast<char>((number >> (8 * i)) & 0xFFU);
    return value;
}

std::optional<StoredValue> ParseHex(std::string_view typeAndBytes) {
    const std::size_t end = typeAndBytes.find("):");
    StoredValue value;
    if (end == std::string_view::npos || !ReadWhole(typeAndBytes.substr(0, end), 10, value.type))
        return std::nullopt;
    std::string_view rest = typeAndBytes.substr(end + 2);
    while (!rest.empty()) {
        const std::size_t comma = rest.find(',');
        if (comma == rest.size() - 1 || !ReadByte(rest.substr(0, comma), value.bytes)) return std::nullopt;
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    }
    return value;
}

}  // namespace

std::string StoredText(const StoredValue& value) {
    if (value.type == kRegistryString) return Quoted(value.bytes);
    std::string text;
    if (value.type == kRegistryDword && value.bytes.size() == kDwordSize) {
        text = kDwordBegin;
        for (std::size_t i = kDwordSize; i > 0; --i) AppendHex(text, value.bytes[i - 1]);
        return text;
    }
    text = std::string(kHexBegin) + std::to_string(value.type) + "):";
    for (std::size_t i = 0; i < value.bytes.size(); ++i) {
        if (i > 0) text += ',';
        AppendHex(text, value.bytes[i]);
    }
    return text;
}

std::optional<StoredValue> ParseStoredText(std::string_view text) {
    if (text.size() > kTextBegin.size() && text.starts_with(kTextBegin) && text.ends_with('"')) {
        return ParseQuoted(text.substr(kTextBegin.size(), text.size() - kTextBegin.size() - 1));
    }
    if (text.starts_with(kDwordBegin)) return ParseDword(text.substr(kDwordBegin.size()));
    if (text.starts_with(kHexBegin)) return ParseHex(text.substr(kHexBegin.size()));
    return std::nullopt;
}

}  // namespace ventlock
