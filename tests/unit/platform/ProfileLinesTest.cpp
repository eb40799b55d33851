#include "platform/ProfileLines.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ventlock::test {
namespace {

using Contents = std::vector<std::string>;

Contents Walk(std::string_view text, std::size_t from = 0) {
    Contents contents;
    ProfileLines lines(text, from);
    std::size_t expectedBegin = from;
    for (ProfileLine line; lines.Next(line);) {
        EXPECT_EQ(line.begin, expectedBegin) << "a line begins where the one before it ends";
        expectedBegin = line.next;
        contents.emplace_back(line.Content(text));
    }
    EXPECT_EQ(expectedBegin, text.size());
    return contents;
}

TEST(ProfileLines, EndAtCarriageReturnLineFeedOrBoth) {
    EXPECT_EQ(Walk("a\r\nb\nc\rd"), (Contents{"a", "b", "c", "d"}));
    EXPECT_EQ(Walk("\n\r\n\r\r"), (Contents{"", "", "", ""}));
    EXPECT_EQ(Walk("a\n\rb"), (Contents{"a", "", "b"}));
    EXPECT_EQ(Walk("a\r\r\nb\r\n"), (Contents{"a", "", "b"}));
    EXPECT_EQ(Walk(""), Contents());
}

TEST(ProfileLines, OfAnyLengthEndAtTheFirstLineEnd) {
    for (std::size_t length = 0; length < 70; ++length) {
        const std::string line(length, length % 2 == 0 ? 'x' : '\xFF');
        for (const std::string_view end : {"\r\n", "\n", "\r"}) {
            for (const std::string_view rest : {"", "b", "\t=\v\f;[]0123456789", "0123456789abcdef\r\n"}) {
                const Contents walked = Walk(line + std::string(end) + std::string(rest));
                ASSERT_FALSE(walked.empty());
                EXPECT_EQ(walked.front(), line);
            }
        }
        EXPECT_EQ(Walk(line), length == 0 ? Contents() : Contents{line});
    }
}

TEST(ProfileLines, CanBeWalkedFromALineOn) {
    EXPECT_EQ(Walk("a\r\nb\nc\rd", 3), (Contents{"b", "c", "d"}));
    EXPECT_EQ(Walk("a\n", 2), Contents());
}

using Positions = std::vector<std::array<std::size_t, 3>>;

TEST(ProfileLines, OfHeadersAreThoseThatAWalkOfAllLinesMeets) {
    for (const std::string_view text :
         {"", "[", "[a]", "\r\n[a]", "x\r[a]\r[b]\ny\n \t\v[c] [d]\r\n[e", "[a][b]\n=[c]\n;[d]\n [",
          "[a]\n\r[b]\r\r\n[c]\r", "  x [a]\r\n\f[b]\r\n[c]\r\n\r\n", " [ \n[\n"}) {
        Positions expected;
        ProfileLines lines(text);
        for (ProfileLine line; lines.Next(line);) {
            if (HeaderName(line.Content(text))) expected.push_back({line.begin, line.end, line.next});
        }
        Positions taken;
        ProfileHeaders headers(text);
        for (ProfileLine line; headers.Next(line);) taken.push_back({line.begin, line.end, line.next});
        EXPECT_EQ(taken, expected) << text;
    }
}

TEST(ProfileLines, OfHeadersDoNotBeginBeforeTheText) {
    const std::string_view whole = "    [a]\n";
    for (std::size_t begin = 0; begin <= 4; ++begin) {
        ProfileHeaders headers(whole.substr(begin));
        ProfileLine line;
        ASSERT_TRUE(headers.Next(line));
        EXPECT_EQ(line.begin, 0U);
        EXPECT_EQ(line.end, 7 - begin);
        EXPECT_FALSE(headers.Next(line));
    }
}

TEST(ProfileLines, BlanksAreSpaceTabAndVerticalTab) {
    EXPECT_EQ(TrimBlanks(" \t\va b\v\t "), "a b");
    EXPECT_EQ(TrimBlanks(" \t\v"), "");
    EXPECT_EQ(TrimBlanks("\fa\f"), "\fa\f");
    EXPECT_TRUE(BeginsWithBlank("\ta"));
    EXPECT_FALSE(BeginsWithBlank("a "));
    EXPECT_FALSE(BeginsWithBlank(""));
}

TEST(ProfileLines, KnowHeadersKeysAndComments) {
    EXPECT_EQ(HeaderName("[A]"), "A");
    EXPECT_EQ(HeaderName("\t[ A ] b]"), " A ");
    EXPECT_EQ(HeaderName("[A"), "A");
    EXPECT_EQ(HeaderName("x[A]"), std::nullopt);
    EXPECT_EQ(HeaderName(""), std::nullopt);
    EXPECT_EQ(KeyName(" x =1"), " x ");
    EXPECT_EQ(KeyName("=1"), "");
    EXPECT_EQ(KeyName(";x=1"), std::nullopt);
    EXPECT_EQ(KeyName("[x=1"), std::nullopt);
    EXPECT_EQ(KeyName("x"), std::nullopt);
    EXPECT_EQ(ValueBegin("x= \t1", "x"), 4U);
    EXPECT_EQ(ValueBegin("x=  ", "x"), 4U);
    EXPECT_EQ(ValueBegin("x=", "x"), 2U);
    EXPECT_TRUE(IsBlankOrComment(" \t"));
    EXPECT_TRUE(IsBlankOrComment(" ; x"));
    EXPECT_FALSE(IsBlankOrComment("x;"));
}

}  // namespace
}  // namespace ventlock::test
