#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/RunCli.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// What the world's entry is in a file.
const std::string kEntry =
    "[000026.000A.01]\nManID=26\nManName=Acme\nManDesc=Acme Inc\nProtID=2\nDevID=0A\nDevName=Flow\n"
    "DevDesc=Flow meter\nDevRev=01\nDDRev=02\nProtRev=05\nDevRevName=R1\nDevRevDesc=First\nDevCatID=1\n"
    "DevMinCatID=1\nDLLName=Dev.dll\nTemplateName=Dev.mrg\nDevHelp=Dev.hlp\nBlkHelp=Blk.hlp\n"
    "TAVVersions=5.0, 6.0\n";

class SaveEntry : public testing::Test {
 protected:
    explicit SaveEntry(DeviceSchema schema = DeviceSchema::Current) : world_(schema) {
        world_.PutEntry();
        world_.fileDialog.answer = Path();
    }

    void Save() { Choose(world_.Window(), *world_.Window().Menu().mnuSaveEntry); }

    [[nodiscard]] std::string Path() const { return world_.Folder() + "flow.ini"; }

    GuiWorld world_;
};

class SaveEntryOnTheOldSchema : public SaveEntry {
 protected:
    SaveEntryOnTheOldSchema() : SaveEntry(DeviceSchema::Old) {}
};

TEST_F(SaveEntry, WritesEveryFieldOfTheEntryAndSaysNothing) {
    world_.Start();
    world_.Statements();
    Save();
    EXPECT_EQ(ReadBytes(Path()), kEntry);
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
    EXPECT_THAT(world_.Statements(), IsEmpty());
    ASSERT_EQ(world_.fileDialog.questions.size(), 1U);
    EXPECT_EQ(world_.fileDialog.questions[0].flags, kAskBeforeReplacing | kHideReadOnly);
    EXPECT_EQ(world_.fileDialog.questions[0].title, "Save Entry As");
}

TEST_F(SaveEntry, WritesTheBytesThatWereOpened) {
    frmMain& window = world_.Start();
    std::string other = kEntry;
    other.replace(other.find("Flow meter"), 10, "\"  a \"quoted\" one \"");
    WriteBytes(Path(), other);
    Choose(window, *window.Menu().mnuOpenEntry);
    EXPECT_EQ(window.Controls().txtMain[kDeviceDescriptionBox]->Text(), "  a \"quoted\" one ");
    fs::remove(Path());
    Save();
    EXPECT_EQ(ReadBytes(Path()), other);
}

TEST_F(SaveEntry, NamesANewCategoryByItsTextAndMakesNone) {
    frmMain& window = world_.Start();
    window.Controls().cboDeviceCategory->SetText("Turbines");
    world_.Statements();
    Save();
    EXPECT_THAT(ReadBytes(Path()), HasSubstr("\nMajorCategory=Turbines\n"));
    EXPECT_THAT(world_.Statements(), IsEmpty());
}

TEST_F(SaveEntryOnTheOldSchema, WritesWhatItsFieldsDoNotShowToo) {
    world_.Start();
    Save();
    EXPECT_EQ(ReadBytes(Path()), "[000026.000A.01]\n" + kEntry.substr(kEntry.find('\n') + 1));
}

TEST_F(SaveEntryOnTheOldSchema, WritesTheNamesOfAnOpenedEntryThatOnlyACurrentDatabaseKnows) {
    frmMain& window = world_.Start();
    WriteBytes(Path(), "[A]\nManID=1\nProtocol=Conventional\nMajorCategory=Flow\n");
    Choose(window, *window.Menu().mnuOpenEntry);
    Save();
    EXPECT_THAT(ReadBytes(Path()), HasSubstr("\nProtocol=Conventional\nMajorCategory=Flow\n"));
}

