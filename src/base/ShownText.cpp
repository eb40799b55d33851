#include "base/ShownText.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace ventlock {
namespace {

/// True for a character of one byte that a terminal would act on instead of showing it.
bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '\x7F';
}

/// True where a text for people may have a line end or a tab.
bool IsLayout(std::string_view text, std::size_t at) {
    if (text[at] == '\r') return at + 1 == text.size() || text[at + 1] == '\n';
    return text[at] == '\n' || text[at] == '\t';
}

/// True when a two-byte control character, U+0080 to U+009F, begins at `at`.
bool IsWideCommand(std::string_view text, std::size_t at) {
    if (text[at] != '\xC2' || at + 1 >= text.size()) return false;
    const auto next = static_cast<unsigned char>(text[at + 1]);
    return next >= 0x80 && next < 0xA0;
}

std::string Shown(std::string_view text, bool hasLayout) {
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isWide = IsWideCommand(text, at);
        if (!isWide && (!IsControl(text[at]) || (hasLayout && IsLayout(text, at)))) {
            shown += text[at];
            continue;
        }
        if (isWide) ++at;
        std::array<char, 5> code{};
        std::snprintf(code.data(), code.size(), "\\x%02X", static_cast<unsigned char>(text[at]));
        shown += code.data();
    }
    return shown;
}

}  // namespace

std::string ShownText(std::string_view text) {
    return Shown(text, true);
}

std::string ShownWord(std::string_view text) {
    return Shown(text, false);
}

}  // namespace ventlock
