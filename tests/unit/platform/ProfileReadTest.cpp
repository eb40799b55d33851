#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "unit/platform/ProfileText.h"

namespace ventlock::test {
namespace {

using Names = std::vector<std::string>;

TEST(ProfileRead, FindsSectionsAndKeysWithoutRegardToCaseAndKeepsTheCaseOfValues) {
    const ProfileFile file = WesternFile("[TAV Server 1]\r\nDataSourceName=Pyx\r\n");
    EXPECT_EQ(file.Read("tav SERVER 1", "DATASOURCEname"), "Pyx");
}

TEST(ProfileRead, GivesNothingForAnAbsentSectionOrKeyAndAnEmptyTextForAnEmptyValue) {
    const ProfileFile file = WesternFile("[A]\r\nempty=\r\nblanks=  \t\r\n");
    EXPECT_EQ(file.Read("B", "empty"), std::nullopt);
    EXPECT_EQ(file.Read("A", "other"), std::nullopt);
    EXPECT_EQ(file.Read("A", "empty"), "");
    EXPECT_EQ(file.Read("A", "blanks"), "");
}

TEST(ProfileRead, GivesTheFallbackWithoutSpacesAtItsEndForAnAbsentKeyOnly) {
    const ProfileFile file = WesternFile("[A]\r\nempty=\r\nx= 1 \r\n");
    EXPECT_EQ(file.ReadOr("A", "other", "  none  "), "  none");
    EXPECT_EQ(file.ReadOr("B", "x", "none\t "), "none\t");
    EXPECT_EQ(file.ReadOr("A", "other", "   "), "");
    EXPECT_EQ(file.ReadOr("A", "other", "'none'"), "'none'");
    EXPECT_EQ(file.ReadOr("A", "empty", "none"), "");
    EXPECT_EQ(file.ReadOr("A", "x", "none"), "1");
}

TEST(ProfileRead, CutsTheFallbackAtTheBufferToo) {
    const ProfileFile file = WesternFile("[A]\r\nx=12345\r\n");
    EXPECT_EQ(file.ReadOr("A", "other", "äöü", 3), "äö");
    EXPECT_EQ(file.ReadOr("A", "other", "äöü", 4), "äöü");
    EXPECT_EQ(file.ReadOr("A", "other", "äöü", 1), "");
    EXPECT_EQ(file.ReadOr("A", "x", "none", 3), "12");
}

TEST(ProfileRead, SearchesOnlyTheFirstOfEqualSections) {
    const ProfileFile file = WesternFile("[A]\r\nx=1\r\n[B]\r\nz=9\r\n[a]\r\nx=2\r\ny=3\r\n");
    EXPECT_EQ(file.Read("A", "x"), "1");
    EXPECT_EQ(file.Read("a", "y"), std::nullopt);
}

TEST(ProfileRead, TakesTheFirstOfEqualKeys) {
    EXPECT_EQ(WesternFile("[A]\r\nKey=1\r\nkey=2\r\n").Read("A", "KEY"), "1");
}

TEST(ProfileRead, EndsASectionAtTheNextHeader) {
    const ProfileFile file = WesternFile("[A]\r\nx=1\r\n[B]\r\ny=2\r\n");
    EXPECT_EQ(file.Read("A", "y"), std::nullopt);
    EXPECT_EQ(file.Read("B", "y"), "2");
}

TEST(ProfileRead, ListsEqualSectionsAsOftenAsTheyOccur) {
    EXPECT_EQ(WesternFile("[A]\r\n[b]\r\n [ a ]\r\nx=1\r\n").Sections(), (Names{"A", "b", "a"}));
    EXPECT_EQ(WesternFile("").Sections(), Names());
}

TEST(ProfileRead, IgnoresBlanksAndTabsRoundNamesAndValues) {
    const ProfileFile file = WesternFile("[A]\r\n \t key\t \v= \t\v value with blanks \t\v\r\n");
    EXPECT_EQ(file.Read("A", "key"), "value with blanks");
    EXPECT_EQ(file.Read(" A\t", "\tkey "), "value with blanks");
}

TEST(ProfileRead, IgnoresBlanksBeforeAHeaderAndJustInsideItsBrackets) {
    const ProfileFile file = WesternFile(" \t[ \tsection1\t ]\r\nx=1\r\n");
    EXPECT_EQ(file.Read("section1", "x"), "1");
    EXPECT_EQ(file.Sections(), Names{"section1"});
}

TEST(ProfileRead, EndsASectionNameAtTheFirstBracketAndIgnoresWhatFollows) {
    const ProfileFile file = WesternFile("[A] ; text ] more\r\nx=1\r\n");
    EXPECT_EQ(file.Read("A", "x"), "1");
}

TEST(ProfileRead, ClosesAHeaderWithoutBracketAtItsLineEnd) {
    const ProfileFile file = WesternFile("[Open name \r\nx=1\r\n");
    EXPECT_EQ(file.Read("Open name", "x"), "1");
    EXPECT_EQ(file.Sections(), Names{"Open name"});
}

TEST(ProfileRead, TakesBracketsSemicolonsAndQuotesAsPartsOfASectionName) {
    const ProfileFile file = WesternFile("[;a[b \"c\"]\r\nx=1\r\n");
    EXPECT_EQ(file.Read(";a[b \"c\"", "x"), "1");
    EXPECT_EQ(file.Read(";a[b c", "x"), std::nullopt);
}

TEST(ProfileRead, CannotReachKeysBeforeTheFirstHeader) {
    const ProfileFile file = WesternFile("x=1\r\n[A]\r\ny=2\r\n");
    EXPECT_EQ(file.Read("", "x"), std::nullopt);
    EXPECT_EQ(file.Read("A", "x"), std::nullopt);
}

TEST(ProfileRead, AddressesTheSectionWithTheEmptyName) {
    EXPECT_EQ(WesternFile("[A]\r\nx=1\r\n[]\r\nx=2\r\n").Read("", "x"), "2");
}

TEST(ProfileRead, AddressesAKeyWithTheEmptyName) {
    EXPECT_EQ(WesternFile("[A]\r\n=value\r\n").Read("A", ""), "value");
}

TEST(ProfileRead, TakesALineWithoutEqualsSignForNoKey) {
    const ProfileFile file = WesternFile("[A]\r\nodd line\r\nx=1\r\n");
    EXPECT_EQ(file.Read("A", "odd line"), std::nullopt);
    EXPECT_EQ(file.Read("A", "x"), "1");
}

TEST(ProfileRead, TakesALineThatBeginsWithASemicolonForAComment) {
    const ProfileFile file = WesternFile("[A]\r\n;x=1\r\n \t; y=2\r\n;[B]\r\nz=3\r\n");
    EXPECT_EQ(file.Read("A", ";x"), std::nullopt);
    EXPECT_EQ(file.Read("A", "x"), std::nullopt);
    EXPECT_EQ(file.Read("A", "; y"), std::nullopt);
    EXPECT_EQ(file.Read("A", "z"), "3");
}

TEST(ProfileRead, TakesANumberSignForPartOfAKey) {
    EXPECT_EQ(WesternFile("[A]\r\n#x=1\r\n").Read("A", "#x"), "1");
}

TEST(ProfileRead, KnowsNoCommentBehindAValue) {
    const ProfileFile file = WesternFile("[A]\r\nx=1 ; one\r\ny=;2\r\nz=3 # three\r\n");
    EXPECT_EQ(file.Read("A", "x"), "1 ; one");
    EXPECT_EQ(file.Read("A", "y"), ";2");
    EXPECT_EQ(file.Read("A", "z"), "3 # three");
}

TEST(ProfileRead, TakesTheFirstEqualsSignAsTheEndOfTheKey) {
    const ProfileFile file = WesternFile("[A]\r\nx=a=b =c\r\n");
    EXPECT_EQ(file.Read("A", "x"), "a=b =c");
    EXPECT_EQ(file.Read("A", "x=a"), std::nullopt);
}

TEST(ProfileRead, ReadsFilesWithAnyLineEnd) {
    for (const std::string_view bytes :
         {"[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3", "[A]\nx=1\ny=2\n[B]\nz=3", "[A]\rx=1\ry=2\r[B]\rz=3",
          "[A]\rx=1\r\ny=2\n[B]\r\rz=3", "[A]\n\nx=1\n\r\ny=2\r\r\n[B]\nz=3\r"}) {
        const ProfileFile file = WesternFile(bytes);
        EXPECT_EQ(file.Read("A", "x"), "1") << bytes;
        EXPECT_EQ(file.Read("A", "y"), "2") << bytes;
        EXPECT_EQ(file.Read("A", "z"), std::nullopt) << bytes;
        EXPECT_EQ(file.Read("B", "z"), "3") << bytes;
    }
}

struct QuotedValue {
    std::string_view stored;
    std::string_view read;
};

class ProfileQuotes : public testing::TestWithParam<QuotedValue> {};

TEST_P(ProfileQuotes, OneMatchingPairRoundAValueIsDropped) {
    const std::string bytes = "[A]\r\nx=" + std::string(GetParam().stored) + "\r\n";
    EXPECT_EQ(WesternFile(bytes).Read("A", "x"), GetParam().read) << GetParam().stored;
}

INSTANTIATE_TEST_SUITE_P(ProfileFile, ProfileQuotes,
                         testing::Values(QuotedValue{"\"abc\"", "abc"}, QuotedValue{"'abc'", "abc"},
                                         QuotedValue{" \" a b \" ", " a b "},
                                         QuotedValue{"\"\"abc\"\"", "\"abc\""},
                                         QuotedValue{"'\"abc\"'", "\"abc\""}, QuotedValue{"\"abc'", "\"abc'"},
                                         QuotedValue{"\"abc", "\"abc"}, QuotedValue{"abc\"", "abc\""},
                                         QuotedValue{"a\"b\"c", "a\"b\"c"}, QuotedValue{"\"", "\""},
                                         QuotedValue{"''", ""}, QuotedValue{"\"\"", ""},
                                         QuotedValue{"\"a\" b", "\"a\" b"}));

struct CutValue {
    std::size_t bufferSize;
    std::string_view read;
};

class ProfileBuffer : public testing::TestWithParam<CutValue> {};

TEST_P(ProfileBuffer, HoldsOneByteLessThanItsSize) {
    const ProfileFile file = WesternFile("[A]\r\nx= \"abcdef\" \r\n");
    EXPECT_EQ(file.Read("A", "x", GetParam().bufferSize), GetParam().read) << GetParam().bufferSize;
}

INSTANTIATE_TEST_SUITE_P(ProfileFile, ProfileBuffer,
                         testing::Values(CutValue{1, ""}, CutValue{2, "a"}, CutValue{6, "abcde"},
                                         CutValue{7, "abcdef"}, CutValue{255, "abcdef"},
                                         CutValue{0, "abcdef"}));

TEST(ProfileRead, CutsAtTheBytesOfTheCodePageAndNotAtThoseOfUtf8) {
    const ProfileFile file = WesternFile("[A]\r\nx=\xFC\xFC\xFC\xFC\r\n");
    EXPECT_EQ(file.Read("A", "x", 4), "üüü");
    EXPECT_EQ(file.Read("A", "x", 5), "üüüü");
}

TEST(ProfileRead, NeverCutsWithinACharacter) {
    const ProfileFile file("[A]\r\nx=\x83\x5C\x83\x5D\r\n", CodePage(932));
    EXPECT_EQ(file.Read("A", "x", 5), "ソゾ");
    EXPECT_EQ(file.Read("A", "x", 4), "ソ");
    EXPECT_EQ(file.Read("A", "x", 3), "ソ");
    EXPECT_EQ(file.Read("A", "x", 2), "");
}

TEST(ProfileRead, CutsAUtf16ValueByTheBytesThatItHasInTheCodePage) {
    std::string bytes = MarkedUtf16("[A]\r\nx=");
    bytes.append("\xFC\0\xFC\0\xFC\0", 6);
    const ProfileFile file = WesternFile(bytes);
    EXPECT_EQ(file.Read("A", "x", 3), "üü");
    EXPECT_EQ(file.Read("A", "x", 4), "üüü");
    EXPECT_EQ(file.Read("A", "x"), "üüü");
}

TEST(ProfileRead, ReadsALongValueWholeWhenNoBufferIsGiven) {
    const std::string value(70000, 'v');
    EXPECT_EQ(WesternFile("[A]\nx=" + value + "\n").Read("A", "x"), value);
}

}  // namespace
}  // namespace ventlock::test
