// The tidy pass of "Pyx.ini". The entry is in the files already, so that the pass alone changes them.

#include "support/RowName.h"
#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kEntry = CrLf(
    "[Devices]\n"
    "000026.0007.01=000026/0007\n"
    "\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n");

struct TidyCase {
    std::string name;
    std::string before;
    std::string after;
};

void PrintTo(const TidyCase& row, std::ostream* out) {
    *out << row.name;
}

class PyxConfigTidy : public PyxConfig, public testing::WithParamInterface<TidyCase> {};

TEST_P(PyxConfigTidy, SeparatesTheSectionsInFrontOfTheEntry) {
    const std::string after = GetParam().after + kEntry;
    EXPECT_EQ(AfterInsert(GetParam().before + kEntry), after);
    EXPECT_EQ(ReadBytes(Bak()), GetParam().before + kEntry);
    ASSERT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), after) << "the pass is idempotent";
    EXPECT_THAT(Entries(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Files, PyxConfigTidy,
    testing::Values(
        TidyCase{"SectionsWithoutBlankLinesGainOneEachButTheFirst", "[A]\r\na=1\r\n[B]\r\nb=1\r\n",
                 "[A]\r\na=1\r\n\r\n[B]\r\nb=1\r\n\r\n"},
        TidyCase{"BlankLinesThatAreThereGetNoMore", "[A]\r\na=1\r\n\r\n\r\n\r\n[B]\r\n\r\n",
                 "[A]\r\na=1\r\n\r\n\r\n\r\n[B]\r\n\r\n"},
        TidyCase{"ALineOfBlanksIsABlankLineAndKeepsItsBlanks", "[A]\r\na=1\r\n   \r\n[B]\r\n \r\n",
                 "[A]\r\na=1\r\n   \r\n[B]\r\n \r\n"},
        TidyCase{"ALineOfTabsIsNoBlankLine", "[A]\r\n\t\r\n[B]\r\n\r\n", "[A]\r\n\t\r\n\r\n[B]\r\n\r\n"},
        TidyCase{"AHeaderBehindABlankGetsNoBlankLine", "[A]\r\na=1\r\n [X]\r\nx=1\r\n\r\n",
                 "[A]\r\na=1\r\n [X]\r\nx=1\r\n\r\n"},
        TidyCase{"AFileThatBeginsWithAnEmptyLineGetsNoMore", "\r\n[A]\r\n\r\n", "\r\n[A]\r\n\r\n"},
        TidyCase{"AKeyBeforeTheFirstHeaderGetsOneBehindIt", "a=1\r\n[A]\r\n\r\n", "a=1\r\n\r\n[A]\r\n\r\n"},
        TidyCase{"TwoHeadersInARowGetOneBetween", "[A]\r\n[B]\r\n\r\n", "[A]\r\n\r\n[B]\r\n\r\n"},
        TidyCase{"LinesThatEndInLfAreRewrittenWithCrLf", "[A]\na=1\n;c\n[B]\nb=1\n",
                 "[A]\r\na=1\r\n;c\r\n\r\n[B]\r\nb=1\r\n\r\n"},
        TidyCase{"LinesThatEndInCrAreRewrittenWithCrLf", "[A]\ra=1\r[B]\r", "[A]\r\na=1\r\n\r\n[B]\r\n\r\n"}),
    RowName());

TEST_F(PyxConfig, LastLineWithoutEndGainsOneInTheTidyPass) {
    const std::string open = kEntry.substr(0, kEntry.size() - 2);
    EXPECT_EQ(AfterInsert(open), kEntry);
    EXPECT_EQ(ReadBytes(Bak()), open);
}

TEST_F(PyxConfig, FileOf32767LinesIsTidied) {
    // 32758 lines and the entry's nine.
    std::string before;
    for (int i = 0; i < 32757; ++i) before += "x\r\n";
    EXPECT_TRUE(AfterInsert(before + "x\n" + kEntry) == before + "x\r\n\r\n" + kEntry);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(PyxConfig, FileOf32768LinesGetsTheKeysAndIsLeftUntidied) {
    std::string before;
    for (int i = 0; i < 32759; ++i) before += "x\n";
    const std::string after = before + CrLf(
                                           "[Devices]\n"
                                           "000026.0007.01=000026/0007\n"
                                           "[000026.0007.01]\n"
                                           "DeviceHelp=000026\\0007\\h.hlp\n"
                                           "BlockHelp_001=000026\\0007\\\n"
                                           "DeviceDLL=000026\\0007\\Dev.dll\n"
                                           "Description=Flow\n"
                                           "HART Protocol Rev=5\n");
    EXPECT_TRUE(AfterInsert(before) == CrLf(before) + "\r\n" + kEntry) << "32767 lines pass";
    ASSERT_THAT(Entries(), IsEmpty());

    EXPECT_TRUE(AfterInsert("y\n" + before) == "y\n" + after);
    EXPECT_TRUE(ReadBytes(Bak()) == "y\n" + after);
    EXPECT_THAT(Entries(), ElementsAre("INIwb-03.1: Overflow (6)"));
}

}  // namespace
}  // namespace ventlock::test
