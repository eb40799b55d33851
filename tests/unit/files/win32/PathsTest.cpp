#include <filesystem>

#include "unit/files/FilesWorld.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

/// A path on a drive that this machine has not.
std::string OnAMissingDrive(const std::string& name) {
    for (char letter = 'Z'; letter >= 'D'; --letter) {
        const std::string root = std::string(1, letter) + ":\\";
        std::error_code error;
        if (!std::filesystem::exists(root, error)) return root + name;
    }
    ADD_FAILURE() << "every drive is taken";
    return {};
}

TEST_F(DDInstall, PathOnAMissingDriveFindsNoDevice) {
    writer_.IniPath = OnAMissingDrive("Ddinstal.ini");
    EXPECT_FALSE(Write());
    EXPECT_EQ(files_.Calls(FileOperation::Replace), 0);
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DDwddi-01", ErrorNumber::DeviceUnavailable)));
}

TEST_F(PyxConfig, PathOnAMissingDriveFindsNoDevice) {
    writer_.IniPath = OnAMissingDrive("TAV\\Pyx.ini");
    EXPECT_FALSE(Insert());
    EXPECT_THAT(Entries(), ElementsAre(EntryText("INIins-01", ErrorNumber::DeviceUnavailable)));
}

TEST_F(DDInstall, PathTakesBothSeparators) {
    std::filesystem::create_directory(folder_ / "sub");
    writer_.IniPath = folder_.Path() + "\\sub/Ddinstal.ini";
    EXPECT_TRUE(Write());
    EXPECT_TRUE(std::filesystem::exists(folder_ / "sub/Ddinstal.ini"));
    EXPECT_THAT(Entries(), ElementsAre());
}

TEST_F(PyxConfig, FileIsFoundWhateverTheCaseOfItsName) {
    WriteBytes(Path(), "[Devices]\r\n");
    writer_.IniPath = folder_ / "PYX.INI";
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
}

}  // namespace
}  // namespace ventlock::test
