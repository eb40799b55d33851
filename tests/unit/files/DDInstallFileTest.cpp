// What an entry does to a "Ddinstal.ini" that is there: what is found, counted, kept.

#include "unit/files/FilesWorld.h"
#include "unit/platform/ProfileText.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

TEST_F(DDInstall, BakEqualsTheFileBeforeAnyChange) {
    const std::string before = "[General]\nNumOfMfg=0\n[Other]\na=\xFC\n";
    WriteBytes(Bak(), std::string(5000, 'x'));
    EXPECT_EQ(AfterWrite(before), CrLf("[General]\n"
                                       "NumOfMfg=1\n"
                                       "\n"
                                       "[Other]\n"
                                       "a=\xFC\n"
                                       "\n"
                                       "[Mfg1]\n"
                                       "ID=000026\n"
                                       "NumOfDev=1\n"
                                       "Name=Acme\n"
                                       "\n"
                                       "[000026.1]\n" +
                                       kFlowKeys));
    EXPECT_EQ(ReadBytes(Bak()), before) << "the tidy pass makes no second copy";
    EXPECT_EQ(files_.Calls(FileOperation::Copy), 1);
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 1);
}

TEST_F(DDInstall, EmptyFileGetsNoVersionAndABak) {
    EXPECT_EQ(AfterWrite(""), CrLf("[General]\n"
                                   "NumOfMfg=1\n"
                                   "\n"
                                   "[Mfg1]\n"
                                   "ID=000026\n"
                                   "NumOfDev=1\n"
                                   "Name=Acme\n"
                                   "\n"
                                   "[000026.1]\n" +
                                   kFlowKeys));
    EXPECT_EQ(ReadBytes(Bak()), "");
    EXPECT_EQ(folder_.Listing(), "Ddinstal.ini Ddinstal.ini.bak");
}

TEST_F(DDInstall, VersionOfAFileThatIsThereStays) {
    AfterWrite("[Version]\r\nDD Version=1\r\n");
    EXPECT_EQ(profiles_.Read(Path(), "Version", "DD Version", "none", 0), "1");
}

TEST_F(DDInstall, KnownManufacturerGetsItsNameAndKeepsIdAndCount) {
    manufacturer_.ManID = device_.ManID = "00AB12";
    manufacturer_.Name = "New name";
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=1\n"
                              "\n"
                              "[Mfg1]\n"
                              "ID=00ab12\n"
                              "Name=Old name\n"
                              "NumOfDev=1\n"
                              "Country=DE\n"
                              "\n"
                              "[00ab12.1]\n"
                              "DevType=0001\n"
                              "DevTypeRev=01\n")),
              CrLf("[General]\n"
                   "NumOfMfg=1\n"
                   "\n"
                   "[Mfg1]\n"
                   "ID=00ab12\n"
                   "Name=New name\n"
                   "NumOfDev=2\n"
                   "Country=DE\n"
                   "\n"
                   "[00ab12.1]\n"
                   "DevType=0001\n"
                   "DevTypeRev=01\n"
                   "\n"
                   "[00AB12.2]\n" +
                   kFlowKeys));
}

TEST_F(DDInstall, KnownDeviceIsFoundWithoutRegardToCase) {
    manufacturer_.ManID = device_.ManID = "AB";
    device_.DevID = "0A";
    device_.DevRev = "0B";
    AfterWrite(
        CrLf("[General]\nNumOfMfg=1\n\n[Mfg1]\nID=0000ab\nNumOfDev=1\n\n[0000ab.1]\nDevType=000a\n"
             "DevTypeRev=0b\n"));
    EXPECT_EQ(profiles_.Read(Path(), "General", "NumOfMfg", "", 0), "1");
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "1");
    EXPECT_EQ(profiles_.Read(Path(), "0000AB.1", "DevTypeRev", "", 0), "0B") << "the section was rewritten";
}

TEST_F(DDInstall, MissingDeviceCountIsZero) {
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=1\n"
                              "\n"
                              "[Mfg1]\n"
                              "ID=000026\n")),
              CrLf("[General]\n"
                   "NumOfMfg=1\n"
                   "\n"
                   "[Mfg1]\n"
                   "ID=000026\n"
                   "Name=Acme\n"
                   "NumOfDev=1\n"
                   "\n"
                   "[000026.1]\n" +
                   kFlowKeys));
}

