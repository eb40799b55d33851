#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Shown.h"
#include "support/LogEntry.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr const char* kNotConnected = "Unable to connect to database.";

void SwitchTo(frmMain& window, const std::string& dataSource) {
    window.Controls().txtMain[kDataSourceBox]->SetText(dataSource);
    window.cmdSwitchDSN_Click();
}

TEST(FailedSwitch, IsLoggedAndLeavesTheWindowUnconnected) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    SwitchTo(window, "nobody");
    EXPECT_THAT(world.LogEntries(), ElementsAre(DatabaseEntry("CONNconn-02"), kNotConnected));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries()) << "the log's own boxes and no other";
    EXPECT_FALSE(window.IsConnected());
    EXPECT_EQ(window.SchemaVersion(), 5) << "as it was";
    EXPECT_FALSE(gbTerminate);
}

TEST(FailedSwitch, LeavesListsAndFieldsAsTheyWere) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerDescriptionBox]->SetText("typed");
    SwitchTo(window, "nobody");
    const MainControls& controls = window.Controls();
    EXPECT_THAT(Items(*controls.cboDeviceProtocol), ElementsAre("HART", "Fieldbus", "Conventional"));
    EXPECT_THAT(Items(*controls.cboDeviceCategory), SizeIs(10));
    EXPECT_EQ(controls.cboDeviceProtocol->Index(), 2);
    EXPECT_EQ(controls.cboDeviceCategory->Text(), "Pressure");
    EXPECT_EQ(controls.txtMain[kManufacturerDescriptionBox]->Text(), "typed");
}

TEST(FailedSwitch, DisablesWhatNeedsADatabase) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    SwitchTo(window, "nobody");
    EXPECT_THAT(UsableWrites(window),
                ElementsAre("mnuWriteINI", "mnuWriteDDInstall", "cmdWriteINI", "cmdWriteDDInstall"));
    EXPECT_FALSE(window.Controls().cboDeviceProtocol->Box().IsThisEnabled());
    EXPECT_FALSE(window.Controls().cboDeviceCategory->Box().IsThisEnabled());
}

TEST(FailedSwitch, LeavesTheNewNameInTheFileAndOnTheScreen) {
    GuiWorld world;
    frmMain& window = world.Start();
    SwitchTo(window, "nobody");
    EXPECT_EQ(ReadBytes(world.PyxPath()), "[TAV Server 1]\r\nDataSourceName=nobody\r\n");
    EXPECT_EQ(window.Controls().txtMain[kDataSourceBox]->Text(), "nobody");
}

// What the window is like when the connection's own error is told.
TEST(FailedSwitch, HasStoredTheNameAndMadeFreshObjectsBeforeItConnects) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("typed");
    window.GatherEntry();
    const clsTavDB* before = window.Records().Facade().get();
    std::vector<std::string> told;
    world.messages.whileShown = [&] {
        if (!told.empty()) return;
        told.push_back(ReadBytes(world.PyxPath()));
        told.push_back(window.Records().Facade().get() == before ? "the old facade" : "a new facade");
        told.push_back(window.Records().TavDB().Manufacturer().Name);
        told.push_back(window.IsConnected() ? "connected" : "not connected");
        told.push_back(window.Controls().txtMain[kDataSourceBox]->Text());
    };
    SwitchTo(window, " nobody");
    EXPECT_THAT(told, ElementsAre("[TAV Server 1]\r\nDataSourceName=nobody\r\n", "a new facade", "Acme",
                                  "not connected", " nobody"));
}

TEST(FailedSwitch, LetsAFileBeWrittenWithoutAnyDatabase) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    SwitchTo(window, "nobody");
    world.Statements();
    world.messages.messages.clear();
    window.mnuWriteDDInstall_Click();
    EXPECT_THAT(ReadBytes(world.DDInstallPath()), HasSubstr("DevTypeDesc=Flow\r\n"));
    EXPECT_THAT(world.messages.Texts(), ElementsAre("The entry has been inserted."));
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(FailedSwitch, LetsTypedDescriptionsSurviveExit) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    SwitchTo(window, "nobody");
    window.Controls().txtMain[kManufacturerDescriptionBox]->SetText("typed");
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManDesc"), "typed");
}

TEST(FailedSwitch, ToAnEmptyNameFailsBeforeTheDriverManager) {
    GuiWorld world;
    frmMain& window = world.Start();
    SwitchTo(window, " ");
    EXPECT_THAT(world.LogEntries(), ElementsAre(HasSubstr("CONNconn-02: ODBC--call failed."), kNotConnected));
    EXPECT_EQ(window.Controls().txtMain[kDataSourceBox]->Text(), "");
    EXPECT_EQ(ReadBytes(world.PyxPath()), "[TAV Server 1]\r\nDataSourceName=\r\n");
}

