#include "platform/win32/Win32Locale.h"

#include <windows.h>

#include <array>

#include "platform/win32/WideText.h"

namespace ventlock {
namespace {

constexpr std::size_t kLongestName = 24;

bool IsLanguageOfTheSystem() {
    const LANGID locale = LANGIDFROMLCID(GetUserDefaultLCID());
    return PRIMARYLANGID(locale) == PRIMARYLANGID(GetUserDefaultUILanguage());
}

}  // namespace

std::string Win32Locale::LanguageName() {
    const LCTYPE name = IsLanguageOfTheSystem() ? LOCALE_SNATIVELANGUAGENAME : LOCALE_SLOCALIZEDDISPLAYNAME;
    std::array<wchar_t, 256> buffer{};
    const int size =
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, name, buffer.data(), static_cast<int>(buffer.size()));
    if (size <= 1) return "English";
    return FromWideText(std::wstring_view(buffer.data()).substr(0, kLongestName));
}

}  // namespace ventlock
