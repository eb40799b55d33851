// What an entry does to a "Pyx.ini" that is there.

#include "unit/files/FilesWorld.h"
#include "unit/platform/ProfileText.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

// A file without blank lines that knows another device.
const std::string kStart =
    "[TAV Server 1]\n"
    "DataSourceName=PYX\n"
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "[000011.0001.01]\n"
    "Description=Old\n";

const std::string kSixteenLines =
    "[TAV Server 1]\n"
    "DataSourceName=PYX\n"
    "\n"
    "[Devices]\n"
    "000011.0001.01=000011/0001\n"
    "000026.0007.01=000026/0007\n"
    "\n"
    "[000011.0001.01]\n"
    "Description=Old\n"
    "\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n";

TEST_F(PyxConfig, EntryIsAddedToAnotherOneAndSectionsAreSeparated) {
    EXPECT_EQ(AfterInsert(CrLf(kStart)), CrLf(kSixteenLines));
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(PyxConfig, BakHoldsTheNewKeysButNotTheBlankLines) {
    AfterInsert(CrLf(kStart));
    EXPECT_EQ(ReadBytes(Bak()), CrLf("[TAV Server 1]\n"
                                     "DataSourceName=PYX\n"
                                     "[Devices]\n"
                                     "000011.0001.01=000011/0001\n"
                                     "000026.0007.01=000026/0007\n"
                                     "[000011.0001.01]\n"
                                     "Description=Old\n"
                                     "[000026.0007.01]\n"
                                     "DeviceHelp=000026\\0007\\h.hlp\n"
                                     "BlockHelp_001=000026\\0007\\\n"
                                     "DeviceDLL=000026\\0007\\Dev.dll\n"
                                     "Description=Flow\n"
                                     "HART Protocol Rev=5\n"));
}

TEST_F(PyxConfig, OlderBakIsOverwritten) {
    WriteBytes(Bak(), std::string(5000, 'x'));
    AfterInsert(CrLf("[Devices]\n"));
    EXPECT_EQ(ReadBytes(Bak()), CrLf("[Devices]\n"
                                     "000026.0007.01=000026/0007\n"
                                     "[000026.0007.01]\n"
                                     "DeviceHelp=000026\\0007\\h.hlp\n"
                                     "BlockHelp_001=000026\\0007\\\n"
                                     "DeviceDLL=000026\\0007\\Dev.dll\n"
                                     "Description=Flow\n"
                                     "HART Protocol Rev=5\n"));
}

TEST_F(PyxConfig, SecondWriteOfTheSameDeviceChangesValuesOnly) {
    AfterInsert(CrLf(kStart));
    device_.DevName = "Flow 2";
    device_.ProtRev = "06";
    writer_.BlockHelp = "b.hlp";
    ASSERT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[TAV Server 1]\n"
                                      "DataSourceName=PYX\n"
                                      "\n"
                                      "[Devices]\n"
                                      "000011.0001.01=000011/0001\n"
                                      "000026.0007.01=000026/0007\n"
                                      "\n"
                                      "[000011.0001.01]\n"
                                      "Description=Old\n"
                                      "\n"
                                      "[000026.0007.01]\n"
                                      "DeviceHelp=000026\\0007\\h.hlp\n"
                                      "BlockHelp_001=000026\\0007\\b.hlp\n"
                                      "DeviceDLL=000026\\0007\\Dev.dll\n"
                                      "Description=Flow 2\n"
                                      "HART Protocol Rev=6\n"));
}

TEST_F(PyxConfig, ExistingKeysKeepTheirPlaceAndOtherLinesStay) {
    EXPECT_EQ(AfterInsert(CrLf("[000026.0007.01]\n"
                               "Description=Old\n"
                               ";a comment\n"
                               "Colour=red\n"
                               "DeviceDLL=old.dll\n"
                               "an odd line\n"
                               "[Devices]\n"
                               "000026.0007.01=elsewhere\n"
                               "000099.0001.01=000099/0001\n")),
              CrLf("[000026.0007.01]\n"
                   "Description=Flow\n"
                   ";a comment\n"
                   "Colour=red\n"
                   "DeviceDLL=000026\\0007\\Dev.dll\n"
                   "DeviceHelp=000026\\0007\\h.hlp\n"
                   "BlockHelp_001=000026\\0007\\\n"
                   "HART Protocol Rev=5\n"
                   "an odd line\n"
                   "\n"
                   "[Devices]\n"
                   "000026.0007.01=000026/0007\n"
                   "000099.0001.01=000099/0001\n"));
}