TEST_F(DDInstall, CountThatNamesAMissingManufacturerIsContinuedBehindIt) {
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=3\n"
                              "\n"
                              "[Mfg1]\n"
                              "ID=000011\n")),
              CrLf("[General]\n"
                   "NumOfMfg=4\n"
                   "\n"
                   "[Mfg1]\n"
                   "ID=000011\n"
                   "\n"
                   "[Mfg4]\n"
                   "ID=000026\n"
                   "NumOfDev=1\n"
                   "Name=Acme\n"
                   "\n"
                   "[000026.1]\n" +
                   kFlowKeys));
}

TEST_F(DDInstall, MissingManufacturerReadsAsTheNumberZero) {
    manufacturer_.ManID = "0";
    AfterWrite(CrLf("[General]\nNumOfMfg=3\n"));
    EXPECT_EQ(profiles_.Read(Path(), "General", "NumOfMfg", "", 0), "3");
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "Name", "", 0), "Acme");
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "ID", "none", 0), "none");
}

TEST_F(DDInstall, CountThatNamesAMissingDeviceIsContinuedBehindIt) {
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=1\n"
                              "\n"
                              "[Mfg1]\n"
                              "ID=000026\n"
                              "NumOfDev=4\n")),
              CrLf("[General]\n"
                   "NumOfMfg=1\n"
                   "\n"
                   "[Mfg1]\n"
                   "ID=000026\n"
                   "NumOfDev=5\n"
                   "Name=Acme\n"
                   "\n"
                   "[000026.5]\n" +
                   kFlowKeys));
}

TEST_F(DDInstall, MissingDeviceReadsAsTypeAndRevisionZero) {
    device_.DevID = "0";
    device_.DevRev = "0";
    AfterWrite(CrLf("[General]\nNumOfMfg=1\n\n[Mfg1]\nID=000026\nNumOfDev=4\n"));
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "4");
    EXPECT_EQ(profiles_.Read(Path(), "000026.1", "DevType", "", 0), "0000");
}

TEST_F(DDInstall, RevisionMatchesByItsFirstTwoCharacters) {
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=1\n"
                              "\n"
                              "[Mfg1]\n"
                              "ID=000026\n"
                              "NumOfDev=1\n"
                              "\n"
                              "[000026.1]\n"
                              "DevTypeRev=01xx\n"
                              "DevType=0007\n")),
              CrLf("[General]\n"
                   "NumOfMfg=1\n"
                   "\n"
                   "[Mfg1]\n"
                   "ID=000026\n"
                   "NumOfDev=1\n"
                   "Name=Acme\n"
                   "\n"
                   "[000026.1]\n"
                   "DevTypeRev=01\n"
                   "DevType=0007\n"
                   "DevTypeDesc=Flow\n"
                   "DevTypeRevDesc=Rev 1\n"
                   "DDRevDesc=DD Rev 1\n"
                   "PYX=1,0101.pyx\n"
                   "SYM=1,0101.sym\n"
                   "MAP=1,0101.map\n"
                   "DeviceHelp=h.hlp\n"
                   "BlockHelp=\n"
                   "OtherHelp=\n"
                   "DeviceDLL=1,Dev.dll\n"
                   "OtherDLL=\n"
                   "Template=1,t.mrg\n"
                   "HART Protocol Rev=5\n"
                   "TAVVersionSupport=5.0, 6.0\n"));
}

TEST_F(DDInstall, StoredIdentifierAndTypeMatchByTheCharactersThatAreCompared) {
    AfterWrite(
        CrLf("[General]\nNumOfMfg=1\n\n[Mfg1]\nID=000026999\nNumOfDev=1\n\n[000026.1]\nDevType=00071\n"
             "DevTypeRev=01\n"));
    EXPECT_EQ(profiles_.Read(Path(), "General", "NumOfMfg", "", 0), "1");
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "1");
}

TEST_F(DDInstall, CountThatIsNoNumberIsZeroAndTheFirstManufacturerIsRewritten) {
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=abc\n"
                              "\n"
                              "[Mfg1]\n"
                              "ID=000011\n"
                              "NumOfDev=2\n"
                              "Name=Other\n")),
              CrLf("[General]\n"
                   "NumOfMfg=1\n"
                   "\n"
                   "[Mfg1]\n"
                   "ID=000026\n"
                   "NumOfDev=1\n"
                   "Name=Acme\n"
                   "\n"
                   "[000026.1]\n" +
                   kFlowKeys));
}

