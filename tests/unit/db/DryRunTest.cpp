#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/DatabaseOf.h"
#include "db/clsTavDB.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Every row of every table that an entry can reach.
std::string Everything(DbWorld& world, DeviceSchema schema) {
    std::vector<std::string> tables{"__version", "DeviceProtocols", "MajorDeviceCategories",
                                    "MinorDeviceCategories", "DeviceCategories"};
    if (schema == DeviceSchema::Old)
        tables.insert(tables.end(), {"MfrIds", "DevTypes", "PDevices"});
    else
        tables.insert(tables.end(), {"Manufacturers", "MfrProtocols", "DeviceTypes", "DeviceRevisions"});
    std::string rows;
    for (const std::string& table : tables)
        rows += table + "\n" + world.Rows("SELECT * FROM " + table + " ORDER BY 1, 2");
    return rows;
}

struct Entry {
    std::string manufacturer;
    std::string manufacturerName;
    std::string type;
    std::string major;
    std::string minor;
};

/// Writes one entry through a facade of its own, as a batch does.
bool Write(DbWorld& world, const Entry& entry) {
    clsTavDB tavDB(world.Events());
    if (!tavDB.Init(world.Objects(), 2)) return false;
    clsManufacturer& manufacturer = tavDB.Manufacturer();
    clsDevice& device = tavDB.Device();
    manufacturer.ManID = device.ManID = entry.manufacturer;
    manufacturer.Name = entry.manufacturerName;
    manufacturer.Desc = entry.manufacturerName + ", Inc (all of it)";
    manufacturer.ProtID = "1";
    device.DevID = entry.type;
    device.DevName = "Flow";
    device.DevDesc = "";
    device.DevRev = "01";
    device.RevName = "R1";
    device.RevDesc = "First";
    device.DDRev = "01";
    device.ProtRev = "05";
    if (tavDB.Version == 5)
        device.CatID =
            tavDB.GetDevCatID(tavDB.GetCategoryID(entry.major, 8), tavDB.GetCategoryID(entry.minor, 9));
    return tavDB.Update();
}

/// What a batch sent, bound values of new records included.
std::vector<std::string> Sent(DbWorld& world) {
    std::vector<std::string> sent;
    for (const JournalEntry& entry : world.Journal().Entries()) {
        std::string text = entry.statement;
        for (const RecordField& field : entry.values) {
            const auto* number = std::get_if<double>(&field.value);
            text += " " + (number != nullptr ? std::to_string(static_cast<int>(*number))
                                             : std::get<std::string>(field.value));
        }
        sent.push_back(text);
    }
    return sent;
}

TEST(DryRun, ABatchOfTwoNewEntriesSendsTheStatementsOfItsRealRunAndChangesNothing) {
    const std::vector<Entry> batch{{"26", "Acme", "0A", "Torque", "Shaft"},
                                   {"27", "Best", "0B", "TORQUE", "Wheel"}};
    DbWorld real;
    DbWorld dry(DeviceSchema::Current, StatementMode::DryRun);
    const std::string before = Everything(dry, DeviceSchema::Current);
    for (const Entry& entry : batch) {
        EXPECT_TRUE(Write(real, entry));
        EXPECT_TRUE(Write(dry, entry));
    }
    EXPECT_EQ(Sent(dry), Sent(real));
    const auto sent = Sent(dry);
    EXPECT_THAT(sent, testing::IsSupersetOf({
                          std::string("INSERT INTO DeviceCategories        (DeviceCategoryId, "
                                      "MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES ('19', '10', "
                                      "'19') "),
                          std::string("INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) "
                                      "VALUES (2, 'Best', 'Best, Inc (all of it)') "),
                          std::string("INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, "
                                      "DeviceRevision, DeviceCategoryId, Name, Description) VALUES (2, 2, "
                                      "'1', 19, 'R1', 'First') "),
                      }))
        << "the second entry is numbered behind the first";
    EXPECT_EQ(Everything(dry, DeviceSchema::Current), before);
    EXPECT_NE(Everything(real, DeviceSchema::Current), before);
    EXPECT_THAT(dry.Entries(), IsEmpty());
}