TEST_F(PyxConfig, NamesAreFoundWithoutRegardToCaseAndKeepTheirSpelling) {
    manufacturer_.ManID = "00AB12";
    EXPECT_EQ(AfterInsert(CrLf("[DEVICES]\n"
                               "00ab12.0007.01=old\n"
                               "\n"
                               "[00aB12.0007.01]\n"
                               "devicehelp=1\n"
                               "BLOCKHELP_001=2\n"
                               "deviceDll=3\n"
                               "description=4\n"
                               "hart protocol rev=9\n")),
              CrLf("[DEVICES]\n"
                   "00ab12.0007.01=00AB12/0007\n"
                   "\n"
                   "[00aB12.0007.01]\n"
                   "devicehelp=00AB12\\0007\\h.hlp\n"
                   "BLOCKHELP_001=00AB12\\0007\\\n"
                   "deviceDll=00AB12\\0007\\Dev.dll\n"
                   "description=Flow\n"
                   "hart protocol rev=5\n"));
}

TEST_F(PyxConfig, MissingKeysGoBehindTheLastKeyLineBeforeCommentsAndBlankLines) {
    EXPECT_EQ(AfterInsert(CrLf("[Devices]\n"
                               "000011.0001.01=000011/0001\n"
                               "; end of the list\n"
                               "\n"
                               "[000026.0007.01]\n"
                               "Description=Old\n"
                               "\n"
                               "; end of the device\n"
                               "\n"
                               "\n"
                               "[Other]\n"
                               "a=1\n")),
              CrLf("[Devices]\n"
                   "000011.0001.01=000011/0001\n"
                   "000026.0007.01=000026/0007\n"
                   "; end of the list\n"
                   "\n"
                   "[000026.0007.01]\n"
                   "Description=Flow\n"
                   "DeviceHelp=000026\\0007\\h.hlp\n"
                   "BlockHelp_001=000026\\0007\\\n"
                   "DeviceDLL=000026\\0007\\Dev.dll\n"
                   "HART Protocol Rev=5\n"
                   "\n"
                   "; end of the device\n"
                   "\n"
                   "\n"
                   "[Other]\n"
                   "a=1\n"));
}

TEST_F(PyxConfig, KeysOfASectionWithoutKeysGoDirectlyBehindItsHeader) {
    EXPECT_EQ(AfterInsert(CrLf("[Devices]\n"
                               "; none yet\n"
                               "[000026.0007.01]\n"
                               "\n")),
              CrLf("[Devices]\n"
                   "000026.0007.01=000026/0007\n"
                   "; none yet\n"
                   "\n"
                   "[000026.0007.01]\n"
                   "DeviceHelp=000026\\0007\\h.hlp\n"
                   "BlockHelp_001=000026\\0007\\\n"
                   "DeviceDLL=000026\\0007\\Dev.dll\n"
                   "Description=Flow\n"
                   "HART Protocol Rev=5\n"
                   "\n"));
}

TEST_F(PyxConfig, LastLineWithoutEndGetsOneBeforeANewSection) {
    EXPECT_EQ(AfterInsert("[TAV Server 1]\r\nDataSourceName=PYX"), CrLf("[TAV Server 1]\n"
                                                                        "DataSourceName=PYX\n"
                                                                        "\n"
                                                                        "[Devices]\n"
                                                                        "000026.0007.01=000026/0007\n"
                                                                        "\n"
                                                                        "[000026.0007.01]\n"
                                                                        "DeviceHelp=000026\\0007\\h.hlp\n"
                                                                        "BlockHelp_001=000026\\0007\\\n"
                                                                        "DeviceDLL=000026\\0007\\Dev.dll\n"
                                                                        "Description=Flow\n"
                                                                        "HART Protocol Rev=5\n"));
}

// The entry's lines as they stand when the entry was written before.
const std::string kWritten =
    "[Devices]\n"
    "000026.0007.01=000026/0007\n"
    "\n"
    "[000026.0007.01]\n"
    "DeviceHelp=000026\\0007\\h.hlp\n"
    "BlockHelp_001=000026\\0007\\\n"
    "DeviceDLL=000026\\0007\\Dev.dll\n"
    "Description=Flow\n"
    "HART Protocol Rev=5\n";

