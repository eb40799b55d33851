#include "platform/Casing.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace ventlock::test {
namespace {

/// The thread's locale, set back at the end.
class ThreadLocale {
 public:
    explicit ThreadLocale(LCID locale) : before_(GetThreadLocale()) { SetThreadLocale(locale); }
    ~ThreadLocale() { SetThreadLocale(before_); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

 private:
    LCID before_;
};

TEST(Casing, IsTheSameInEveryLocaleOfTheThread) {
    for (const int language : {LANG_ENGLISH, LANG_TURKISH, LANG_LITHUANIAN}) {
        const ThreadLocale locale(
            MAKELCID(static_cast<WORD>(MAKELANGID(language, SUBLANG_DEFAULT)), SORT_DEFAULT));
        EXPECT_EQ(UpperCase("ωжéÿ中Iiß"), "ΩЖÉŸ中IIß") << language;
        EXPECT_EQ(LowerCase("ΩЖÉŸ中Iiß"), "ωжéÿ中iiß") << language;
    }
}

TEST(Casing, LeavesSurrogatesThatStandAloneAndNoCharactersAsTheyAre) {
    EXPECT_EQ(UpperCase("a\xED\xA0\x80z\xED\xB0\x80"), "A\xED\xA0\x80Z\xED\xB0\x80");
    EXPECT_EQ(UpperCase(char32_t{0xD800}), char32_t{0xD800});
    EXPECT_EQ(UpperCase(char32_t{0x10FFFF}), char32_t{0x10FFFF});
    EXPECT_EQ(LowerCase(char32_t{0x1F600}), char32_t{0x1F600});
    EXPECT_EQ(LowerCase(char32_t{0x110041}), char32_t{0x110041});
}

TEST(EqualIgnoringCase, TellsTheDotlessIFromTheOtherAsTheSystemsFilesDo) {
    EXPECT_FALSE(EqualIgnoringCase("\xC4\xB1", "I"));
    EXPECT_FALSE(EqualIgnoringCase("\xC4\xB0", "i"));
}

}  // namespace
}  // namespace ventlock::test
