#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/Raised.h"
#include "support/RowName.h"
#include "unit/platform/ProfileText.h"

namespace ventlock::test {
namespace {

TEST(ProfileFile, KnowsWhetherItsTextHasBeenChanged) {
    const std::string_view bytes = "[A]\r\nx=1\r\n";
    ProfileFile file = WesternFile(bytes);
    file.Write("A", "x", "1");
    file.AddSection("a");
    file.SeparateSections();
    EXPECT_FALSE(file.IsChanged());
    EXPECT_EQ(file.Bytes(), bytes);

    ProfileFile written = file;
    written.Write("A", "x", "2");
    EXPECT_TRUE(written.IsChanged());
    ProfileFile added = file;
    added.AddSection("B");
    EXPECT_TRUE(added.IsChanged());
    ProfileFile tidied = WesternFile("[A]\n");
    tidied.SeparateSections();
    EXPECT_TRUE(tidied.IsChanged());
}

TEST(ProfileWrite, ChangesTheValueOfAnExistingKeyAndNothingElse) {
    EXPECT_EQ(AfterWrite("; first\r\n[Devices]\r\nAlpha=1\r\nBeta=2\r\n\r\n[Other]\r\nBeta=3\r\n", "Devices",
                         "Beta", "new"),
              "; first\r\n[Devices]\r\nAlpha=1\r\nBeta=new\r\n\r\n[Other]\r\nBeta=3\r\n");
}

TEST(ProfileWrite, KeepsPlaceSpellingAndIndentationOfAnExistingKey) {
    EXPECT_EQ(
        AfterWrite("  [ Devices ] x\r\n \t Alpha \t= \t old \t\r\nBeta=2\r\n", "DEVICES", "alpha", "new"),
        "  [ Devices ] x\r\n \t Alpha \t= \t new\r\nBeta=2\r\n");
}

TEST(ProfileWrite, ChangesOnlyTheFirstOfEqualKeys) {
    EXPECT_EQ(AfterWrite("[A]\r\nx=1\r\nX=2\r\n", "A", "X", "9"), "[A]\r\nx=9\r\nX=2\r\n");
}

TEST(ProfileWrite, PutsAMissingKeyIntoTheFirstOfEqualSections) {
    EXPECT_EQ(AfterWrite("[A]\r\nx=1\r\n[B]\r\n[a]\r\ny=2\r\n", "a", "y", "9"),
              "[A]\r\nx=1\r\ny=9\r\n[B]\r\n[a]\r\ny=2\r\n");
}

struct Placement {
    std::string_view name;
    std::string_view before;
    std::string_view after;
};

void PrintTo(const Placement& placement, std::ostream* out) {
    *out << placement.name;
}

/// Each row gains the key "new" with value "v" in section "A".
class ProfileMissingKey : public testing::TestWithParam<Placement> {};

TEST_P(ProfileMissingKey, GoesDirectlyBehindTheLastKeyLineOfItsSectionElseBehindTheHeader) {
    EXPECT_EQ(AfterWrite(GetParam().before, "A", "new", "v"), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    ProfileFile, ProfileMissingKey,
    testing::Values(
        Placement{"CompactMiddleSection", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n",
                  "[A]\r\nx=1\r\nnew=v\r\n[B]\r\ny=2\r\n"},
        Placement{"CompactLastSection", "[B]\r\ny=2\r\n[A]\r\nx=1\r\n",
                  "[B]\r\ny=2\r\n[A]\r\nx=1\r\nnew=v\r\n"},
        Placement{"OneBlankLine", "[A]\r\nx=1\r\n\r\n[B]\r\n", "[A]\r\nx=1\r\nnew=v\r\n\r\n[B]\r\n"},
        Placement{"TwoBlankLines", "[A]\r\nx=1\r\n\r\n\r\n[B]\r\n", "[A]\r\nx=1\r\nnew=v\r\n\r\n\r\n[B]\r\n"},
        Placement{"ThreeBlankLinesAtTheEnd", "[A]\r\nx=1\r\n\r\n \r\n\r\n",
                  "[A]\r\nx=1\r\nnew=v\r\n\r\n \r\n\r\n"},
        Placement{"TrailingComments", "[A]\r\nx=1\r\n; one\r\n;y=2\r\n[B]\r\n",
                  "[A]\r\nx=1\r\nnew=v\r\n; one\r\n;y=2\r\n[B]\r\n"},
        Placement{"TrailingCommentWithoutLineEnd", "[A]\r\nx=1\r\n; one", "[A]\r\nx=1\r\nnew=v\r\n; one"},
        Placement{"CommentsAndBlankLinesBetweenKeys", "[A]\r\nx=1\r\n; c\r\n\r\ny=2\r\n; d\r\n",
                  "[A]\r\nx=1\r\n; c\r\n\r\ny=2\r\nnew=v\r\n; d\r\n"},
        Placement{"TrailingOddLines", "[A]\r\nx=1\r\nodd\r\n[B]\r\n",
                  "[A]\r\nx=1\r\nnew=v\r\nodd\r\n[B]\r\n"},
        Placement{"SectionOfComments", "[A]\r\n; one\r\n; two\r\n[B]\r\n",
                  "[A]\r\nnew=v\r\n; one\r\n; two\r\n[B]\r\n"},
        Placement{"SectionOfOddLines", "[A]\r\nodd\r\n[B]\r\n", "[A]\r\nnew=v\r\nodd\r\n[B]\r\n"},
        Placement{"SectionOfBlankLines", "[A]\r\n\r\n\r\n[B]\r\n", "[A]\r\nnew=v\r\n\r\n\r\n[B]\r\n"},
        Placement{"EmptySection", "[A]\r\n[B]\r\n", "[A]\r\nnew=v\r\n[B]\r\n"},
        Placement{"HeaderWithoutLineEnd", "[A]", "[A]\r\nnew=v\r\n"},
        Placement{"LastKeyWithoutLineEnd", "[A]\r\nx=1", "[A]\r\nx=1\r\nnew=v\r\n"},
        Placement{"LineFeedsOnly", "[A]\nx=1\n\n[B]\ny=2\n", "[A]\nx=1\nnew=v\r\n\n[B]\ny=2\n"},
        Placement{"LineFeedsOnlyWithoutLastEnd", "[A]\nx=1", "[A]\nx=1\r\nnew=v\r\n"},
        Placement{"CarriageReturnsOnly", "[A]\rx=1\r\r[B]\ry=2\r", "[A]\rx=1\rnew=v\r\n\r[B]\ry=2\r"},
        Placement{"LastSectionOfCarriageReturns", "[B]\r[A]\rx=1\r", "[B]\r[A]\rx=1\rnew=v\r\n"},
        Placement{"LastHeaderEndedByCarriageReturn", "[A]\r", "[A]\rnew=v\r\n"},
        Placement{"MixedLineEnds", "[A]\nx=1\r; c\r\n[B]\r\ny=2\n",
                  "[A]\nx=1\rnew=v\r\n; c\r\n[B]\r\ny=2\n"}),
    RowName());

/// Each row lacks the section "A"; it gains the key "new" with value "v" in it.
class ProfileMissingSection : public testing::TestWithParam<Placement> {};

TEST_P(ProfileMissingSection, GoesToTheEndOfTheFileWithoutABlankLine) {
    EXPECT_EQ(AfterWrite(GetParam().before, "A", "new", "v"), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    ProfileFile, ProfileMissingSection,
    testing::Values(
        Placement{"EmptyFile", "", "[A]\r\nnew=v\r\n"},
        Placement{"CompactFile", "[B]\r\nx=1\r\n", "[B]\r\nx=1\r\n[A]\r\nnew=v\r\n"},
        Placement{"NoLastLineEnd", "[B]\r\nx=1", "[B]\r\nx=1\r\n[A]\r\nnew=v\r\n"},
        Placement{"BlankLinesAtTheEnd", "[B]\r\nx=1\r\n\r\n\r\n", "[B]\r\nx=1\r\n\r\n\r\n[A]\r\nnew=v\r\n"},
        Placement{"LineFeedsOnly", "[B]\nx=1\n", "[B]\nx=1\n[A]\r\nnew=v\r\n"},
        Placement{"CarriageReturnsOnly", "[B]\rx=1\r", "[B]\rx=1\r[A]\r\nnew=v\r\n"},
        Placement{"OnlyComments", "; nothing here\r\n", "; nothing here\r\n[A]\r\nnew=v\r\n"},
        Placement{"OnlyABlankLine", "\r\n", "\r\n[A]\r\nnew=v\r\n"},
        Placement{"OnlyBlanks", "  ", "  \r\n[A]\r\nnew=v\r\n"},
        Placement{"KeysBeforeTheFirstHeader", "new=1\r\n[B]\r\n", "new=1\r\n[B]\r\n[A]\r\nnew=v\r\n"},
        Placement{"NameInAComment", ";[A]\r\n", ";[A]\r\n[A]\r\nnew=v\r\n"}),
    RowName());

TEST(ProfileWrite, KeepsLineEndsOfAnyKindWhenAValueChanges) {
    EXPECT_EQ(AfterWrite("[A]\nx=1\ny=2\n", "A", "x", "9"), "[A]\nx=9\ny=2\n");
    EXPECT_EQ(AfterWrite("[A]\rx=1\ry=2\r", "A", "x", "9"), "[A]\rx=9\ry=2\r");
    EXPECT_EQ(AfterWrite("[A]\n\rx=1\ry=2\r\n", "A", "x", "9"), "[A]\n\rx=9\ry=2\r\n");
}

TEST(ProfileWrite, AddsTheMissingLineEndOfALastLineThatItChanges) {
    EXPECT_EQ(AfterWrite("[A]\r\nx=1", "A", "x", "9"), "[A]\r\nx=9\r\n");
    EXPECT_EQ(AfterWrite("[A]\nx=", "A", "x", "9"), "[A]\nx=9\r\n");
}

TEST(ProfileWrite, ChangesNothingWhenTheKeyHoldsTheValueAlready) {
    for (const std::string_view bytes :
         {"[A]\r\nx=1\r\n", "[A]\nx = 1 \t\n", "[A]\nx=1", "[A]\r x\t=\t1 \r"}) {
        EXPECT_EQ(AfterWrite(bytes, "a", "X", "1"), bytes);
    }
}

TEST(ProfileWrite, WritesTheValueExactlyAsItIsGiven) {
    EXPECT_EQ(AfterWrite("", "A", "x", "\"quoted\""), "[A]\r\nx=\"quoted\"\r\n");
    EXPECT_EQ(AfterWrite("", "A", "x", " two blanks "), "[A]\r\nx= two blanks \r\n");
    EXPECT_EQ(AfterWrite("", "A", "x", "a=b;c[d]"), "[A]\r\nx=a=b;c[d]\r\n");
    EXPECT_EQ(AfterWrite("", "A", "x", ";a"), "[A]\r\nx=;a\r\n");
    EXPECT_EQ(AfterWrite("", "A", "x", "000026\\0007\\"), "[A]\r\nx=000026\\0007\\\r\n");
    EXPECT_EQ(AfterWrite("", "A", "x", ""), "[A]\r\nx=\r\n");
    EXPECT_EQ(AfterWrite("[A]\r\nx=\"1\"\r\n", "A", "x", "1"), "[A]\r\nx=1\r\n");
    EXPECT_EQ(AfterWrite("[A]\r\nx=1\r\n", "A", "x", ""), "[A]\r\nx=\r\n");
}

TEST(ProfileWrite, DoesNotGrowAValueWithBlanksAtItsEndsWhenItIsWrittenAgain) {
    for (const std::string_view value : {" v", "v ", " v ", "\tv", "  "}) {
        const std::string once = AfterWrite("[A]\r\nx = old\r\n", "A", "x", value);
        EXPECT_EQ(AfterWrite(once, "A", "x", value), once) << '"' << value << '"';
        EXPECT_EQ(AfterWrite("[A]\r\nx = old\r\n", "A", "x", " v"), "[A]\r\nx = v\r\n");
    }
}

TEST(ProfileWrite, TrimsTheNamesOfANewSectionAndKey) {
    EXPECT_EQ(AfterWrite("", "  My section\t", " my key ", "v"), "[My section]\r\nmy key=v\r\n");
}

TEST(ProfileWrite, WritesTheSectionAndTheKeyWithTheEmptyName) {
    EXPECT_EQ(AfterWrite("[A]\r\n", "", "x", "1"), "[A]\r\n[]\r\nx=1\r\n");
    EXPECT_EQ(AfterWrite("[]\r\nx=1\r\n", "", "x", "2"), "[]\r\nx=2\r\n");
    EXPECT_EQ(AfterWrite("[A]\r\n=1\r\n", "A", "", "2"), "[A]\r\n=2\r\n");
    EXPECT_EQ(AfterWrite("[A]\r\n", "A", "", "2"), "[A]\r\n=2\r\n");
}

TEST(ProfileWrite, KeepsCommentsInEveryPosition) {
    EXPECT_EQ(AfterWrite("; top\r\n;x=0\r\n[A] ; behind a header\r\n ; before\r\nx=1\r\n;x=2\r\n\r\n; end",
                         "A", "x", "9"),
              "; top\r\n;x=0\r\n[A] ; behind a header\r\n ; before\r\nx=9\r\n;x=2\r\n\r\n; end");
}

TEST(ProfileWrite, KeepsOddLinesAndNulsInUntouchedPlaces) {
    const std::string before("\0\0x\r\nodd\r\n[A]\r\nx=1\r\no\0dd\r\n", 26);
    const std::string after("\0\0x\r\nodd\r\n[A]\r\nx=9\r\no\0dd\r\n", 26);
    EXPECT_EQ(AfterWrite(before, "A", "x", "9"), after);
}

TEST(ProfileWrite, DeletesNothingAndKeepsTheOrderOverManyWrites) {
    ProfileFile file = WesternFile("[General]\r\nNumOfMfg=1\r\n\r\n[Mfg1]\r\nID=000026\r\n");
    file.Write("General", "NumOfMfg", "2");
    file.Write("Mfg2", "ID", "000027");
    file.Write("Mfg1", "Name", "Acme");
    file.Write("Mfg2", "Name", "Other");
    file.Write("General", "Count", "7");
    file.Write("mfg1", "NumOfDev", "1");
    EXPECT_EQ(file.Bytes(),
              "[General]\r\nNumOfMfg=2\r\nCount=7\r\n\r\n[Mfg1]\r\nID=000026\r\nName=Acme\r\nNumOfDev=1\r\n"
              "[Mfg2]\r\nID=000027\r\nName=Other\r\n");
    EXPECT_EQ(file.Read("Mfg2", "Name"), "Other");
    EXPECT_EQ(file.Read("Mfg1", "NumOfDev"), "1");
}

TEST(ProfileWrite, AddSectionPutsAnEmptySectionToTheEndUnlessThereIsOneOfThatName) {
    ProfileFile file = WesternFile("[A]\r\nx=1");
    file.AddSection(" B ");
    file.AddSection("b");
    file.AddSection("a");
    EXPECT_EQ(file.Bytes(), "[A]\r\nx=1\r\n[B]\r\n");
}

struct Refusal {
    std::string_view name;
    std::string_view section;
    std::string_view key;
    std::string_view value;
    std::string_view description;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
    *out << refusal.name;
}

class ProfileRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(ProfileRefusal, IsAPathFileAccessErrorWithTheTextAndChangesNothing) {
    const Refusal& row = GetParam();
    for (const std::string& before : {std::string("[A]\r\nx=1"), MarkedUtf16("[A]\r\nx=1")}) {
        ProfileFile file = WesternFile(before);
        const auto write = [&] { file.Write(row.section, row.key, row.value); };
        EXPECT_EQ(NumberRaisedBy(write), 75);
        EXPECT_EQ(DescriptionRaisedBy(write), "Path/File access error " + std::string(row.description));
        EXPECT_EQ(file.Bytes(), before);
    }
}

using namespace std::string_view_literals;

INSTANTIATE_TEST_SUITE_P(
    ProfileFile, ProfileRefusal,
    testing::Values(
        Refusal{"CarriageReturnInAValue", "A", "x", "a\rb", "\"a\rb\" holds a line end or a NUL"},
        Refusal{"LineFeedInAValue", "A", "x", "a\nb", "\"a\nb\" holds a line end or a NUL"},
        Refusal{"LineEndBehindAValue", "A", "x", "a\r\n", "\"a\r\n\" holds a line end or a NUL"},
        Refusal{"NulInAValue", "A", "x", "a\0b"sv, "\"a\\0b\" holds a line end or a NUL"},
        Refusal{"LineFeedInAKey", "A", "a\nb", "v", "\"a\nb\" holds a line end or a NUL"},
        Refusal{"LineFeedInASection", "a\nb", "x", "v", "\"a\nb\" holds a line end or a NUL"},
        Refusal{"ClosingBracketInASection", "a]b", "x", "v", "\"a]b\" is no section name: it holds a \"]\""},
        Refusal{"EqualsSignInAKey", "A", "a=b", "v", "\"a=b\" is no key: it holds a \"=\""},
        Refusal{"KeyThatWouldBeAComment", "A", ";a", "v", "\";a\" is no key: it begins with that sign"},
        Refusal{"KeyThatWouldBeAHeader", "A", " [a", "v", "\"[a\" is no key: it begins with that sign"},
        Refusal{"MissingSectionWithARefusedValue", "B", "x", "a\nb", "\"a\nb\" holds a line end or a NUL"}),
    RowName());

TEST(ProfileWrite, RefusesTheSameTextsBeforehandWhenAsked) {
    const ProfileFile file = WesternFile("");
    EXPECT_EQ(NumberRaisedBy([&] { file.RequireWritable("a\nb"); }), 75);
    EXPECT_EQ(NumberRaisedBy([&] { file.RequireWritable("Ω"); }), 75);
    EXPECT_EQ(NumberRaisedBy([&] { file.RequireWritable("a]b=c"); }), 0);
    EXPECT_EQ(NumberRaisedBy([&] { file.RequireWritableSection("a]b"); }), 75);
    EXPECT_EQ(NumberRaisedBy([&] { file.RequireWritableSection("a\rb"); }), 75);
    EXPECT_EQ(NumberRaisedBy([&] { file.RequireWritableSection("[a"); }), 0);
}

TEST(ProfileWrite, AddSectionRefusesAClosingBracketAndChangesNothing) {
    ProfileFile file = WesternFile("[A]");
    EXPECT_EQ(NumberRaisedBy([&] { file.AddSection("a]b"); }), 75);
    EXPECT_EQ(file.Bytes(), "[A]");
}

}  // namespace
}  // namespace ventlock::test