TEST_F(DDInstall, MarkedUtf16FileStaysUtf16AndTakesEveryCharacter) {
    manufacturer_.Name = "Acme";
    EXPECT_EQ(AfterWrite(MarkedUtf16(CrLf("[General]\nNumOfMfg=0\n"))), MarkedUtf16(CrLf("[General]\n"
                                                                                         "NumOfMfg=1\n"
                                                                                         "\n"
                                                                                         "[Mfg1]\n"
                                                                                         "ID=000026\n"
                                                                                         "NumOfDev=1\n"
                                                                                         "Name=Acme\n"
                                                                                         "\n"
                                                                                         "[000026.1]\n" +
                                                                                         kFlowKeys)));
    EXPECT_EQ(ReadBytes(Bak()), MarkedUtf16(CrLf("[General]\nNumOfMfg=0\n")));
    manufacturer_.Name = "Ω中";
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "Name", "", 0), "Ω中");
    EXPECT_THAT(Entries(), IsEmpty());
}

// Identifiers and counts that are wider than what is read of them.

TEST_F(DDInstall, SevenDigitManufacturerIsNeverFound) {
    manufacturer_.ManID = device_.ManID = "1234567";
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "ID", "", 0), "1234567");
    EXPECT_EQ(profiles_.Read(Path(), "General", "NumOfMfg", "", 0), "1");
    device_.DevName = "Flow 2";
    ASSERT_TRUE(Write());
    std::string keys = kFlowKeys;
    keys.replace(keys.find("=Flow\n"), 6, "=Flow 2\n");
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Version]\n"
                                      "DD Version=2\n"
                                      "\n"
                                      "[General]\n"
                                      "NumOfMfg=2\n"
                                      "\n"
                                      "[Mfg1]\n"
                                      "ID=1234567\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[1234567.1]\n" +
                                      keys +
                                      "\n"
                                      "[Mfg2]\n"
                                      "ID=1234567\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"));
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "General", "NumOfMfg", "", 0), "3");
    EXPECT_EQ(profiles_.Read(Path(), "Mfg3", "ID", "", 0), "1234567");
}

TEST_F(DDInstall, LongDeviceTypeAndLongRevisionAreNeverFound) {
    device_.DevID = "12345";
    ASSERT_TRUE(Write());
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "2");
    EXPECT_EQ(profiles_.Read(Path(), "000026.2", "DevType", "", 0), "12345");
    device_.DevID = "7";
    device_.DevRev = "100";
    ASSERT_TRUE(Write());
    ASSERT_TRUE(Write());
    EXPECT_EQ(profiles_.Read(Path(), "Mfg1", "NumOfDev", "", 0), "4");
    EXPECT_EQ(profiles_.Read(Path(), "000026.4", "DevTypeRev", "", 0), "100");
}

TEST_F(DDInstall, CountOfFourDigitsIsReadByItsFirstThree) {
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=1234\n")),
              CrLf("[General]\n"
                   "NumOfMfg=124\n"
                   "\n"
                   "[Mfg124]\n"
                   "ID=000026\n"
                   "NumOfDev=1\n"
                   "Name=Acme\n"
                   "\n"
                   "[000026.1]\n" +
                   kFlowKeys));
}

TEST_F(DDInstall, ManufacturerBehind999Gets1000AndTheNextOneGets101) {
    EXPECT_EQ(AfterWrite(CrLf("[General]\n"
                              "NumOfMfg=999\n")),
              CrLf("[General]\n"
                   "NumOfMfg=1000\n"
                   "\n"
                   "[Mfg1000]\n"
                   "ID=000026\n"
                   "NumOfDev=1\n"
                   "Name=Acme\n"
                   "\n"
                   "[000026.1]\n" +
                   kFlowKeys));
    manufacturer_.ManID = device_.ManID = "27";
    ASSERT_TRUE(Write());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[General]\n"
                                      "NumOfMfg=101\n"
                                      "\n"
                                      "[Mfg1000]\n"
                                      "ID=000026\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000026.1]\n" +
                                      kFlowKeys +
                                      "\n"
                                      "[Mfg101]\n"
                                      "ID=000027\n"
                                      "NumOfDev=1\n"
                                      "Name=Acme\n"
                                      "\n"
                                      "[000027.1]\n" +
                                      kFlowKeys));
}

}  // namespace
}  // namespace ventlock::test
