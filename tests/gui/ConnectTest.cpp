// The device database as the window meets it at start-up.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/GuiWorld.h"
#include "platform/odbc/DriverAdvice.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kVersionRead = "SELECT *   FROM __version  ORDER BY Major, Minor ";

TEST(Connect, WithoutAReachableDataSourceLeavesAUsableWindow) {
    GuiWorld world(GuiWorld::NoDatabase{});
    world.PutEntry();
    frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre(DatabaseEntry("CONNconn-02")));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries());
    EXPECT_TRUE(window.IsShown());
    EXPECT_FALSE(window.IsConnected());
    EXPECT_EQ(window.SchemaVersion(), 0);
    EXPECT_FALSE(gbTerminate);
    EXPECT_THAT(world.Statements(), IsEmpty());
    EXPECT_EQ(window.Controls().cboDeviceProtocol->Count(), 0);
    EXPECT_EQ(window.Controls().cboDevRev->Count(), 21);
}

TEST(Connect, WithoutAReachableDataSourceOnlyTheDatabaseCannotBeWritten) {
    GuiWorld world(GuiWorld::NoDatabase{});
    world.PutEntry();
    frmMain& window = world.Start();
    EXPECT_FALSE(window.Controls().cmdWriteDB->IsEnabled());
    EXPECT_FALSE(window.Menu().mnuWriteDB->IsEnabled());
    ASSERT_TRUE(window.Controls().cmdWriteINI->IsEnabled());
    ASSERT_TRUE(window.Controls().cmdWriteDDInstall->IsEnabled());
    world.messages.messages.clear();
    window.mnuWriteINI_Click();
    EXPECT_THAT(world.messages.Texts(), ElementsAre("The entry has been inserted."));
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(Connect, WithADriverOfAnotherWordSizeSaysWhichOneIsNeeded) {
    const std::string record = "[IM014] The specified DSN contains an architecture mismatch (0)";
    GuiWorld world;
    world.createEngine = RefusingConnect(RunTimeError::OdbcCallFailed({record}));
    const frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(),
                ElementsAre("CONNconn-02: ODBC--call failed. " + record + " (3146)", odbc::WordSizeAdvice()));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries());
    EXPECT_FALSE(window.IsConnected());
}

TEST(Connect, ToAnUnsupportedSchemaGivesOneEntryAndLeavesTheWindowUnconnected) {
    GuiWorld world;
    world.Database().Execute("UPDATE __version SET Major = 2");
    const frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre(kNoSupport));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries());
    EXPECT_FALSE(window.IsConnected());
    EXPECT_EQ(window.SchemaVersion(), 0);
    EXPECT_THAT(world.Statements(), ElementsAre(kVersionRead));
    EXPECT_FALSE(gbTerminate);
}

TEST(Connect, ToADatabaseWithoutVersionGivesTwoEntries) {
    GuiWorld world(DeviceSchema::None);
    const frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre(DatabaseEntry("DBlvi-00"), kNoSupport));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries());
    EXPECT_FALSE(window.IsConnected());
    EXPECT_EQ(window.SchemaVersion(), 0);
    EXPECT_THAT(world.Statements(), ElementsAre(kVersionRead));
    EXPECT_FALSE(gbTerminate);
}

TEST(Connect, ThatCannotReadTheVersionASecondTimeSaysSo) {
    GuiWorld world;
    world.failure.FailAt(kVersionRead, 2, RunTimeError(ErrorNumber::OdbcCallFailed));
    const frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("DBlvi-00", ErrorNumber::OdbcCallFailed), kNoRead));
    EXPECT_FALSE(window.IsConnected());
    EXPECT_THAT(world.Statements(), ElementsAre(kVersionRead, kVersionRead));
    EXPECT_EQ(world.Window().Controls().cboDeviceProtocol->Count(), 0);
    EXPECT_FALSE(gbTerminate);
}

TEST(Connect, IsToldInTheStatusText) {
    GuiWorld current;
    EXPECT_EQ(current.Start().Controls().lblStatus->GetLabel(),
              "Connected to " + current.Database().Dsn() + ", current schema");
    current.Forget();
    GuiWorld old(DeviceSchema::Old);
    EXPECT_EQ(old.Start().Controls().lblStatus->GetLabel(),
              "Connected to " + old.Database().Dsn() + ", old schema");
    old.Forget();
    GuiWorld none(GuiWorld::NoDatabase{});
    EXPECT_EQ(none.Start().Controls().lblStatus->GetLabel(), "Not connected (data source nobody_knows_this)");
}

TEST(Connect, KeepsTheCodeOfTheSchema) {
    GuiWorld current;
    EXPECT_EQ(current.Start().SchemaVersion(), 5);
    current.Forget();
    GuiWorld old(DeviceSchema::Old);
    EXPECT_EQ(old.Start().SchemaVersion(), 4);
    EXPECT_TRUE(old.Window().IsConnected());
}

TEST(Connect, DoesNotMindWhetherTheDatabaseIsEmpty) {
    GuiWorld world;
    world.Database().Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', ''), (2, 'Best', '')");
    EXPECT_TRUE(world.Start().IsConnected());
    EXPECT_EQ(world.Statements().size(), 7u);
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(Connect, LogsAFailedCheckForEmptinessAndGoesOn) {
    GuiWorld world;
    world.failure.FailAt("SELECT *   FROM DeviceTypes ", 1, RunTimeError(ErrorNumber::OdbcCallFailed));
    EXPECT_TRUE(world.Start().IsConnected());
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("DBe1-02", ErrorNumber::OdbcCallFailed)));
}

TEST(Connect, ReportsADriverManagerThatCannotBeSetUp) {
    GuiWorld world;
    world.createEngine = []() -> std::unique_ptr<IDBEngine> {
        throw RunTimeError(ErrorNumber::CannotCreateObject);
    };
    EXPECT_FALSE(world.Start().IsConnected());
    EXPECT_THAT(world.LogEntries(), ElementsAre("CONNconn-01: ActiveX component can't create object (429)"));
}

}  // namespace
}  // namespace ventlock::test
