// Settings on the registry that a POSIX user really has.

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/posix/StoreFileRegistry.h"
#include "unit/core/SettingsWorld.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

class SettingsStoreFile : public SettingsWorld {
 protected:
    [[nodiscard]] std::string Store() const { return folder_ / "registry.ini"; }

    std::unique_ptr<clsSettings> LoadedFromStore() {
        auto settings = std::make_unique<clsSettings>(store_, profiles_, paths_, locale_);
        EXPECT_TRUE(settings->Init(oAppObjects_, 2));
        return settings;
    }

    StoreFileRegistry store_{files_, Store()};
};

TEST_F(SettingsStoreFile, IsNotMadeByReading) {
    EXPECT_EQ(LoadedFromStore()->DevRev, "01");
    EXPECT_EQ(folder_.Listing(), "program windows");
}

TEST_F(SettingsStoreFile, HoldsEveryWriteOfASaveAndGivesItBack) {
    const auto settings = LoadedFromStore();
    settings->WindowLeft = -60;
    settings->WindowState = 2;
    settings->ErrLogPath = "/log/Ventlock.log";
    settings->INIPath = "/ini/Pyx.ini";
    settings->ManName = " Müller \"&\" Söhne ";
    settings->LastTAVVersions = "5.0, 6.0";
    EXPECT_TRUE(settings->SaveSettings());
    EXPECT_EQ(ReadBytes(Store()),
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings]\r\n"
              "WindowTop=dword:00000000\r\n"
              "WindowLeft=dword:ffffffc4\r\n"
              "WindowHeight=dword:00000000\r\n"
              "WindowWidth=dword:00000000\r\n"
              "WindowState=dword:00000002\r\n"
              "ManID=text:\"\"\r\n"
              "ManName=text:\" Müller \\\"&\\\" Söhne \"\r\n"
              "ManDesc=text:\"\"\r\n"
              "ProtID=text:\"0\"\r\n"
              "DevID=text:\"\"\r\n"
              "DevName=text:\"\"\r\n"
              "DevDesc=text:\"\"\r\n"
              "DevRev=text:\"01\"\r\n"
              "DDRev=text:\"01\"\r\n"
              "ProtRev=text:\"05\"\r\n"
              "DevRevName=text:\"\"\r\n"
              "DevRevDesc=text:\"\"\r\n"
              "DevCatID=text:\"0\"\r\n"
              "DevMinCatID=text:\"0\"\r\n"
              "DLLName=text:\"\"\r\n"
              "TemplateName=text:\"\"\r\n"
              "DevHelp=text:\"\"\r\n"
              "BlkHelp=text:\"\"\r\n"
              "TAVVersions=text:\"5.0, 6.0\"\r\n"
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\ErrorLog]\r\n"
              "ErrLogPath=text:\"/log/Ventlock.log\"\r\n"
              "ErrLogLevel=dword:00000003\r\n"
              "DebugMode=dword:00000000\r\n"
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Paths]\r\n"
              "DBPath=text:\"C:\\\\TAV\\\\DB\\\\pyxall.mdb\"\r\n"
              "DDInstallPath=text:\"A:\\\\Ddinstal.ini\"\r\n"
              "INIPath=text:\"/ini/Pyx.ini\"\r\n");

    const auto again = LoadedFromStore();
    EXPECT_EQ(again->WindowLeft, -60);
    EXPECT_EQ(again->WindowState, 2);
    EXPECT_EQ(again->ErrLogPath, "/log/Ventlock.log");
    EXPECT_EQ(again->INIPath, "/ini/Pyx.ini");
    EXPECT_EQ(again->DDInstallPath, "A:\\Ddinstal.ini");
    EXPECT_EQ(again->ManName, " Müller \"&\" Söhne ");
    EXPECT_EQ(again->ManDesc, "");
    EXPECT_EQ(again->LastTAVVersions, "5.0, 6.0");
}

TEST_F(SettingsStoreFile, ASaveOfWhatWasReadLeavesItsBytesAsTheyWere) {
    EXPECT_TRUE(LoadedFromStore()->SaveSettings());
    const std::string saved = ReadBytes(Store());
    EXPECT_TRUE(LoadedFromStore()->SaveSettings());
    EXPECT_EQ(ReadBytes(Store()), saved);
}

TEST_F(SettingsStoreFile, ThatIsReadOnlyIsReadAndLeftAsItIs) {
    WriteBytes(Store(),
               "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\Settings]\n"
               "manname=text:\"Acme\"\n");
    const std::string before = ReadBytes(Store());
    fs::permissions(Store(), fs::perms(0444));
    const auto settings = LoadedFromStore();
    EXPECT_EQ(settings->ManName, "Acme");
    settings->ManName = "Other";
    EXPECT_TRUE(settings->SaveSettings());
    EXPECT_EQ(ReadBytes(Store()), before);
    EXPECT_EQ(folder_.Listing(), "program registry.ini windows") << "nothing is logged";
}

TEST_F(SettingsStoreFile, TakesTheRegisteredDatabase) {
    WriteBytes(Store(),
               "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ODBC\\odbc.ini\\PYX]\n"
               "[HKEY_CURRENT_USER\\SOFTWARE\\ODBC\\odbc.ini\\PYX]\nDBQ=text:\"/users.mdb\"\n");
    EXPECT_EQ(LoadedFromStore()->DBPath, "/users.mdb");
}

}  // namespace
}  // namespace ventlock::test
