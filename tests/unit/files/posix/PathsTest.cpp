#include <filesystem>

#include "support/WorkingFolder.h"
#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

TEST_F(DDInstall, DrivePathIsAMissingFolderAndMakesNoFileOfThatName) {
    const WorkingFolder guard(folder_.Path());
    writer_.IniPath = "A:\\Ddinstal.ini";
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "");
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 0);
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DDwddi-02", ErrorNumber::PathNotFound)));
}

TEST_F(DDInstall, FileThatIsLiterallyNamedLikeADrivePathIsNeitherReadNorWritten) {
    const WorkingFolder guard(folder_.Path());
    WriteBytes("A:\\Ddinstal.ini", "[General]\r\nNumOfMfg=7\r\n");
    writer_.IniPath = "A:\\Ddinstal.ini";
    EXPECT_FALSE(Write());
    EXPECT_EQ(folder_.Listing(), "A:\\Ddinstal.ini");
    EXPECT_EQ(ReadBytes("A:\\Ddinstal.ini"), "[General]\r\nNumOfMfg=7\r\n");
}

TEST_F(PyxConfig, DrivePathIsAMissingFolderAndMakesNoFileOfThatName) {
    const WorkingFolder guard(folder_.Path());
    writer_.IniPath = "C:\\TAV\\Pyx.ini";
    EXPECT_FALSE(Insert());
    EXPECT_EQ(folder_.Listing(), "");
    EXPECT_THAT(Entries(), ElementsAre(EntryText("INIins-01", ErrorNumber::PathNotFound)));
}

TEST_F(PyxConfig, LinkToTheFileIsKept) {
    WriteBytes(folder_ / "real.ini", "[Devices]\r\n");
    std::filesystem::create_symlink("real.ini", Path());
    ASSERT_TRUE(Insert());
    EXPECT_TRUE(std::filesystem::is_symlink(Path()));
    EXPECT_EQ(ReadBytes(folder_ / "real.ini"), CrLf("[Devices]\n"
                                                    "000026.0007.01=000026/0007\n"
                                                    "\n"
                                                    "[000026.0007.01]\n"
                                                    "DeviceHelp=000026\\0007\\h.hlp\n"
                                                    "BlockHelp_001=000026\\0007\\\n"
                                                    "DeviceDLL=000026\\0007\\Dev.dll\n"
                                                    "Description=Flow\n"
                                                    "HART Protocol Rev=5\n"));
}

}  // namespace
}  // namespace ventlock::test
