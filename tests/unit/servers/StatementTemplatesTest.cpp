#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Raised.h"
#include "unit/servers/ServersTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

class StatementTemplates : public OnServer {
 protected:
    void Run(IConnection& connection, const std::string& statement) {
        EXPECT_EQ(DiagnosticsOf([&] { connection.Execute(statement); }), Texts{"none"}) << statement;
    }
    std::string Read(IConnection& connection, const std::string& query) {
        return RowsOf(*Snapshot(connection, query));
    }

    Engine engine_;
};

TEST_P(StatementTemplates, ReadTheFirstRowsOfTheCurrentSchema) {
    ServerDatabase database(Server());
    const auto connection = engine_.Open(database.ConnectString());
    EXPECT_EQ(Read(*connection, "SELECT *   FROM __version  ORDER BY Major, Minor "),
              "1|1|2026-11-16|Current schema\n");
    EXPECT_EQ(Read(*connection, "SELECT *   FROM Manufacturers "), "");
    EXPECT_EQ(Read(*connection, "select *   from MfrProtocols "), "");
    EXPECT_EQ(Read(*connection, "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId "),
              "0|HART|Digital signal on the 4 to 20 mA loop\n"
              "1|Fieldbus|Digital field bus with function blocks\n"
              "2|Conventional|4 to 20 mA loop or switch without communication\n");
    const auto major =
        Snapshot(*connection,
                 "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  "
                 "ORDER BY MajorDevicecategoryId ");
    EXPECT_EQ(major->Column("DevCat").Integer(), 0);
    EXPECT_EQ(major->Column("DevCatName").Text(), "Not classified");
    EXPECT_EQ(major->RecordCount(), 10U);
    const auto minor =
        Snapshot(*connection,
                 "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  "
                 "ORDER BY MinorDevicecategoryId ");
    EXPECT_EQ(minor->Column("DevCat").Integer(), 0);
    EXPECT_EQ(minor->Column("DevCatName").Text(), "Not classified");
    EXPECT_EQ(minor->RecordCount(), 18U);
    const auto pairs = Snapshot(*connection, "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ");
    EXPECT_EQ(pairs->Column("DeviceCategoryID").Text(), "0");
    EXPECT_EQ(pairs->Column("MajorDevicecategoryId").Text(), "0");
    EXPECT_EQ(pairs->Column("MinorDeviceCategoryId").Text(), "0");
    EXPECT_EQ(pairs->RecordCount(), 18U);
}

TEST_P(StatementTemplates, InsertAndUpdateTheCurrentSchema) {
    ServerDatabase database(Server());
    const auto connection = engine_.Open(database.ConnectString());
    Run(*connection,
        "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, Description) VALUES ('20', "
        "'Drive', '') ");
    Run(*connection,
        "INSERT INTO MinorDeviceCategories        (MinorDeviceCategoryId, Name, Description) VALUES ('30', "
        "'Servo', '') ");
    Run(*connection,
        "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
        "MinorDeviceCategoryId) VALUES ('40', '20', '30') ");
    Run(*connection,
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'A', 'B') ");
    Run(*connection,
        "update Manufacturers    set Name = 'Acme',        Description = 'Makers'  where TAVMfrNameID = 7 ");
    Run(*connection,
        "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (8, 7, 1, "
        "'38') ");
    Run(*connection,
        "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) VALUES "
        "(9, 8, '10', 'T', 'Td') ");
    Run(*connection,
        "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, "
        "Name, Description) VALUES (10, 9, '1', 0, 'R', 'Rd') ");
    Run(*connection,
        "UPDATE DeviceTypes    SET Name = 'Type',        Description = 'Type text'  WHERE TavDevTypeId = 9 ");
    Run(*connection,
        "UPDATE DeviceRevisions    SET DeviceCategoryId = 40,        Name = 'Rev',        Description = 'Rev "
        "text'  WHERE TavDevRevId = 10 ");
    EXPECT_EQ(Read(*connection, "select *   from Manufacturers "), "7|Acme|Makers\n");
    EXPECT_EQ(Read(*connection, "select *   from MfrProtocols "), "8|7|1|38\n");
    EXPECT_EQ(Read(*connection, "select *   from DeviceTypes "), "9|8|10|Type|Type text\n");
    EXPECT_EQ(Read(*connection, "select *   from DeviceRevisions "), "10|9|1|40|Rev|Rev text\n");
    EXPECT_EQ(database.Rows("SELECT * FROM DeviceCategories WHERE DeviceCategoryId = 40"), "40|20|30\n");
    EXPECT_EQ(database.Rows("SELECT * FROM MajorDeviceCategories WHERE MajorDeviceCategoryId = 20"),
              "20|Drive|\n");
    EXPECT_EQ(database.Rows("SELECT * FROM MinorDeviceCategories WHERE MinorDeviceCategoryId = 30"),
              "30|Servo|\n");
    EXPECT_EQ(Snapshot(*connection, "select *   from MfrProtocols ")->Column("MfrProtocolID").Integer(), 8);
}

