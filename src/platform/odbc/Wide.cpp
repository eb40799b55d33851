#include "platform/odbc/Wide.h"

#include <algorithm>

#include "base/Utf.h"

namespace ventlock::odbc {

WideText ToWide(std::string_view utf8) {
    const std::u16string units = ToUtf16(utf8);
    WideText wide(units.size() + 1);
    std::transform(units.begin(), units.end(), wide.begin(),
                   [](char16_t unit) { return static_cast<SQLWCHAR>(unit); });
    return wide;
}

std::string FromWide(const SQLWCHAR* text, std::size_t length) {
    const bool plain = std::all_of(text, text + length, [](SQLWCHAR unit) { return unit < 0x80; });
    if (plain) {
        std::string ascii(length, '\0');
        std::transform(text, text + length, ascii.begin(),
                       [](SQLWCHAR unit) { return static_cast<char>(unit); });
        return ascii;
    }
    std::u16string units(length, u'\0');
    std::transform(text, text + length, units.begin(),
                   [](SQLWCHAR unit) { return static_cast<char16_t>(unit); });
    return FromUtf16(units);
}

SQLPOINTER AttributeValue(SQLULEN value) noexcept {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface is made so
    return reinterpret_cast<SQLPOINTER>(value);
}

}  // namespace ventlock::odbc
