#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/ProfileComparison.h"
#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Difference::Kind;

ProfileFile Profile(std::string_view lines) {
    return {CrLf(lines), CodePage(1252)};
}

TEST(CompareKeys, TakesValuesAsTheyAreRead) {
    const ProfileFile file = Profile("[A]\nx = \"1\" \nY=\nz='2\n");
    EXPECT_THAT(CompareKeys(file, {{"a", "X", "1"}, {"a", "x", "\"1\""}, {"A", "y", ""}, {"A", "z", " '2 "}}),
                IsEmpty());
    EXPECT_THAT(CompareKeys(file, {{"A", "x", "01"}, {"A", "none", ""}}),
                ElementsAre(Difference{Kind::Value, "[A]", "x", "01", "1"},
                            Difference{Kind::Value, "[A]", "none", "", std::nullopt}));
}

TEST(CompareKeys, TellsASectionOnce) {
    const ProfileFile file = Profile("[A]\nx=1\n[ a ]\nx=2\n");
    EXPECT_THAT(CompareKeys(file, {{"A", "x", "2"}, {"B", "x", "1"}, {"B", "y", "1"}}),
                ElementsAre(Difference{Kind::Repeated, "[A]", "", "1", "2"},
                            Difference{Kind::Value, "[A]", "x", "2", "1"},
                            Difference{Kind::Missing, "[B]", "", "", std::nullopt}));
}

class ComparePyxConfig : public PyxConfig {
 protected:
    std::vector<Difference> Compare(std::string_view bytes) {
        return writer_.Compare(ProfileFile(std::string(bytes), CodePage(1252)), manufacturer_, device_);
    }
};

TEST_F(ComparePyxConfig, FindsNothingInWhatInsertLeaves) {
    EXPECT_THAT(Compare(AfterInsert("")), IsEmpty());
}

TEST_F(ComparePyxConfig, FindsEveryKeyThatInsertWrites) {
    const std::string written = AfterInsert("");
    std::size_t keys = 0;
    for (std::size_t at = written.find('='); at != std::string::npos; at = written.find('=', at + 1)) {
        EXPECT_EQ(Compare(std::string(written).insert(at + 1, "x")).size(), 1U) << at;
        ++keys;
    }
    EXPECT_EQ(keys, 6U);
}

class CompareDDInstall : public DDInstallWorld<clsDDInstall> {
 protected:
    std::vector<Difference> Compare(std::string_view bytes) {
        return writer_.Compare(ProfileFile(std::string(bytes), CodePage(1252)), manufacturer_, device_);
    }
};

TEST_F(CompareDDInstall, FindsNothingInWhatTheWriteLeaves) {
    EXPECT_THAT(
        Compare(AfterWrite("[General]\nNumOfMfg=2\n[Mfg1]\nID=000025\nNumOfDev=7\n"
                           "[Mfg2]\nID=000026\nNumOfDev=1\n[000026.1]\nDevType=0007\nDevTypeRev=02\n")),
        IsEmpty());
}

TEST_F(CompareDDInstall, CountsDevicesFromOne) {
    const std::string written = AfterWrite("[General]\nNumOfMfg=0\n");
    std::string device = written.substr(written.find("[000026.1]"));
    device.replace(0, device.find(']'), "[000026.0");
    EXPECT_THAT(Compare(written + CrLf("\n") + device), IsEmpty());
}

TEST_F(CompareDDInstall, FindsEveryKeyThatTheWriteSets) {
    const std::string written = AfterWrite("[General]\nNumOfMfg=0\n");
    std::size_t found = 0;
    for (std::size_t at = written.find('='); at != std::string::npos; at = written.find('=', at + 1)) {
        found += Compare(std::string(written).insert(at + 1, "x")).empty() ? 0 : 1;
    }
    EXPECT_EQ(found, 20U) << "number and id of the manufacturer, its name and devices, sixteen of the device";
}

TEST_F(CompareDDInstall, ChangesNothing) {
    const std::string written = AfterWrite("");
    device_.DevName = "other";
    EXPECT_EQ(Compare(written).size(), 1U);
    EXPECT_EQ(ReadBytes(Path()), written);
    EXPECT_THAT(Entries(), IsEmpty());
}

class DDInstallDevices : public DDInstallWorld<clsDDInstall> {
 protected:
    std::vector<DeviceTexts> Devices(std::string_view lines) { return writer_.Devices(Profile(lines)); }
};

TEST_F(DDInstallDevices, AreTheReverseOfAWrite) {
    device_.DevRev = "1A";
    device_.DDRev = "0B";
    EXPECT_THAT(Devices(AfterWrite("[General]\nNumOfMfg=0\n")),
                ElementsAre(DeviceTexts{{"ManID", "26"},
                                        {"ManName", "Acme"},
                                        {"DevID", "07"},
                                        {"DevName", "Flow"},
                                        {"DevRev", "1A"},
                                        {"DDRev", "0B"},
                                        {"ProtRev", "05"},
                                        {"DLLName", "Dev.dll"},
                                        {"TemplateName", "t.mrg"},
                                        {"DevHelp", "h.hlp"},
                                        {"BlkHelp", ""},
                                        {"TAVVersions", "5.0, 6.0"}}));
}

TEST_F(DDInstallDevices, LeaveOutWhatIsMissingOrNoNumber) {
    EXPECT_THAT(Devices("[General]\nNumOfMfg=3\n[Mfg1]\nID=00002G\nNumOfDev=1\n[00002G.1]\nDevType=1\n"
                        "DevTypeRev=x\nDDRevDesc=Rev 1\nHART Protocol Rev=\nDeviceDLL=a.dll\n"
                        "[Mfg3]\nID=1\nNumOfDev=2\n[1.2]\nDevType=0002\n[1.3]\nDevType=0003\n"),
                ElementsAre(DeviceTexts{{"DevID", "01"}}, DeviceTexts{{"ManID", "01"}, {"DevID", "02"}}));
    EXPECT_THAT(Devices(""), IsEmpty());
    EXPECT_THAT(Devices("[General]\nNumOfMfg=-1\n"), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