TEST_P(StatementTemplates, DeleteRowOneOfTheCurrentSchema) {
    ServerDatabase database(Server());
    database.Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B'), (2, 'C', 'D')");
    database.Execute("INSERT INTO MfrProtocols VALUES (1, 1, 0, '38'), (2, 2, 0, '39')");
    database.Execute("INSERT INTO DeviceTypes VALUES (1, 1, '10', 'T', ''), (2, 2, '11', 'U', '')");
    database.Execute("INSERT INTO DeviceRevisions VALUES (1, 1, '1', 0, 'R', ''), (2, 2, '1', 0, 'S', '')");
    const auto connection = engine_.Open(database.ConnectString());
    Run(*connection, "delete   from DeviceRevisions  where TavDevRevId = 1 ");
    Run(*connection, "delete   from DeviceTypes  where TavDevTypeId = 1 ");
    Run(*connection, "delete   from MfrProtocols  where MfrProtocolId = 1 ");
    Run(*connection, "delete   from Manufacturers  where TavMfrNameId = 1 ");
    Run(*connection, "delete   from Manufacturers  where TavMfrNameId = 1 ");
    EXPECT_EQ(database.Rows("SELECT * FROM DeviceRevisions"), "2|2|1|0|S|\n");
    EXPECT_EQ(database.Rows("SELECT * FROM DeviceTypes"), "2|2|11|U|\n");
    EXPECT_EQ(database.Rows("SELECT * FROM MfrProtocols"), "2|2|0|39\n");
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "2|C|D\n");
}

void AddRecord(IConnection& connection, const std::string& table, const std::vector<RecordField>& fields) {
    const auto rows = connection.OpenRecordset(table, RecordsetType::Dynaset);
    rows->AddNew();
    for (const RecordField& field : fields) rows->Set(field.name, field.value);
    rows->Update();
}

TEST_P(StatementTemplates, StoreAndDeleteTheRecordsOfTheOldSchema) {
    ServerDatabase database(Server(), DeviceSchema::Old);
    const auto connection = engine_.Open(database.ConnectString());
    EXPECT_EQ(Read(*connection, "SELECT *   FROM __version  ORDER BY Major, Minor "),
              "1|0|2019-03-04|Old schema\n");
    AddRecord(*connection, "MfrIds", {{"DevMfrId", 38.0}, {"MfrIdName", "O'Neil? Ω"}});
    AddRecord(*connection, "DevTypes", {{"DevMfrId", 38.0}, {"DevType", 10.0}, {"DevTypeDesc", "T"}});
    AddRecord(*connection, "PDevices",
              {{"UDevRevId", "00000026000A0001"},
               {"DevMfrId", 38.0},
               {"DevType", 10.0},
               {"DevName", "T"},
               {"DevRev", 1.0},
               {"DevDDLRev", 2.0},
               {"DevProtocolRev", 5.0}});
    EXPECT_EQ(Read(*connection, "SELECT *   FROM MfrIds "), "38|O'Neil? Ω\n");
    EXPECT_EQ(Read(*connection, "SELECT *   FROM DevTypes "), "38|10|T\n");
    EXPECT_EQ(Read(*connection, "SELECT *   FROM PDevices "), "00000026000A0001|38|10|T|1|2|5\n");

    const auto quoted = [&] {
        connection->Execute("delete   from PDevices  where UDevRevId = \"00000026000A0001\" ");
    };
    if (IsPostgresql()) {
        EXPECT_EQ(NumberRaisedBy(quoted), 3146) << "double quotes are for names here";
        EXPECT_EQ(database.Rows("SELECT UDevRevId FROM PDevices"), "00000026000A0001\n");
        database.Execute("DELETE FROM PDevices");
    } else {
        EXPECT_EQ(NumberRaisedBy(quoted), 0);
        EXPECT_EQ(database.Rows("SELECT UDevRevId FROM PDevices"), "");
    }
    Run(*connection, "delete   from DevTypes  where DevMfrId = 38    and DevType = 10 ");
    Run(*connection, "delete   from MfrIds  where DevMfrId = 38 ");
    EXPECT_EQ(database.Rows("SELECT * FROM DevTypes"), "");
    EXPECT_EQ(database.Rows("SELECT * FROM MfrIds"), "");
}

INSTANTIATE_TEST_SUITE_P(On, StatementTemplates, ::testing::Values(Product::Postgresql, Product::Mariadb),
                         SuffixOf);

}  // namespace
}  // namespace ventlock::test