TEST(DryRun, TheSameEntryTwiceIsFoundTheSecondTime) {
    const Entry entry{"26", "Acme", "0A", "Torque", "Shaft"};
    DbWorld real;
    DbWorld dry(DeviceSchema::Current, StatementMode::DryRun);
    for (DbWorld* world : {&real, &dry}) {
        EXPECT_TRUE(Write(*world, entry));
        world->Statements();
        EXPECT_TRUE(Write(*world, entry));
    }
    const std::vector<std::string> second = dry.Statements();
    EXPECT_EQ(second, real.Statements());
    EXPECT_THAT(
        second,
        ElementsAre(
            "SELECT *   FROM __version  ORDER BY Major, Minor ",
            "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  ORDER "
            "BY MinorDevicecategoryId ",
            "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  ORDER "
            "BY MajorDevicecategoryId ",
            "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ", "select *   from MfrProtocols ",
            "update Manufacturers    set Name = 'Acme',        Description = 'Acme, Inc (all of it)'  where "
            "TAVMfrNameID = 1 ",
            "select *   from DeviceTypes ",
            "UPDATE DeviceTypes    SET Name = 'Flow',        Description = ''  WHERE TavDevTypeId = 1 ",
            "select *   from DeviceRevisions ",
            "UPDATE DeviceRevisions    SET DeviceCategoryId = 18,        Name = 'R1',        Description = "
            "'First'  WHERE TavDevRevId = 1 "));
}

TEST(DryRun, ABatchOnTheOldSchemaSendsTheRecordsOfItsRealRunAndChangesNothing) {
    DbWorld real(DeviceSchema::Old);
    DbWorld dry(DeviceSchema::Old, StatementMode::DryRun);
    const std::string before = Everything(dry, DeviceSchema::Old);
    for (DbWorld* world : {&real, &dry}) {
        EXPECT_TRUE(Write(*world, {"26", "Acme", "0A", "", ""}));
        EXPECT_TRUE(Write(*world, {"27", "O'Neil", "0B", "", ""}));
    }
    EXPECT_EQ(Sent(dry), Sent(real));
    EXPECT_THAT(
        Sent(dry),
        ElementsAre("SELECT *   FROM __version  ORDER BY Major, Minor ",
                    "INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?) 38 Acme",
                    "INSERT INTO DevTypes (DevMfrId, DevType, DevTypeDesc) VALUES (?, ?, ?) 38 10 Flow",
                    "INSERT INTO PDevices (UDevRevId, DevMfrId, DevType, DevName, DevRev, DevDDLRev, "
                    "DevProtocolRev) VALUES (?, ?, ?, ?, ?, ?, ?) 00000026000A0001 38 10 Flow 1 1 5",
                    "SELECT *   FROM __version  ORDER BY Major, Minor ",
                    "INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?) 39 O'Neil",
                    "INSERT INTO DevTypes (DevMfrId, DevType, DevTypeDesc) VALUES (?, ?, ?) 39 11 Flow",
                    "INSERT INTO PDevices (UDevRevId, DevMfrId, DevType, DevName, DevRev, DevDDLRev, "
                    "DevProtocolRev) VALUES (?, ?, ?, ?, ?, ?, ?) 00000027000B0001 39 11 Flow 1 1 5"));
    EXPECT_EQ(Everything(dry, DeviceSchema::Old), before);
    EXPECT_EQ(real.Rows("SELECT DevMfrId, MfrIdName FROM MfrIds"), "38|Acme\n39|O'Neil\n");
}

TEST(DryRun, NewRowsFollowTheDatabasesOwnAndKeepTheirTexts) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    world.Execute("INSERT INTO Manufacturers VALUES (3, 'Stored', 'Row')");
    DatabaseOf(&world.Objects())
        .Execute(
            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (4, ' A, (B) ', "
            "'') ");
    const auto rows = OpenSnapshot(&world.Objects(), "SELECT *   FROM Manufacturers ");
    EXPECT_EQ(rows->RecordCount(), 2U);
    EXPECT_EQ(rows->Column("Name").Text(), "Stored");
    rows->MoveNext();
    EXPECT_EQ(rows->Column("TavMfrNameId").Integer(), 4);
    EXPECT_EQ(rows->Column("Name").Text(), " A, (B) ");
    EXPECT_EQ(rows->Column("Description").Text(), "");
    EXPECT_FALSE(rows->Column("Description").IsNull());
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "3|Stored|Row\n");
}

