#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// "Pyx.ini" of the data source with the world's entry in it.
std::string PyxWithEntry(const std::string& dataSource) {
    return CrLf("[TAV Server 1]\nDataSourceName=" + dataSource + R"(

[Devices]
000026.000A.01=000026/000A

[000026.000A.01]
DeviceHelp=000026\000A\Dev.hlp
BlockHelp_001=000026\000A\Blk.hlp
DeviceDLL=000026\000A\Dev.dll
Description=Flow
HART Protocol Rev=5
)");
}

/// A new "Ddinstal.ini" with the world's entry in it.
const std::string kDDInstallWithEntry = CrLf(R"([Version]
DD Version=2

[General]
NumOfMfg=1

[Mfg1]
ID=000026
NumOfDev=1
Name=Acme

[000026.1]
DevType=000A
DevTypeDesc=Flow
DevTypeRevDesc=Rev 1
DevTypeRev=01
DDRevDesc=DD Rev 2
PYX=1,0102.pyx
SYM=1,0102.sym
MAP=1,0102.map
DeviceHelp=Dev.hlp
BlockHelp=Blk.hlp
OtherHelp=
DeviceDLL=1,Dev.dll
OtherDLL=
Template=1,Dev.mrg
HART Protocol Rev=5
TAVVersionSupport=5.0, 6.0
)");

TEST(WriteIni, StoresTheEntryAndTellsSo) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteINI_Click();
    EXPECT_EQ(ReadBytes(world.PyxPath()), PyxWithEntry(world.Database().Dsn()));
    ASSERT_THAT(world.messages.messages, SizeIs(1));
    EXPECT_EQ(world.messages.messages[0].text, "The entry has been inserted.");
    EXPECT_EQ(world.messages.messages[0].title, "") << "the default title";
    EXPECT_FALSE(world.messages.messages[0].help) << "a box with OK only";
    EXPECT_THAT(UsableWrites(window),
                ElementsAre("mnuWriteDB", "mnuWriteDDInstall", "cmdWriteDB", "cmdWriteDDInstall"));
}

TEST(WriteDDInstall, StoresTheEntryAndTellsSo) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteDDInstall_Click();
    EXPECT_EQ(ReadBytes(world.DDInstallPath()), kDDInstallWithEntry);
    ASSERT_THAT(world.messages.messages, SizeIs(1));
    EXPECT_EQ(world.messages.messages[0].text, "The entry has been inserted.");
    EXPECT_EQ(world.messages.messages[0].title, "") << "the default title";
    EXPECT_FALSE(world.messages.messages[0].help) << "a box with OK only";
    EXPECT_THAT(UsableWrites(window), ElementsAre("mnuWriteDB", "mnuWriteINI", "cmdWriteDB", "cmdWriteINI"));
    EXPECT_THAT(world.fileDialog.questions, IsEmpty()) << "the path was there";
}

TEST(WriteFiles, WorkWithoutADatabase) {
    GuiWorld world{GuiWorld::NoDatabase{}};
    world.PutEntry();
    frmMain& window = world.Start();
    world.messages.messages.clear();
    world.Statements();
    window.mnuWriteINI_Click();
    window.mnuWriteDDInstall_Click();
    EXPECT_EQ(ReadBytes(world.PyxPath()), PyxWithEntry("nobody_knows_this"));
    EXPECT_EQ(ReadBytes(world.DDInstallPath()), kDDInstallWithEntry);
    EXPECT_THAT(world.messages.Texts(),
                ElementsAre("The entry has been inserted.", "The entry has been inserted."));
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(WriteFiles, AreEnabledAgainByAnyLaterChange) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteINI_Click();
    window.mnuWriteDDInstall_Click();
    ASSERT_THAT(UsableWrites(window), ElementsAre("mnuWriteDB", "cmdWriteDB"));
    window.Controls().cboDDRev->SetText("03");
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
}

TEST(WriteFiles, TakeWhatTheFieldsHoldNow) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteINI_Click();
    window.Controls().txtMain[kDeviceNameBox]->SetText(" Level ");
    window.mnuWriteINI_Click();
    std::string expected = PyxWithEntry(world.Database().Dsn());
    expected.replace(expected.find("=Flow"), 5, "=Level");
    EXPECT_EQ(ReadBytes(world.PyxPath()), expected);
}

