#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/Shown.h"

namespace ventlock::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

/// Types the name of a data source and switches to it.
void SwitchTo(frmMain& window, const std::string& dataSource) {
    window.Controls().txtMain[kDataSourceBox]->SetText(dataSource);
    window.cmdSwitchDSN_Click();
}

TEST(Switch, BetweenCurrentSchemasListsTheNewDatabasesRowsOnly) {
    GuiWorld world;
    SqliteDatabase other;
    other.Execute("UPDATE DeviceProtocols SET Name = 'other ' || Name");
    other.Execute("DELETE FROM MajorDeviceCategories WHERE MajorDeviceCategoryId > 6");
    other.Execute("DELETE FROM MinorDeviceCategories WHERE MinorDeviceCategoryId = 17");
    frmMain& window = world.Start();
    SwitchTo(window, other.Dsn());
    const MainControls& controls = window.Controls();
    EXPECT_THAT(Items(*controls.cboDeviceProtocol),
                ElementsAre("other HART", "other Fieldbus", "other Conventional"));
    EXPECT_THAT(Items(*controls.cboDeviceCategory), ElementsAre("Not classified", "Pressure", "Temperature",
                                                                "Flow", "Level", "Valve", "Analytical"));
    EXPECT_THAT(Items(*controls.cboMinorCategory), SizeIs(17));
    EXPECT_TRUE(window.IsConnected());
}

TEST(Switch, BetweenCurrentSchemasRunsTheStatementsOfAStart) {
    GuiWorld world;
    frmMain& window = world.Start();
    const std::vector<std::string> atStart = world.Statements();
    SwitchTo(window, world.Database().Dsn());
    EXPECT_EQ(world.Statements(), atStart);
}

TEST(Switch, ChoosesTheSameIdsAgainWhereverTheyStandNow) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase other;
    other.Execute("DELETE FROM DeviceProtocols WHERE ProtocolId = 0");
    other.Execute("INSERT INTO DeviceProtocols VALUES (-1, 'First', ''), (-2, 'Before', '')");
    other.Execute("DELETE FROM DeviceProtocols WHERE ProtocolId = 1");
    other.Execute("DELETE FROM MajorDeviceCategories WHERE MajorDeviceCategoryId = 8");
    other.Execute("DELETE FROM DeviceCategories WHERE MinorDeviceCategoryId = 3");
    other.Execute("DELETE FROM MinorDeviceCategories WHERE MinorDeviceCategoryId = 3");
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->Select(9);
    window.Controls().cboMinorCategory->Select(4);
    SwitchTo(window, other.Dsn());
    const EntryForm form = window.Controls().Read();
    EXPECT_EQ(form.cboDeviceProtocol.itemData, 2);
    EXPECT_EQ(form.cboDeviceProtocol.index, 2);
    EXPECT_EQ(form.cboDeviceCategory.text, "Input and output");
    EXPECT_EQ(form.cboDeviceCategory.index, 8);
    EXPECT_EQ(form.cboMinorCategory.text, "Thermocouple");
    EXPECT_EQ(form.cboMinorCategory.index, 3);
}

TEST(Switch, ChoosesNothingForAnIdThatTheNewDatabaseLacks) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase other;
    other.Execute("UPDATE DeviceProtocols SET ProtocolId = 9 WHERE ProtocolId = 2");
    frmMain& window = world.Start();
    SwitchTo(window, other.Dsn());
    EXPECT_EQ(window.Controls().cboDeviceProtocol->Index(), -1);
    EXPECT_EQ(window.Controls().cboDeviceCategory->Index(), 0) << "the rules without a protocol";
}

TEST(Switch, KeepsACategoryThatWasTyped) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboMinorCategory->SetText("Radar gauge");
    SwitchTo(window, world.Database().Dsn());
    EXPECT_EQ(window.Controls().cboMinorCategory->Text(), "Radar gauge");
    EXPECT_EQ(window.Controls().cboMinorCategory->Index(), -1);
}

TEST(Switch, KeepsWhatWasTypedBetweenCurrentSchemas) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase other;
    frmMain& window = world.Start();
    for (std::size_t box = kDDInstallPathBox; box < kTextBoxCount; ++box)
        window.Controls().txtMain[box]->SetText("typed " + std::to_string(box));
    window.Controls().cboDDRev->SetText("0B");
    window.Controls().lstTAVVersionSupport->Select(2);
    const EntryForm before = window.Controls().Read();
    SwitchTo(window, other.Dsn());
    const EntryForm after = window.Controls().Read();
    for (std::size_t box = kDDInstallPathBox; box < kTextBoxCount; ++box)
        EXPECT_EQ(after.txtMain[box], before.txtMain[box]) << box;
    EXPECT_EQ(after.cboDDRev, "0B");
    EXPECT_EQ(Items(*window.Controls().lstTAVVersionSupport),
              (std::vector<std::string>{"5.0", "6.0", "7.0"}));
    EXPECT_TRUE(after.lstTAVVersionSupport[2].isSelected);
}

