// What stands below the two paths.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/clsSettings.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "support/TempFolder.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

class TargetText : public testing::Test {
 protected:
    void Start() { window_ = &world_.Start(); }

    std::string DDInstall() { return FromWx(window_->Controls().lblDDInstallState->GetLabelText()); }
    std::string Ini() { return FromWx(window_->Controls().lblINIState->GetLabelText()); }

    void Type(std::size_t box, const std::string& path) { window_->Controls().txtMain[box]->SetText(path); }

    void ExpectDDInstall(const std::string& text) {
        WaitUntil(("\"" + text + "\"").c_str(), [&] { return DDInstall() == text; });
        EXPECT_EQ(DDInstall(), text);
    }

    GuiWorld world_;
    frmMain* window_ = nullptr;
};

TEST_F(TargetText, TellsOfAFileThatWillBeMadeAndNothingOfOneThatIsThere) {
    Start();
    ExpectDDInstall("The file will be made");
    EXPECT_EQ(FromWx(window_->Controls().lblDDInstallState->GetToolTipText()), "The file will be made");
    WriteBytes(world_.DDInstallPath(), "");
    Type(kDDInstallPathBox, world_.DDInstallPath() + "x");
    Type(kDDInstallPathBox, world_.DDInstallPath());
    ExpectDDInstall("");
    EXPECT_EQ(Ini(), "");
}

TEST_F(TargetText, TellsOfAReadOnlyFile) {
    WriteBytes(world_.DDInstallPath(), "");
    fs::permissions(world_.DDInstallPath(), fs::perms::owner_read);
    Start();
    ExpectDDInstall("The file is read-only");
    fs::permissions(world_.DDInstallPath(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(TargetText, TellsOfAFolderThatIsMissing) {
    Start();
    Type(kDDInstallPathBox, world_.Folder() + "nowhere/Ddinstal.ini");
    ExpectDDInstall("The folder is missing");
}

TEST_F(TargetText, TellsOfAFolderInThePlaceOfTheFile) {
    Start();
    fs::create_directory(world_.Folder() + "folder.ini");
    Type(kDDInstallPathBox, world_.Folder() + "folder.ini");
    ExpectDDInstall("No file can be written there");
}

TEST_F(TargetText, CountsARelativePathFromTheProgramsFolder) {
    Start();
    WriteBytes(world_.ProgramFile("Here.ini"), "");
    ExpectDDInstall("The file will be made");
    Type(kDDInstallPathBox, "Here.ini");
    ExpectDDInstall("");
}

TEST_F(TargetText, SaysNothingOfAnEmptyPath) {
    Start();
    ExpectDDInstall("The file will be made");
    Type(kDDInstallPathBox, " ");
    ExpectDDInstall("");
}

TEST_F(TargetText, IsGermanInGerman) {
    world_.host.registry.PutText(RegistryRoot::LocalMachine, std::string(kSettingsRoot) + "Settings",
                                 "Language", "DE");
    Start();
    ExpectDDInstall("Die Datei wird angelegt");
}

TEST_F(TargetText, IsFoundOutAnewWhenTheWindowBecomesActive) {
    Start();
    ExpectDDInstall("The file will be made");
    ASSERT_TRUE(ReadyToType(window_->Controls().txtMain[kIniPathBox]->Box()));
    wxFrame other(nullptr, wxID_ANY, "other");
    other.Show();
    other.Raise();
    WaitUntil("the other window", [&] { return other.IsActive() && !window_->IsActive(); });
    WriteBytes(world_.DDInstallPath(), "");
    window_->Raise();
    ExpectDDInstall("");
}

TEST_F(TargetText, GoesBehindAWriteThatMadeTheFile) {
    world_.PutEntry();
    Start();
    ExpectDDInstall("The file will be made");
    window_->mnuWriteDDInstall_Click();
    ASSERT_TRUE(fs::exists(world_.DDInstallPath()));
    ExpectDDInstall("");
}

TEST_F(TargetText, MayBeOutstandingWhenTheWindowGoes) {
    Start();
    for (int i = 0; i < 20; ++i) {
        Type(kDDInstallPathBox, world_.Folder() + std::to_string(i));
        Pump();
    }
    world_.CloseAndForget();
}

}  // namespace
}  // namespace ventlock::test