TEST_F(SaveEntry, ReplacesAnEntryFileButNothingElse) {
    world_.Start();
    WriteBytes(Path(), "[Old]\nManID=1\n");
    Save();
    EXPECT_EQ(ReadBytes(Path()), kEntry);
    world_.fileDialog.answer = world_.PyxPath();
    const std::string before = ReadBytes(world_.PyxPath());
    Save();
    EXPECT_EQ(ReadBytes(world_.PyxPath()), before);
    EXPECT_THAT(world_.messages.Texts(),
                ElementsAre("The entry was not saved: " + world_.PyxPath() +
                            " is there and holds something else. Choose another name."));
}

TEST_F(SaveEntry, ThatIsCancelledWritesNothing) {
    world_.Start();
    world_.fileDialog.answer.clear();
    Save();
    EXPECT_FALSE(fs::exists(Path()));
}

TEST_F(SaveEntry, IntoAMissingFolderIsLogged) {
    world_.Start();
    world_.fileDialog.answer = world_.Folder() + "missing/flow.ini";
    Save();
    EXPECT_THAT(world_.LogEntries(), ElementsAre(HasSubstr("fMse-02: Path not found")));
    EXPECT_THAT(world_.messages.Texts(), testing::SizeIs(1));
}

TEST_F(SaveEntry, OfATextThatFitsInNoLineIsLoggedAndLeavesTheFileAlone) {
    frmMain& window = world_.Start();
    WriteBytes(Path(), "[Old]\nManID=1\n");
    window.Controls().txtMain[kDeviceNameBox]->SetText("two\nlines");
    Save();
    EXPECT_EQ(ReadBytes(Path()), "[Old]\nManID=1\n");
    EXPECT_THAT(world_.LogEntries(), ElementsAre(HasSubstr("fMse-01: Path/File access error")));
}

TEST_F(SaveEntry, ComesByCtrlS) {
    frmMain& window = world_.Start();
    ASSERT_TRUE(ReadyToType(window.Controls().txtMain[kDataSourceBox]->Box()));
    PressKey('S', wxMOD_CONTROL);
    WaitUntil("the file", [&] { return fs::exists(Path()); });
    EXPECT_EQ(ReadBytes(Path()), kEntry);
}

/// What both ways of writing leave in the targets.
struct Written {
    std::string rows;
    std::string ini;
    std::string ddInstall;

    bool operator==(const Written&) const = default;
};

Written TargetsOf(GuiWorld& world) {
    Written written;
    for (const char* table : {"Manufacturers", "MfrProtocols", "DeviceTypes", "DeviceRevisions",
                              "DeviceCategories", "MajorDeviceCategories", "MinorDeviceCategories"})
        written.rows += world.Database().Rows(std::string("SELECT * FROM ") + table) + "--\n";
    // The two worlds differ in the name of their data source.
    written.ini = ReadBytes(world.PyxPath());
    written.ini.erase(0, written.ini.find("\r\n\r\n"));
    written.ddInstall = ReadBytes(world.DDInstallPath());
    return written;
}

TEST_F(SaveEntry, GivesAFileThatTheCommandLineRegistersAsTheWindowWrites) {
    const auto fill = [](frmMain& window) {
        window.Controls().cboMinorCategory->SetText("Turbines");
        window.Controls().txtMain[kManufacturerNameBox]->SetText(" Acme & Co ");
        window.Controls().txtMain[kDllBox]->SetText("Dev");
    };
    frmMain& window = world_.Start();
    fill(window);
    Save();
    window.mnuWriteDB_Click();
    window.mnuWriteINI_Click();
    window.mnuWriteDDInstall_Click();
    EXPECT_THAT(world_.messages.Texts(), testing::SizeIs(3));
    world_.CloseAndForget();
    const Written byWindow = TargetsOf(world_);

    GuiWorld other;
    RunCli(other, {"--quiet", "register", Path(), "--all"});
    EXPECT_EQ(TargetsOf(other).rows, byWindow.rows);
    EXPECT_EQ(TargetsOf(other).ini, byWindow.ini);
    EXPECT_EQ(TargetsOf(other).ddInstall, byWindow.ddInstall);
    EXPECT_THAT(byWindow.rows, HasSubstr("Turbines"));
    EXPECT_THAT(byWindow.ddInstall, HasSubstr("Name=Acme & Co\r\n"));
}

}  // namespace
}  // namespace ventlock::test