TEST(Switch, BringsFreshObjectsWithTheStoredEntry) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteDB_Click();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("typed");
    window.GatherEntry();
    const clsTavDB* before = window.Records().Facade().get();
    SwitchTo(window, world.Database().Dsn());
    EXPECT_NE(window.Records().Facade().get(), before);
    EXPECT_EQ(window.Records().TavDB().Manufacturer().Name, "Acme");
}

TEST(Switch, StoresNothingButTheDataSourcesName) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase other;
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("typed");
    const std::vector<std::string> stored = world.AllStored();
    SwitchTo(window, other.Dsn());
    EXPECT_EQ(world.AllStored(), stored);
    EXPECT_THAT(world.host.registry.sets, IsEmpty());
    EXPECT_EQ(ReadBytes(world.PyxPath()), "[TAV Server 1]\r\nDataSourceName=" + other.Dsn() + "\r\n");
    EXPECT_FALSE(std::filesystem::exists(world.DDInstallPath()));
    EXPECT_EQ(other.Rows("SELECT * FROM Manufacturers"), "");
    EXPECT_THAT(world.messages.Texts(), IsEmpty()) << "no box of its own";
}

TEST(Switch, TrimsTheNameBeforeItIsStoredAndShown) {
    GuiWorld world;
    SqliteDatabase other;
    frmMain& window = world.Start();
    SwitchTo(window, "  " + other.Dsn() + " ");
    EXPECT_EQ(ReadBytes(world.PyxPath()), "[TAV Server 1]\r\nDataSourceName=" + other.Dsn() + "\r\n");
    EXPECT_EQ(window.Controls().txtMain[kDataSourceBox]->Text(), other.Dsn());
    EXPECT_TRUE(window.IsConnected());
}

TEST(Switch, WritesIntoTheFileOfTheSettingsNotIntoTheOneOnTheScreen) {
    GuiWorld world;
    SqliteDatabase other;
    frmMain& window = world.Start();
    const std::string onScreen = world.Folder() + "Other.ini";
    window.Controls().txtMain[kIniPathBox]->SetText(onScreen);
    SwitchTo(window, other.Dsn());
    EXPECT_EQ(ReadBytes(world.PyxPath()), "[TAV Server 1]\r\nDataSourceName=" + other.Dsn() + "\r\n");
    EXPECT_FALSE(std::filesystem::exists(onScreen));
}

TEST(Switch, FromTheOldToTheCurrentSchemaShowsTheStoredFields) {
    GuiWorld world(DeviceSchema::Old);
    world.PutEntry();
    SqliteDatabase current;
    frmMain& window = world.Start();
    ASSERT_EQ(window.Controls().txtMain[kManufacturerDescriptionBox]->Text(), "");
    window.Controls().txtMain[kManufacturerNameBox]->SetText("typed");
    SwitchTo(window, current.Dsn());
    const EntryForm form = window.Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerNameBox], "typed");
    EXPECT_EQ(form.txtMain[kManufacturerDescriptionBox], "Acme Inc");
    EXPECT_EQ(form.txtMain[kDeviceDescriptionBox], "Flow meter");
    EXPECT_EQ(form.txtMain[kRevisionNameBox], "R1");
    EXPECT_EQ(form.txtMain[kRevisionDescriptionBox], "First");
    EXPECT_EQ(form.cboDeviceProtocol.itemData, 2);
    EXPECT_EQ(form.cboDeviceCategory.text, "Pressure");
    EXPECT_EQ(form.cboMinorCategory.text, "Gauge");
    EXPECT_EQ(window.SchemaVersion(), 5);
    EXPECT_TRUE(window.Controls().txtMain[kManufacturerDescriptionBox]->Box().IsThisEnabled());
}

