#include "platform/win32/Win32Locale.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "base/Utf.h"
#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

std::string Told(LCTYPE what) {
    std::array<wchar_t, 256> text{};
    EXPECT_GT(GetLocaleInfoW(LOCALE_NEUTRAL, what, text.data(), static_cast<int>(text.size())), 0);
    return FromWideText(text.data());
}

TEST(Win32Locale, NamesTheUsersLanguageInTheLanguageOfTheSystem) {
    const std::string name = Win32Locale().LanguageName();
    EXPECT_FALSE(name.empty());
    EXPECT_LE(ToUtf16(name).size(), 24U);
    const bool isGerman =
        Told(LOCALE_SISO639LANGNAME) == "de" && PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_GERMAN;
    EXPECT_EQ(name.starts_with("De"), isGerman) << name;
    const bool isEnglish =
        Told(LOCALE_SISO639LANGNAME) == "en" && PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_ENGLISH;
    EXPECT_EQ(name == "English", isEnglish) << name;
}

}  // namespace
}  // namespace ventlock::test
