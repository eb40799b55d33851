#include "cli/ShownText.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace ventlock {
namespace {

/// True for the character at `at` when a terminal would act on it instead of showing it. Line ends and tabs
/// may stay.
bool IsCommand(std::string_view text, std::size_t at) {
    const auto c = static_cast<unsigned char>(text[at]);
    if (c == '\n' || c == '\t') return false;
    if (c == '\r') return at + 1 < text.size() && text[at + 1] != '\n';
    return c < 0x20 || c == 0x7F;
}

/// True when a two-byte control character, U+0080 to U+009F, begins at `at`.
bool IsWideCommand(std::string_view text, std::size_t at) {
    if (text[at] != '\xC2' || at + 1 >= text.size()) return false;
    const auto next = static_cast<unsigned char>(text[at + 1]);
    return next >= 0x80 && next < 0xA0;
}

}  // namespace

std::string ShownText(std::string_view text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isWide = IsWideCommand(text, at);
        if (!isWide && !IsCommand(text, at)) {
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

}  // namespace ventlock
