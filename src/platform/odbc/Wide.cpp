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
    std::string utf8;
    FromWide(text, length, utf8);
    return utf8;
}

std::string_view FromWide(const SQLWCHAR* text, std::size_t length, std::string& room) {
    room.resize(length);
    SQLWCHAR bits = 0;
    for (std::size_t i = 0; i < length; ++i) {
        bits = static_cast<SQLWCHAR>(bits | text[i]);
        room[i] = static_cast<char>(text[i]);
    }
    if (bits >= 0x80) {
        std::u16string units(length, u'\0');
        std::transform(text, text + length, units.begin(),
                       [](SQLWCHAR unit) { return static_cast<char16_t>(unit); });
        room = FromUtf16(units);
    }
    return room;
}

SQLPOINTER AttributeValue(SQLULEN value) noexcept {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface is made so
    return reinterpret_cast<SQLPOINTER>(value);
}

}  // namespace ventlock::odbc