TEST(DryRun, AColumnThatTheNewRowDoesNotNameIsNull) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    DatabaseOf(&world.Objects()).Execute("INSERT INTO manufacturers (tavmfrnameid) VALUES (4) ");
    const auto rows = OpenSnapshot(&world.Objects(), "SELECT *   FROM Manufacturers ");
    ASSERT_EQ(rows->RecordCount(), 1U) << "names of tables and columns ignore case";
    EXPECT_EQ(rows->Column("TavMfrNameId").Integer(), 4);
    EXPECT_TRUE(rows->Column("Name").IsNull());
}

TEST(DryRun, ANewCategoryIsFoundUnderItsColumnsOtherNames) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(tavDB.GetCategoryID("Torque", 8), "10");
    EXPECT_EQ(tavDB.GetCategoryID("torque", 8), "10");
    EXPECT_EQ(tavDB.GetCategoryID("Speed", 8), "11");
    EXPECT_EQ(world.Rows("SELECT MAX(MajorDeviceCategoryId) FROM MajorDeviceCategories"), "9\n");
}

TEST(DryRun, UpdatesAndDeletesReachNoRow) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    world.Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', '')");
    IConnection& connection = DatabaseOf(&world.Objects());
    connection.Execute(
        "update Manufacturers    set Name = 'X',        Description = ''  where TAVMfrNameID = 1 ");
    connection.Execute("delete   from Manufacturers  where TavMfrNameId = 1 ");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|\n");
    EXPECT_EQ(OpenSnapshot(&world.Objects(), "SELECT *   FROM Manufacturers ")->Column("Name").Text(),
              "Acme");
    EXPECT_THAT(world.Statements(),
                ElementsAre("update Manufacturers    set Name = 'X',        Description = ''  where "
                            "TAVMfrNameID = 1 ",
                            "delete   from Manufacturers  where TavMfrNameId = 1 ",
                            "SELECT *   FROM Manufacturers "));
}

TEST(DryRun, AStatementWithABrokenTextIsSentAndAddsNoRow) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    for (const char* broken :
         {"INSERT INTO Manufacturers (TavMfrNameId, Name) VALUES (4, 'O'Neil') ",
          "INSERT INTO Manufacturers (TavMfrNameId, Name) VALUES (4) ",
          "INSERT INTO Manufacturers (TavMfrNameId, Name) VALUES (4, 'x ",
          "INSERT INTO Manufacturers (TavMfrNameId, Name", "INSERT INTO Manufacturers "}) {
        DatabaseOf(&world.Objects()).Execute(broken);
        EXPECT_EQ(OpenSnapshot(&world.Objects(), "SELECT *   FROM Manufacturers ")->RecordCount(), 0U)
            << broken;
    }
}

TEST(DryRun, ADoubledApostropheIsOneInTheNewRow) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    DatabaseOf(&world.Objects())
        .Execute("INSERT INTO Manufacturers (TavMfrNameId, Name) VALUES (4, 'O''Neil''') ");
    EXPECT_EQ(OpenSnapshot(&world.Objects(), "SELECT *   FROM Manufacturers ")->Column("Name").Text(),
              "O'Neil'");
}

TEST(DryRun, AFailingReadFailsAsInTheRealRun) {
    DbWorld world(DeviceSchema::None, StatementMode::DryRun);
    clsTavDB tavDB(world.Events());
    EXPECT_FALSE(tavDB.Init(world.Objects(), 2));
    EXPECT_THAT(world.Entries(), ElementsAre(DatabaseEntry("DBlvi-00"), kNoSupport));
}

TEST(DryRun, TellsTheFactsOfTheConnectionBelow) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    EXPECT_EQ(DatabaseOf(&world.Objects()).Facts().product, NameOf(TestedProduct()));
}

}  // namespace
}  // namespace ventlock::test
