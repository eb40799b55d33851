// Every statement that writing a new entry runs, the redundant ones too.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/GuiWorld.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;

/// Starts with the stored entry, throws the statements of the start away and presses "Write DB".
void WriteNewEntry(GuiWorld& world) {
    world.Put("ProtID", "1");
    frmMain& window = world.Start();
    EXPECT_EQ(window.Controls().Read().txtMain[kRevisionNameBox], window.SchemaVersion() == 5 ? "R1" : "");
    world.Statements();
    ASSERT_TRUE(window.Controls().cmdWriteDB->IsEnabled());
    window.mnuWriteDB_Click();
    EXPECT_THAT(world.messages.Texts(), ElementsAre("The database has been updated."));
}

TEST(WriteStatements, OfANewEntryOnTheCurrentSchemaAreExactlyNine) {
    GuiWorld world;
    world.PutEntry();
    world.Database().Execute("DELETE FROM DeviceCategories");
    world.Database().Execute("DELETE FROM DeviceProtocols WHERE ProtocolId <> 1");
    world.Database().Execute("DELETE FROM MajorDeviceCategories WHERE MajorDeviceCategoryId <> 1");
    world.Database().Execute("DELETE FROM MinorDeviceCategories WHERE MinorDeviceCategoryId <> 1");
    WriteNewEntry(world);
    EXPECT_THAT(
        world.Statements(),
        ElementsAre(
            "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ",
            "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
            "MinorDeviceCategoryId) VALUES ('1', '1', '1') ",
            "select *   from MfrProtocols ",
            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'Acme', 'Acme "
            "Inc') ",
            "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (1, 1, "
            "1, '38') ",
            "select *   from DeviceTypes ",
            "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) "
            "VALUES (1, 1, '10', 'Flow', 'Flow meter') ",
            "select *   from DeviceRevisions ",
            "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
            "DeviceCategoryId, Name, Description) VALUES (1, 1, '1', 1, 'R1', 'First') "));
    EXPECT_EQ(world.Database().Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(world.Database().Rows("SELECT * FROM MfrProtocols"), "1|1|1|38\n");
    EXPECT_EQ(world.Database().Rows("SELECT * FROM DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(world.Database().Rows("SELECT * FROM DeviceRevisions"), "1|1|1|1|R1|First\n");
}

TEST(WriteStatements, OfANewEntryOnTheOldSchemaAreExactlyThree) {
    GuiWorld world(DeviceSchema::Old);
    world.PutEntry();
    WriteNewEntry(world);
    EXPECT_THAT(world.Statements(),
                ElementsAre("INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)",
                            "INSERT INTO DevTypes (DevMfrId, DevType, DevTypeDesc) VALUES (?, ?, ?)",
                            "INSERT INTO PDevices (UDevRevId, DevMfrId, DevType, DevName, DevRev, DevDDLRev, "
                            "DevProtocolRev) VALUES (?, ?, ?, ?, ?, ?, ?)"));
    EXPECT_EQ(world.Database().Rows("SELECT * FROM MfrIds"), "38|Acme\n");
    EXPECT_EQ(world.Database().Rows("SELECT * FROM DevTypes"), "38|10|Flow\n");
    EXPECT_EQ(world.Database().Rows("SELECT * FROM PDevices"), "00000026000A0001|38|10|Flow|1|2|5\n");
}

}  // namespace
}  // namespace ventlock::test
