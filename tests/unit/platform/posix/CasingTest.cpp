#include "platform/Casing.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace ventlock::test {
namespace {

TEST(Casing, IsTheSameInEveryLocaleOfTheProcess) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* const name : {"C", "C.UTF-8"}) {
        ASSERT_NE(std::setlocale(LC_ALL, name), nullptr);
        EXPECT_EQ(UpperCase("ωжéÿ中Iiß"), "ΩЖÉŸ中IIß");
        EXPECT_EQ(LowerCase("ΩЖÉŸ中Iiß"), "ωжéÿ中iiß");
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(EqualIgnoringCase, TakesWhatSharesACapitalForEqual) {
    EXPECT_TRUE(EqualIgnoringCase("\xC4\xB1", "I"));  // the dotless i, two bytes
    EXPECT_TRUE(EqualIgnoringCase("s", "\xC5\xBF"));  // the long s, two bytes
}

}  // namespace
}  // namespace ventlock::test