TEST(WriteFiles, CountARelativePathFromTheProgramsFolder) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kDDInstallPathBox]->SetText("Other.ini");
    window.mnuWriteDDInstall_Click();
    EXPECT_EQ(ReadBytes(world.ProgramFile("Other.ini")), kDDInstallWithEntry);
}

/// A path that no file can have: a folder stands there.
std::string FolderAt(const GuiWorld& world, const std::string& name) {
    const std::string path = world.Folder() + name;
    fs::create_directory(path);
    return path;
}

TEST(WriteIni, ThatFailsHandsOneTextToTheLogAndStaysEnabled) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kIniPathBox]->SetText(FolderAt(world, "folder.ini"));
    window.mnuWriteINI_Click();
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("INIins-01", ErrorNumber::PathFileAccessError),
                                                "The entry could not be inserted."));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries()) << "the log's own boxes and no other";
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
}

TEST(WriteDDInstall, ThatFailsHandsOneTextToTheLogAndStaysEnabled) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kDDInstallPathBox]->SetText(FolderAt(world, "folder.ini"));
    window.mnuWriteDDInstall_Click();
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("DDwddi-01", ErrorNumber::PathFileAccessError),
                                                "The entry could not be inserted."));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries()) << "the log's own boxes and no other";
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
}

TEST(WriteFiles, WhoseMessageCannotBeShownAreLoggedUnderTheirTags) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    world.messages.whileShown = [&] {
        if (world.messages.messages.size() % 2 == 1) throw RunTimeError(ErrorNumber::OutOfMemory);
    };
    window.mnuWriteINI_Click();
    window.mnuWriteDDInstall_Click();
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("fMwini-00", ErrorNumber::OutOfMemory),
                                                EntryText("fMwdd-00", ErrorNumber::OutOfMemory)));
}

TEST(WriteFiles, WriteThoughACategoryCannotBeLookedUp) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->SetText("Brand new");
    world.failure.FailAt(
        "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, Description) VALUES ('10', "
        "'Brand new', '') ",
        1, RunTimeError(ErrorNumber::OdbcCallFailed));
    window.mnuWriteINI_Click();
    EXPECT_EQ(ReadBytes(world.PyxPath()), PyxWithEntry(world.Database().Dsn()));
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("DBgci-03", ErrorNumber::OdbcCallFailed)));
    EXPECT_EQ(world.messages.Texts().back(), "The entry has been inserted.");
}

class MissingDDInstallPath : public testing::TestWithParam<const char*> {};

TEST_P(MissingDDInstallPath, IsAskedForBeforeTheEntryIsGathered) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kDDInstallPathBox]->SetText(GetParam());
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Bolt");
    world.fileDialog.answer = world.Folder() + "Chosen.ini";
    std::string nameInRecord;
    world.fileDialog.whileShown = [&] { nameInRecord = window.Records().TavDB().Manufacturer().Name; };
    window.mnuWriteDDInstall_Click();
    EXPECT_THAT(world.fileDialog.questions, SizeIs(1));
    EXPECT_EQ(nameInRecord, "Acme") << "not gathered yet";
    EXPECT_EQ(window.Controls().txtMain[kDDInstallPathBox]->Text(), world.fileDialog.answer);
    std::string expected = kDDInstallWithEntry;
    expected.replace(expected.find("=Acme"), 5, "=Bolt");
    EXPECT_EQ(ReadBytes(world.fileDialog.answer), expected);
}

TEST_P(MissingDDInstallPath, ThatIsNotChosenEndsTheCommand) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kDDInstallPathBox]->SetText(GetParam());
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Bolt");
    window.mnuWriteDDInstall_Click();
    EXPECT_THAT(world.fileDialog.questions, SizeIs(1));
    EXPECT_EQ(window.Controls().txtMain[kDDInstallPathBox]->Text(), GetParam());
    EXPECT_EQ(window.Records().TavDB().Manufacturer().Name, "Acme") << "nothing gathered";
    EXPECT_FALSE(fs::exists(world.DDInstallPath()));
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
    EXPECT_THAT(world.LogEntries(), IsEmpty());
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
}

INSTANTIATE_TEST_SUITE_P(Paths, MissingDDInstallPath, testing::Values("", "   "));

}  // namespace
}  // namespace ventlock::test
