// Settings in the registry that a Windows user really has.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/win32/Win32Registry.h"
#include "support/win32/RegistryTree.h"
#include "unit/core/SettingsWorld.h"

namespace ventlock::test {
namespace {

constexpr auto kMachine = RegistryRoot::LocalMachine;
const std::string kOwnKey = "SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock";

class SettingsRegistry : public SettingsWorld {
 protected:
    std::unique_ptr<clsSettings> LoadedFromRegistry() {
        auto settings = std::make_unique<clsSettings>(system_, profiles_, paths_, locale_);
        EXPECT_TRUE(settings->Init(oAppObjects_, 2));
        return settings;
    }

    EmptiedKey own_{kOwnKey};
    Win32Registry system_;
};

TEST_F(SettingsRegistry, GetsNoKeyByReading) {
    const std::string before = TreeText(kMachine, kOwnKey);
    EXPECT_EQ(LoadedFromRegistry()->DevRev, "01");
    EXPECT_EQ(TreeText(kMachine, kOwnKey), before);
}

TEST_F(SettingsRegistry, HoldsEveryWriteOfASaveAndGivesItBack) {
    const auto settings = LoadedFromRegistry();
    settings->DBPath = "C:\\TAV\\DB\\pyxall.mdb";
    settings->WindowLeft = -60;
    settings->WindowState = 2;
    settings->ErrLogPath = "C:\\log\\Ventlock.log";
    settings->INIPath = "C:\\ini\\Pyx.ini";
    settings->ManName = " Müller \"&\" Σ ";
    settings->LastTAVVersions = "5.0, 6.0";
    EXPECT_TRUE(settings->SaveSettings());
    EXPECT_EQ(TreeText(kMachine, kOwnKey + "\\Settings"),
              "BlkHelp=1:\n"
              "DDRev=1:01\n"
              "DLLName=1:\n"
              "DevCatID=1:0\n"
              "DevDesc=1:\n"
              "DevHelp=1:\n"
              "DevID=1:\n"
              "DevMinCatID=1:0\n"
              "DevName=1:\n"
              "DevRev=1:01\n"
              "DevRevDesc=1:\n"
              "DevRevName=1:\n"
              "ManDesc=1:\n"
              "ManID=1:\n"
              "ManName=1: Müller \"&\" Σ \n"
              "ProtID=1:0\n"
              "ProtRev=1:05\n"
              "TAVVersions=1:5.0, 6.0\n"
              "TemplateName=1:\n"
              "WindowHeight=4:00000000\n"
              "WindowLeft=4:ffffffc4\n"
              "WindowState=4:00000002\n"
              "WindowTop=4:00000000\n"
              "WindowWidth=4:00000000\n");
    EXPECT_EQ(TreeText(kMachine, kOwnKey + "\\ErrorLog"),
              "DebugMode=4:00000000\n"
              "ErrLogLevel=4:00000003\n"
              "ErrLogPath=1:C:\\log\\Ventlock.log\n");
    EXPECT_EQ(TreeText(kMachine, kOwnKey + "\\Paths"),
              "DBPath=1:C:\\TAV\\DB\\pyxall.mdb\n"
              "DDInstallPath=1:A:\\Ddinstal.ini\n"
              "INIPath=1:C:\\ini\\Pyx.ini\n");

    const auto again = LoadedFromRegistry();
    EXPECT_EQ(again->WindowLeft, -60);
    EXPECT_EQ(again->WindowState, 2);
    EXPECT_EQ(again->ErrLogPath, "C:\\log\\Ventlock.log");
    EXPECT_EQ(again->INIPath, "C:\\ini\\Pyx.ini");
    EXPECT_EQ(again->DDInstallPath, "A:\\Ddinstal.ini");
    EXPECT_EQ(again->ManName, " Müller \"&\" Σ ");
    EXPECT_EQ(again->ManDesc, "");
    EXPECT_EQ(again->LastTAVVersions, "5.0, 6.0");
}

TEST_F(SettingsRegistry, ASaveOfWhatWasReadLeavesItAsItWas) {
    EXPECT_TRUE(LoadedFromRegistry()->SaveSettings());
    const std::string saved = TreeText(kMachine, kOwnKey);
    EXPECT_TRUE(LoadedFromRegistry()->SaveSettings());
    EXPECT_EQ(TreeText(kMachine, kOwnKey), saved);
}

TEST_F(SettingsRegistry, AStringOfAnotherProgramEndsAtItsNul) {
    std::unique_ptr<IRegistryKey> key;
    ASSERT_EQ(system_.CreateKey(kMachine, kOwnKey + "\\settings", key), kRegistrySuccess);
    ASSERT_EQ(key->Set("manname", kRegistryString, std::string_view("Acme\0", 5)), kRegistrySuccess);
    EXPECT_EQ(LoadedFromRegistry()->ManName, "Acme");
}

}  // namespace
}  // namespace ventlock::test
