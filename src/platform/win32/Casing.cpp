#include "platform/Casing.h"

#include <windows.h>

#include <numeric>

#include "base/RunTimeError.h"

namespace ventlock {
namespace {

/// Maps units to as many units, by tables that are the same for every language.
std::wstring Mapped(std::wstring_view text, DWORD direction) {
    const auto size = static_cast<int>(text.size());
    std::wstring mapped(text.size(), L'\0');
    if (LCMapStringEx(LOCALE_NAME_INVARIANT, direction, text.data(), size, mapped.data(), size, nullptr,
                      nullptr, 0) != size) {
        throw RunTimeError(ErrorNumber::InternalError, "the system's casing tables are missing");
    }
    return mapped;
}

/// Every unit's counterpart, by its number.
std::wstring Table(DWORD direction) {
    std::wstring units(0x10000, L'\0');
    std::iota(units.begin(), units.end(), L'\0');
    return Mapped(units, direction);
}

char32_t Converted(char32_t character, const std::wstring& table, DWORD direction) {
    if (character < 0x10000) return table[character];
    if (character > 0x10FFFF) return character;
    const char32_t bits = character - 0x10000;
    const std::wstring pair = Mapped(std::wstring{static_cast<wchar_t>(0xD800 + (bits >> 10U)),
                                                  static_cast<wchar_t>(0xDC00 + (bits & 0x3FFU))},
                                     direction);
    return 0x10000 + ((pair[0] - 0xD800U) << 10U) + (pair[1] - 0xDC00U);
}

}  // namespace

char32_t UpperCase(char32_t character) {
    static const std::wstring kTable = Table(LCMAP_UPPERCASE);
    return Converted(character, kTable, LCMAP_UPPERCASE);
}

char32_t LowerCase(char32_t character) {
    static const std::wstring kTable = Table(LCMAP_LOWERCASE);
    return Converted(character, kTable, LCMAP_LOWERCASE);
}

}  // namespace ventlock
