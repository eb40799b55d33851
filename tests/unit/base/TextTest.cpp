#include "base/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ventlock {
namespace {

TEST(Trim, RemovesBlanksAtBothEndsAndNothingElse) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("a"), "a");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("    "), "");
    EXPECT_EQ(Trim("\t a \t"), "\t a \t");
    EXPECT_EQ(Trim(" \r\na\v "), "\r\na\v");
    EXPECT_EQ(Trim("\xC2\xA0 a"), "\xC2\xA0 a");  // a no-break space is no blank
}

TEST(CharacterCount, CountsCharactersNotBytes) {
    EXPECT_EQ(CharacterCount(""), 0U);
    EXPECT_EQ(CharacterCount("abc"), 3U);
    EXPECT_EQ(CharacterCount("Prüfgerät"), 9U);
    EXPECT_EQ(CharacterCount("Ω中\xF0\x9F\x98\x80"), 3U);
    EXPECT_EQ(CharacterCount("a\xFF"), 2U);
}

TEST(Joined, HasTheSeparatorBetweenTextsOnly) {
    EXPECT_EQ(Joined({}, ", "), "");
    EXPECT_EQ(Joined(std::vector<std::string>{"a"}, ", "), "a");
    EXPECT_EQ(Joined(std::vector<std::string>{"", "a", ""}, ", "), ", a, ");
}

TEST(Counted, HasOneOfANounAndManyOfThem) {
    EXPECT_EQ(Counted(0, "error"), "0 errors");
    EXPECT_EQ(Counted(1, "error"), "1 error");
    EXPECT_EQ(Counted(2, "error"), "2 errors");
    EXPECT_EQ(Counted(21, "difference"), "21 differences");
}

}  // namespace
}  // namespace ventlock