TEST_F(PyxConfig, OddLinesDuplicateSectionsAndLinesBeforeTheFirstHeaderStay) {
    const std::string odd = CrLf(
        "before any section\n"
        "key=before any section\n"
        "\n"
        "[Twice]\n"
        "a=1\n"
        "=no name\n"
        "  indented = kept \n"
        "\n"
        "[Twice]\n"
        "a=2\n"
        "\n"
        "[]\n"
        "\n"
        "[no bracket\n"
        "# no comment here\n"
        "\n");
    EXPECT_EQ(AfterInsert(odd + CrLf(kWritten)), odd + CrLf(kWritten));
}

TEST_F(PyxConfig, OfDuplicateSectionsTheFirstTakesTheKeys) {
    EXPECT_EQ(AfterInsert(CrLf("[Devices]\n"
                               "\n"
                               "[devices]\n"
                               "000026.0007.01=second\n"
                               "\n"
                               "[000026.0007.01]\n"
                               "Description=one\n"
                               "Description=two\n"
                               "\n"
                               "[000026.0007.01]\n"
                               "Description=three\n")),
              CrLf("[Devices]\n"
                   "000026.0007.01=000026/0007\n"
                   "\n"
                   "[devices]\n"
                   "000026.0007.01=second\n"
                   "\n"
                   "[000026.0007.01]\n"
                   "Description=Flow\n"
                   "Description=two\n"
                   "DeviceHelp=000026\\0007\\h.hlp\n"
                   "BlockHelp_001=000026\\0007\\\n"
                   "DeviceDLL=000026\\0007\\Dev.dll\n"
                   "HART Protocol Rev=5\n"
                   "\n"
                   "[000026.0007.01]\n"
                   "Description=three\n"));
}

TEST_F(PyxConfig, BytesAbove127OfOtherLinesAreNotEncodedAgain) {
    std::string odd = "[Bytes]\r\n";
    for (int byte = 128; byte < 256; ++byte) odd += static_cast<char>(byte);
    odd += "=\x81\x8D\x8F\x90\x9D\xFF\r\n;\xE4\xC3\xA4\r\n\r\n";
    EXPECT_EQ(AfterInsert(odd + CrLf(kWritten)), odd + CrLf(kWritten));
    device_.DevName = "Durchfluß";
    EXPECT_EQ(AfterInsert(odd + "[000026.0007.01]\r\nDescription=\xDF\x81\r\nKey=\x9D\r\n"),
              odd + CrLf("[000026.0007.01]\n"
                         "Description=Durchflu\xDF\n"
                         "Key=\x9D\n"
                         "DeviceHelp=000026\\0007\\h.hlp\n"
                         "BlockHelp_001=000026\\0007\\\n"
                         "DeviceDLL=000026\\0007\\Dev.dll\n"
                         "HART Protocol Rev=5\n"
                         "\n"
                         "[Devices]\n"
                         "000026.0007.01=000026/0007\n"));
}

TEST_F(PyxConfig, CodePageDecidesTheBytesOfNewText) {
    device_.DevName = "Düse";
    ASSERT_TRUE(Insert());
    EXPECT_THAT(ReadBytes(Path()), testing::HasSubstr("\r\nDescription=D\xFCse\r\n"));

    const ProfileStore unicode(files_, CodePage(65001));
    clsPyxConfig writer(unicode);
    Prepare(writer);
    writer.Init(app_.Objects(), 2);
    device_.DevName = "Düse Ω";
    ASSERT_TRUE(writer.Insert(manufacturer_, device_));
    EXPECT_THAT(ReadBytes(Path()), testing::HasSubstr("\r\nDescription=D\xC3\xBCse \xCE\xA9\r\n"));
}

TEST_F(PyxConfig, MarkedUtf16FileStaysUtf16) {
    EXPECT_EQ(AfterInsert(MarkedUtf16(CrLf(kStart))), MarkedUtf16(CrLf(kSixteenLines)));
    EXPECT_EQ(ReadBytes(Bak()).substr(0, 8), std::string("\xFF\xFE[\0T\0A\0", 8));
}

TEST_F(PyxConfig, MarkedUtf16FileTakesEveryCharacter) {
    device_.DevName = "Ω中";
    const std::string name("D\0e\0s\0c\0r\0i\0p\0t\0i\0o\0n\0=\0\xA9\x03-\x4E\r\0\n\0", 32);
    const std::string after = AfterInsert(MarkedUtf16(""));
    EXPECT_THAT(after, testing::StartsWith(std::string("\xFF\xFE[\0D\0", 6)));
    EXPECT_THAT(after, testing::HasSubstr(name));
    EXPECT_THAT(Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
