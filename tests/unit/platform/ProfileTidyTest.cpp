#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/Raised.h"
#include "support/RowName.h"
#include "support/TempFolder.h"
#include "unit/platform/ProfileText.h"

namespace ventlock::test {
namespace {

struct Tidied {
    std::string_view name;
    std::string_view before;
    std::string_view after;
};

void PrintTo(const Tidied& row, std::ostream* out) {
    *out << row.name;
}

class ProfileTidy : public testing::TestWithParam<Tidied> {};

TEST_P(ProfileTidy, PutsOneEmptyLineBeforeAHeaderThatFollowsNoBlankLine) {
    EXPECT_EQ(AfterTidy(GetParam().before), GetParam().after);
}

TEST_P(ProfileTidy, IsIdempotent) {
    EXPECT_EQ(AfterTidy(GetParam().after), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    ProfileFile, ProfileTidy,
    testing::Values(
        Tidied{"SectionsWithoutBlankLines", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n[C]\r\n",
               "[A]\r\nx=1\r\n\r\n[B]\r\ny=2\r\n\r\n[C]\r\n"},
        Tidied{"BlankLineIsThere", "[A]\r\nx=1\r\n\r\n[B]\r\n", "[A]\r\nx=1\r\n\r\n[B]\r\n"},
        Tidied{"ManyBlankLinesStay", "[A]\r\n\r\n\r\n\r\n[B]\r\n", "[A]\r\n\r\n\r\n\r\n[B]\r\n"},
        Tidied{"LineOfBlanksStays", "[A]\r\nx=1\r\n   \r\n[B]\r\n", "[A]\r\nx=1\r\n   \r\n[B]\r\n"},
        Tidied{"LineOfTabsIsNotBlank", "[A]\r\nx=1\r\n\t\r\n[B]\r\n", "[A]\r\nx=1\r\n\t\r\n\r\n[B]\r\n"},
        Tidied{"HeaderWithALeadingBlank", "[A]\r\nx=1\r\n [X]\r\n", "[A]\r\nx=1\r\n [X]\r\n"},
        Tidied{"HeaderAfterACommentLine", "[A]\r\n; of B\r\n[B]\r\n", "[A]\r\n; of B\r\n\r\n[B]\r\n"},
        Tidied{"FirstLineAHeader", "[A]\r\n", "[A]\r\n"},
        Tidied{"FirstLineAComment", "; c\r\n[A]\r\n", "; c\r\n\r\n[A]\r\n"},
        Tidied{"FirstLineEmptyThenAHeader", "\r\n[A]\r\n", "\r\n[A]\r\n"},
        Tidied{"FirstLineOfBlanksThenAHeader", "  \r\n[A]\r\n", "  \r\n[A]\r\n"},
        Tidied{"TwoHeadersInARow", "[A]\r\n[B]\r\n", "[A]\r\n\r\n[B]\r\n"},
        Tidied{"LineFeedsOnly", "[A]\nx=1\n[B]\ny=2\n", "[A]\r\nx=1\r\n\r\n[B]\r\ny=2\r\n"},
        Tidied{"CarriageReturnsOnly", "[A]\rx=1\r[B]\ry=2\r", "[A]\r\nx=1\r\n\r\n[B]\r\ny=2\r\n"},
        Tidied{"MixedLineEnds", "[A]\n\rx=1\r\n[B]\ry=2", "[A]\r\n\r\nx=1\r\n\r\n[B]\r\ny=2\r\n"},
        Tidied{"LastLineWithoutLineEnd", "[A]\r\nx=1", "[A]\r\nx=1\r\n"},
        Tidied{"LastHeaderWithoutLineEnd", "[A]\r\n[B]", "[A]\r\n\r\n[B]\r\n"}, Tidied{"EmptyFile", "", ""},
        Tidied{"OneLineEnd", "\n", "\r\n"},
        Tidied{"LinesKeepTheirBlanks", "[A] \r\n  x = 1  \r\n\todd \r\n", "[A] \r\n  x = 1  \r\n\todd \r\n"}),
    RowName());

std::string Lines(int count) {
    std::string text = "[A]\n";
    for (int i = 1; i < count; ++i) text += "k=v\n";
    return text;
}

TEST(ProfileTidyLimit, PassesA32767LineFile) {
    EXPECT_EQ(AfterTidy(Lines(32767)), CrLf(Lines(32767)));
    EXPECT_EQ(AfterTidy(Lines(32766) + "[B]"), CrLf(Lines(32766) + "\n[B]\n"));
}

TEST(ProfileTidyLimit, OverflowsAt32768LinesAndChangesNothing) {
    for (const std::string& before : {Lines(32768), Lines(32767) + "[B]"}) {
        ProfileFile file = WesternFile(before);
        const auto tidy = [&] { file.SeparateSections(); };
        EXPECT_EQ(NumberRaisedBy(tidy), 6);
        EXPECT_EQ(DescriptionRaisedBy(tidy), "Overflow");
        EXPECT_EQ(file.Bytes(), before);
        EXPECT_EQ(file.Read("A", "k"), "v");
    }
}

TEST(ProfileTidyLimit, CountsLinesWithAndWithoutALastLineEnd) {
    EXPECT_EQ(WesternFile("").LineCount(), 0U);
    EXPECT_EQ(WesternFile("a").LineCount(), 1U);
    EXPECT_EQ(WesternFile("a\r\n").LineCount(), 1U);
    EXPECT_EQ(WesternFile("a\r\nb").LineCount(), 2U);
    EXPECT_EQ(WesternFile("\n\r\r\n").LineCount(), 3U);
    EXPECT_EQ(WesternFile(Lines(32768)).LineCount(), 32768U);
}

TEST(ProfileTidyAndWrite, KeysAreFoundAndAddedAfterThePass) {
    ProfileFile file = WesternFile("[A]\nx=1\n[B]\ny=2");
    file.Write("C", "z", "3");
    file.SeparateSections();
    file.Write("A", "new", "4");
    file.Write("B", "y", "5");
    EXPECT_EQ(file.Bytes(), "[A]\r\nx=1\r\nnew=4\r\n\r\n[B]\r\ny=5\r\n\r\n[C]\r\nz=3\r\n");
}

}  // namespace
}  // namespace ventlock::test