TEST(FailedSwitch, ToAnUnsupportedSchemaLeavesADatabaseThatIsNotTouched) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase newer;
    newer.Execute("UPDATE __version SET Major = 2");
    frmMain& window = world.Start();
    SwitchTo(window, newer.Dsn());
    EXPECT_THAT(world.LogEntries(),
                ElementsAre("The version of the device database is not supported.", kNotConnected));
    EXPECT_FALSE(window.IsConnected());
    EXPECT_EQ(window.SchemaVersion(), 5) << "as it was";
    world.Statements();
    world.messages.messages.clear();
    window.Controls().cboDeviceCategory->SetText("Brand new");
    EXPECT_TRUE(window.GatherEntry());
    EXPECT_THAT(world.Statements(), IsEmpty());
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(FailedSwitch, CanBeFollowedByAGoodOne) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    SwitchTo(window, "nobody");
    SwitchTo(window, world.Database().Dsn());
    EXPECT_TRUE(window.IsConnected());
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
}

// A name that the file's code page cannot hold is refused.
TEST(Switch, ConnectsToTheOldSourceAndShowsItWhenTheNameCannotBeStored) {
    GuiWorld world;
    frmMain& window = world.Start();
    const std::string before = ReadBytes(world.PyxPath());
    SwitchTo(window, "\u0416");
    EXPECT_THAT(world.LogEntries(),
                ElementsAre(EntryWith("fMsd-02", ErrorNumber::PathFileAccessError, "\u0416")));
    EXPECT_EQ(ReadBytes(world.PyxPath()), before);
    EXPECT_EQ(window.Controls().txtMain[kDataSourceBox]->Text(), world.Database().Dsn());
    EXPECT_TRUE(window.IsConnected());
}

TEST(Switch, GoesOnWithEmptyListsWhenOneCannotBeLoaded) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    world.failure.FailAt(
        "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  ORDER BY "
        "MajorDevicecategoryId ",
        1, RunTimeError(ErrorNumber::OdbcCallFailed));
    SwitchTo(window, world.Database().Dsn());
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("DBlc-00", ErrorNumber::OdbcCallFailed)));
    EXPECT_THAT(Items(*window.Controls().cboDeviceProtocol), SizeIs(3));
    EXPECT_THAT(Items(*window.Controls().cboDeviceCategory), IsEmpty());
    EXPECT_THAT(Items(*window.Controls().cboMinorCategory), IsEmpty());
    EXPECT_TRUE(window.IsConnected());
    EXPECT_FALSE(gbTerminate) << "the program goes on";
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManName"), "Acme") << "and exit saves";
}

TEST(Switch, GoesOnWithEmptyListsWhenTheFirstCannotBeLoaded) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase other;
    other.Execute("DROP TABLE DeviceProtocols");
    frmMain& window = world.Start();
    SwitchTo(window, other.Dsn());
    EXPECT_THAT(world.LogEntries(), ElementsAre(DatabaseEntry("DBlp-00")));
    EXPECT_THAT(Items(*window.Controls().cboDeviceProtocol), IsEmpty());
    EXPECT_THAT(Items(*window.Controls().cboDeviceCategory), IsEmpty());
    EXPECT_EQ(window.Controls().cboDeviceProtocol->Index(), -1);
    EXPECT_THAT(UsableWrites(window), Contains("mnuWriteDB"));
}

TEST(FailedSwitch, ToASchemaThatBecomesUnreadableDisablesTheDatabaseCommand) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    ASSERT_THAT(UsableWrites(window), Contains("mnuWriteDB"));
    world.failure.FailAt("SELECT *   FROM __version  ORDER BY Major, Minor ", 2,
                         RunTimeError(ErrorNumber::OdbcCallFailed));
    SwitchTo(window, world.Database().Dsn());
    EXPECT_THAT(world.LogEntries(),
                ElementsAre(EntryText("DBlvi-00", ErrorNumber::OdbcCallFailed),
                            "The version of the device database could not be read.", kNotConnected));
    EXPECT_THAT(UsableWrites(window), Not(Contains("mnuWriteDB")));
}

TEST(Switch, AfterAStartThatEndedEarlyIsLoggedUnderItsTag) {
    GuiWorld world;
    world.createDictionary = [] { return nullptr; };
    frmMain& window = world.Start();
    ASSERT_THAT(world.LogEntries(), ElementsAre(EntryText("fMf_l-03", ErrorNumber::ObjectRequired)));
    window.cmdSwitchDSN_Click();
    EXPECT_EQ(world.LogEntries().back(), EntryText("fMsd-05", ErrorNumber::InvalidProcedureCall));
    EXPECT_FALSE(window.IsBusy());
}

}  // namespace
}  // namespace ventlock::test
