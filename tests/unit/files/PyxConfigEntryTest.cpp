// What an entry looks like in "Pyx.ini".

#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

TEST_F(PyxConfig, NewFileHoldsTheDevicesLineAndTheDeviceSectionInNineLines) {
    ASSERT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Devices]\n"
                                      "000026.0007.01=000026/0007\n"
                                      "\n"
                                      "[000026.0007.01]\n"
                                      "DeviceHelp=000026\\0007\\h.hlp\n"
                                      "BlockHelp_001=000026\\0007\\\n"
                                      "DeviceDLL=000026\\0007\\Dev.dll\n"
                                      "Description=Flow\n"
                                      "HART Protocol Rev=5\n"));
    EXPECT_EQ(ReadBytes(Bak()), CrLf("[Devices]\n"
                                     "000026.0007.01=000026/0007\n"
                                     "[000026.0007.01]\n"
                                     "DeviceHelp=000026\\0007\\h.hlp\n"
                                     "BlockHelp_001=000026\\0007\\\n"
                                     "DeviceDLL=000026\\0007\\Dev.dll\n"
                                     "Description=Flow\n"
                                     "HART Protocol Rev=5\n"))
        << "the copy of a new file is made after its keys were set";
    EXPECT_EQ(folder_.Listing(), "Pyx.ini Pyx.ini.bak");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(PyxConfig, EmptyFileBecomesTheSameAsANewOne) {
    ASSERT_TRUE(Insert());
    const std::string fromNothing = ReadBytes(Path());
    EXPECT_EQ(AfterInsert(""), fromNothing);
}

TEST_F(PyxConfig, LongIdentifiersAreWrittenAsTheyStand) {
    manufacturer_.ManID = "1234567";
    device_.DevID = "1A2B3";
    device_.DevRev = "100";
    ASSERT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Devices]\n"
                                      "1234567.1A2B3.100=1234567/1A2B3\n"
                                      "\n"
                                      "[1234567.1A2B3.100]\n"
                                      "DeviceHelp=1234567\\1A2B3\\h.hlp\n"
                                      "BlockHelp_001=1234567\\1A2B3\\\n"
                                      "DeviceDLL=1234567\\1A2B3\\Dev.dll\n"
                                      "Description=Flow\n"
                                      "HART Protocol Rev=5\n"));
}

TEST_F(PyxConfig, PaddingCountsCharactersAndNotBytes) {
    manufacturer_.ManID = "ü";
    ASSERT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Devices]\n"
                                      "00000\xFC.0007.01=00000\xFC/0007\n"
                                      "\n"
                                      "[00000\xFC.0007.01]\n"
                                      "DeviceHelp=00000\xFC\\0007\\h.hlp\n"
                                      "BlockHelp_001=00000\xFC\\0007\\\n"
                                      "DeviceDLL=00000\xFC\\0007\\Dev.dll\n"
                                      "Description=Flow\n"
                                      "HART Protocol Rev=5\n"));
}

TEST_F(PyxConfig, EmptyHelpNamesAreThePrefixAlone) {
    writer_.DeviceHelp = "";
    writer_.BlockHelp = "b.hlp";
    ASSERT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Devices]\n"
                                      "000026.0007.01=000026/0007\n"
                                      "\n"
                                      "[000026.0007.01]\n"
                                      "DeviceHelp=000026\\0007\\\n"
                                      "BlockHelp_001=000026\\0007\\b.hlp\n"
                                      "DeviceDLL=000026\\0007\\Dev.dll\n"
                                      "Description=Flow\n"
                                      "HART Protocol Rev=5\n"));
}

TEST_F(PyxConfig, DescriptionIsTheDevicesNameAndNotItsDescription) {
    device_.DevName = "Name";
    device_.DevDesc = "Text";
    device_.RevName = "R";
    device_.RevDesc = "RText";
    ASSERT_TRUE(Insert());
    EXPECT_EQ(profiles_.Read(Path(), "000026.0007.01", "Description", "", 0), "Name");
}

struct HartRevision {
    std::string typed;
    std::string written;
};

void PrintTo(const HartRevision& row, std::ostream* out) {
    *out << '"' << row.typed << "\" as " << row.written;
}

class PyxConfigHart : public PyxConfig, public testing::WithParamInterface<HartRevision> {};

TEST_P(PyxConfigHart, RevisionIsWrittenInDecimalWhateverItHolds) {
    device_.ProtRev = GetParam().typed;
    ASSERT_TRUE(Insert());
    EXPECT_EQ(ReadBytes(Path()), CrLf("[Devices]\n"
                                      "000026.0007.01=000026/0007\n"
                                      "\n"
                                      "[000026.0007.01]\n"
                                      "DeviceHelp=000026\\0007\\h.hlp\n"
                                      "BlockHelp_001=000026\\0007\\\n"
                                      "DeviceDLL=000026\\0007\\Dev.dll\n"
                                      "Description=Flow\n"
                                      "HART Protocol Rev=" +
                                      GetParam().written + "\n"));
    EXPECT_THAT(Entries(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, PyxConfigHart,
                         testing::Values(HartRevision{"05", "5"}, HartRevision{"0x0A", "10"},
                                         HartRevision{"a", "10"}, HartRevision{"", "0"},
                                         HartRevision{"G", "-1"}, HartRevision{"1G", "15"}));

TEST_F(PyxConfig, InitTwiceClearsNothing) {
    EXPECT_TRUE(writer_.Init(app_.Objects(), 2));
    EXPECT_TRUE(writer_.Init(app_.Objects(), 2));
    EXPECT_EQ(writer_.IniPath, Path());
    EXPECT_EQ(writer_.DeviceDLL, "Dev.dll");
    EXPECT_EQ(writer_.DeviceHelp, "h.hlp");
    EXPECT_EQ(writer_.BlockHelp, "");
    ASSERT_TRUE(writer_.Insert(manufacturer_, device_));
    EXPECT_EQ(profiles_.Read(Path(), "000026.0007.01", "DeviceDLL", "", 0), "000026\\0007\\Dev.dll");
}

TEST_F(PyxConfig, InitIsTrueForOperationTwoOnly) {
    EXPECT_TRUE(writer_.Init(app_.Objects(), 2));
    EXPECT_FALSE(writer_.Init(app_.Objects(), 1));
    EXPECT_FALSE(writer_.Init(app_.Objects()));
    EXPECT_TRUE(writer_.Insert(manufacturer_, device_)) << "the shared objects are kept in every case";
}

}  // namespace
}  // namespace ventlock::test
