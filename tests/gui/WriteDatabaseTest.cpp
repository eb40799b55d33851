#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/clsLog.h"
#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kInsertManufacturer =
    "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'Acme', 'Acme Inc') ";

TEST(WriteDatabase, StoresTheEntryAndTellsSo) {
    GuiWorld world;
    world.PutEntry();
    world.Start().mnuWriteDB_Click();
    SqliteDatabase& database = world.Database();
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(database.Rows("SELECT * FROM MfrProtocols"), "1|1|2|38\n");
    EXPECT_EQ(database.Rows("SELECT * FROM DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(database.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|1|R1|First\n");
    ASSERT_THAT(world.messages.messages, SizeIs(1));
    EXPECT_EQ(world.messages.messages[0].text, "The database has been updated.");
    EXPECT_EQ(world.messages.messages[0].title, "") << "the default title";
    EXPECT_FALSE(world.messages.messages[0].help) << "a box with OK only";
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(WriteDatabase, DisablesOnlyItself) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteDB_Click();
    EXPECT_THAT(UsableWrites(window),
                ElementsAre("mnuWriteINI", "mnuWriteDDInstall", "cmdWriteINI", "cmdWriteDDInstall"));
}

TEST(WriteDatabase, StaysEnabledWhileItsMessageIsShown) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    std::vector<std::string> usable;
    world.messages.whileShown = [&] { usable = UsableWrites(window); };
    window.mnuWriteDB_Click();
    EXPECT_THAT(usable, SizeIs(6));
}

TEST(WriteDatabase, IsEnabledAgainByAnyLaterChange) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteDB_Click();
    window.Controls().txtMain[kBlockHelpBox]->SetText("other");
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
}

TEST(WriteDatabase, ThatFailsHandsOneTextToTheLogAndStaysEnabled) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    world.failure.FailAt(kInsertManufacturer, 1, RunTimeError(ErrorNumber::OdbcCallFailed));
    window.mnuWriteDB_Click();
    const std::string error = EntryText("MANins-02.1a", ErrorNumber::OdbcCallFailed);
    EXPECT_THAT(world.LogEntries(), ElementsAre(error, "The database could not be updated."));
    EXPECT_THAT(world.messages.Texts(), ElementsAre(error, "The database could not be updated."))
        << "the log shows its entries, and nobody shows another box";
    EXPECT_EQ(world.messages.messages.back().title, "Ventlock");
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
    EXPECT_EQ(world.Database().Rows("SELECT * FROM Manufacturers"), "");
}

TEST(WriteDatabase, ThatFailedCanBeRepeated) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    world.failure.FailAt(kInsertManufacturer, 1, RunTimeError(ErrorNumber::OdbcCallFailed));
    window.mnuWriteDB_Click();
    window.mnuWriteDB_Click();
    EXPECT_EQ(world.messages.Texts().back(), "The database has been updated.");
    EXPECT_EQ(world.Database().Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
}

TEST(WriteDatabase, OnTheOldSchemaStoresTheEntryThere) {
    GuiWorld world(DeviceSchema::Old);
    world.PutEntry();
    world.Start().mnuWriteDB_Click();
    EXPECT_EQ(world.Database().Rows("SELECT * FROM MfrIds"), "38|Acme\n");
    EXPECT_EQ(world.Database().Rows("SELECT DevName, DevRev, DevDDLRev, DevProtocolRev FROM PDevices"),
              "Flow|1|2|5\n");
    EXPECT_THAT(world.messages.Texts(), ElementsAre("The database has been updated."));
}

TEST(WriteDatabase, AfterASwitchToTheSameSourceNumbersASecondEntryAnew) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteDB_Click();
    window.cmdSwitchDSN_Click();
    window.Controls().txtMain[kManufacturerIdBox]->SetText("27");
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Bolt");
    window.mnuWriteDB_Click();
    EXPECT_EQ(world.Database().Rows("SELECT TavMfrNameId, Name FROM Manufacturers ORDER BY 1"),
              "1|Acme\n2|Bolt\n");
    EXPECT_EQ(world.Database().Rows("SELECT MfrProtocolId, MfrId FROM MfrProtocols ORDER BY 1"),
              "1|38\n2|39\n");
}

TEST(WriteDatabase, WithoutASwitchRepeatsTheFirstNumbers) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.mnuWriteDB_Click();
    window.Controls().txtMain[kManufacturerIdBox]->SetText("27");
    window.mnuWriteDB_Click();
    EXPECT_THAT(world.LogEntries(),
                ElementsAre(DatabaseEntry("MANins-02.1a"), "The database could not be updated."));
    EXPECT_EQ(world.Database().Rows("SELECT MfrId FROM MfrProtocols"), "38\n");
}

TEST(WriteDatabase, WhoseMessageCannotBeShownIsLoggedUnderItsTag) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    bool isFirst = true;
    world.messages.whileShown = [&] {
        if (std::exchange(isFirst, false)) throw RunTimeError(ErrorNumber::OutOfMemory);
    };
    window.mnuWriteDB_Click();
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("fMwdb-00", ErrorNumber::OutOfMemory)));
    EXPECT_THAT(UsableWrites(window), SizeIs(6));
    EXPECT_FALSE(window.IsBusy());
}

TEST(WriteDatabase, ThatIsDisabledCannotBeChosen) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText(" ");
    Choose(window, *window.Menu().mnuWriteDB);
    Press(*window.Controls().cmdWriteDB);
    EXPECT_EQ(world.Database().Rows("SELECT * FROM Manufacturers"), "");
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