TEST(Switch, FromNoDatabaseToTheCurrentSchemaShowsTheStoredFieldsAndTheySurviveExit) {
    GuiWorld world{GuiWorld::NoDatabase{}};
    world.PutEntry();
    SqliteDatabase current;
    frmMain& window = world.Start();
    SwitchTo(window, current.Dsn());
    const EntryForm form = window.Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerDescriptionBox], "Acme Inc");
    EXPECT_EQ(form.txtMain[kDeviceDescriptionBox], "Flow meter");
    EXPECT_EQ(form.txtMain[kRevisionNameBox], "R1");
    EXPECT_EQ(form.txtMain[kRevisionDescriptionBox], "First");
    EXPECT_EQ(form.cboDeviceProtocol.itemData, 2);
    EXPECT_EQ(form.cboDeviceCategory.text, "Pressure");
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManDesc"), "Acme Inc");
    EXPECT_EQ(world.Stored("DevDesc"), "Flow meter");
    EXPECT_EQ(world.Stored("DevRevName"), "R1");
    EXPECT_EQ(world.Stored("DevRevDesc"), "First");
    EXPECT_EQ(world.Stored("ProtID"), "2");
}

TEST(Switch, FromTheCurrentToTheOldSchemaLeavesTheListsAndDisablesWhatItLacks) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase old(DeviceSchema::Old);
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerDescriptionBox]->SetText("typed");
    SwitchTo(window, old.Dsn());
    const MainControls& controls = window.Controls();
    EXPECT_TRUE(window.IsConnected());
    EXPECT_EQ(window.SchemaVersion(), 4);
    EXPECT_THAT(Items(*controls.cboDeviceProtocol), SizeIs(3));
    EXPECT_EQ(controls.cboDeviceProtocol->Index(), 2);
    EXPECT_EQ(controls.cboDeviceCategory->Text(), "Pressure");
    EXPECT_EQ(controls.txtMain[kManufacturerDescriptionBox]->Text(), "typed");
    EXPECT_FALSE(controls.txtMain[kManufacturerDescriptionBox]->Box().IsThisEnabled());
    EXPECT_FALSE(controls.cboDeviceProtocol->Box().IsThisEnabled());
}

TEST(Switch, FromTheCurrentToTheOldSchemaLetsExitSaveTheDescriptionsOfTheStart) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase old(DeviceSchema::Old);
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerDescriptionBox]->SetText("typed");
    window.Controls().txtMain[kManufacturerNameBox]->SetText("typed too");
    SwitchTo(window, old.Dsn());
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManDesc"), "Acme Inc");
    EXPECT_EQ(world.Stored("ManName"), "typed too");
}

TEST(Switch, ThereAndBackFillsTheFieldsOfTheCurrentSchemaWithTheStoredEntry) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase old(DeviceSchema::Old);
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerDescriptionBox]->SetText("typed");
    SwitchTo(window, old.Dsn());
    SwitchTo(window, world.Database().Dsn());
    EXPECT_EQ(window.Controls().txtMain[kManufacturerDescriptionBox]->Text(), "Acme Inc");
    EXPECT_TRUE(window.Controls().cboDeviceProtocol->Box().IsThisEnabled());
}

TEST(Switch, EvaluatesTheWriteCommands) {
    GuiWorld world{GuiWorld::NoDatabase{}};
    world.PutEntry();
    SqliteDatabase current;
    frmMain& window = world.Start();
    ASSERT_THAT(UsableWrites(window), Not(Contains("mnuWriteDB")));
    SwitchTo(window, current.Dsn());
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
    EXPECT_TRUE(window.Controls().cboDeviceProtocol->Box().IsThisEnabled());
}

TEST(Switch, EnablesAFinishedCommandAgain) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteINI_Click();
    ASSERT_THAT(UsableWrites(window), Not(Contains("mnuWriteINI")));
    SwitchTo(window, world.Database().Dsn());
    EXPECT_THAT(UsableWrites(window), SizeIs(6)) << "though no field has changed";
}

TEST(Switch, TellsWhatTheWindowIsConnectedTo) {
    GuiWorld world;
    SqliteDatabase old(DeviceSchema::Old);
    frmMain& window = world.Start();
    SwitchTo(window, old.Dsn());
    EXPECT_EQ(window.Controls().lblStatus->GetLabelText(), "Connected to " + old.Dsn() + ", old schema");
    SwitchTo(window, "nobody");
    EXPECT_EQ(window.Controls().lblStatus->GetLabelText(), "Not connected (data source nobody)");
}

TEST(Switch, PutsTheWindowBackToItsStoredPlace) {
    GuiWorld world;
    world.Put("WindowLeft", "1500");
    world.Put("WindowTop", "2250");
    frmMain& window = world.Start();
    window.Move(300, 250);
    ASSERT_TRUE(WaitUntil("the move", [&] { return window.GetPosition() == wxPoint(300, 250); }));
    SwitchTo(window, world.Database().Dsn());
    WaitUntil("the stored place", [&] { return window.GetPosition() == wxPoint(100, 150); });
}

}  // namespace
}  // namespace ventlock::test
