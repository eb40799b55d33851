#include <gtest/gtest.h>

#include <string>

#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

// Rows 1 to `count` of one column "n".
std::string Counting(int count) {
    return "WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c WHERE n < " +
           std::to_string(count) + ") SELECT n FROM c";
}

TEST(Snapshot, ReadsEveryRowInTheOrderOfTheQuery) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ");
    EXPECT_EQ(RowsOf(*rows),
              "0|HART|Digital signal on the 4 to 20 mA loop\n"
              "1|Fieldbus|Digital field bus with function blocks\n"
              "2|Conventional|4 to 20 mA loop or switch without communication\n");
}

TEST(Snapshot, KeepsNullApartFromEmptyText) {
    SqliteDatabase database;
    database.Execute("INSERT INTO Manufacturers VALUES (1, NULL, '')");
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "SELECT * FROM Manufacturers");
    EXPECT_TRUE(rows->Column("Name").IsNull());
    EXPECT_FALSE(rows->Column("Description").IsNull());
    EXPECT_EQ(rows->Column("Description").Text(), "");
    EXPECT_EQ(RowsOf(*rows), "1|NULL|\n");
}

TEST(Snapshot, KnowsTheTrueNumberOfRowsBeyondOneBlock) {
    SqliteDatabase database(DeviceSchema::None);
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    std::string expected;
    for (int i = 1; i <= 1000; ++i) expected += std::to_string(i) + '\n';
    const auto rows = Snapshot(*connection, Counting(1000));
    EXPECT_EQ(rows->RecordCount(), 1000U);
    EXPECT_EQ(RowsOf(*rows), expected);
    EXPECT_EQ(Snapshot(*connection, Counting(256))->RecordCount(), 256U);
    EXPECT_EQ(Snapshot(*connection, Counting(257))->RecordCount(), 257U);
}

TEST(Snapshot, ReadsALongTextWhole) {
    SqliteDatabase database(DeviceSchema::None);
    database.Execute("CREATE TABLE notes (id INTEGER, note TEXT)");
    database.Execute("INSERT INTO notes VALUES (1, replace(hex(zeroblob(25000)), '00', 'aüΩ中'))");
    database.Execute("INSERT INTO notes VALUES (2, NULL)");
    database.Execute("INSERT INTO notes VALUES (3, '')");
    std::string expected;
    for (int i = 0; i < 25000; ++i) expected += "aüΩ中";
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "SELECT note FROM notes ORDER BY id");
    EXPECT_TRUE(RowsOf(*rows) == expected + "\nNULL\n\n");  // too long to be printed
}

TEST(Snapshot, ACellLongerThanItsColumnIsSaidToBeIsNotCut) {
    SqliteDatabase database(DeviceSchema::None);
    database.Execute("CREATE TABLE t (id INTEGER, name VARCHAR(5))");
    database.Execute("INSERT INTO t VALUES (1, 'short')");
    const std::string longName(3000, 'x');
    database.Execute("INSERT INTO t VALUES (2, '" + longName + "')");
    database.Execute("INSERT INTO t VALUES (3, 'last')");
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "SELECT id, name FROM t ORDER BY id");
    EXPECT_EQ(RowsOf(*rows), "1|short\n2|" + longName + "\n3|last\n");
}

TEST(Snapshot, ACellOfExactlyTheSaidLengthIsReadFromItsBlock) {
    SqliteDatabase database(DeviceSchema::None);
    database.Execute("CREATE TABLE t (name VARCHAR(3))");
    database.Execute("INSERT INTO t VALUES ('abc')");
    database.Execute("INSERT INTO t VALUES ('\U0001F527\U0001F527\U0001F527')");
    database.Execute("INSERT INTO t VALUES ('abcdef')");
    database.Execute("INSERT INTO t VALUES ('abcdefg')");
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT name FROM t")),
              "abc\n\U0001F527\U0001F527\U0001F527\nabcdef\nabcdefg\n");
}

TEST(Snapshot, CharactersOutsideTheCodePageArriveUnchanged) {
    SqliteDatabase database;
    database.Execute("INSERT INTO Manufacturers VALUES (1, 'Müller Ω 中 \U0001F527', 'Жук')");
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(
        *connection, "SELECT Name, Description FROM Manufacturers WHERE Name = 'Müller Ω 中 \U0001F527'");
    EXPECT_EQ(RowsOf(*rows), "Müller Ω 中 \U0001F527|Жук\n");
}

TEST(Snapshot, BlanksOfATextAreKept) {
    SqliteDatabase database;
    database.Execute("INSERT INTO Manufacturers VALUES (1, ' a  ', '  ')");
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT Name, Description FROM Manufacturers")), " a  |  \n");
}

TEST(Snapshot, ASecondOneCanBeOpenedWhileTheFirstIsWalked) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    std::string seen;
    const auto outer = Snapshot(*connection, "SELECT ProtocolId FROM DeviceProtocols ORDER BY ProtocolId");
    for (; !outer->AtEnd(); outer->MoveNext()) {
        const auto inner = Snapshot(*connection, "SELECT Name FROM DeviceProtocols WHERE ProtocolId = " +
                                                     outer->Column("ProtocolId").Text());
        seen += inner->Column("Name").Text() + ";";
    }
    EXPECT_EQ(seen, "HART;Fieldbus;Conventional;");
}

TEST(Snapshot, OutlivesItsConnectionAndTheRowsInTheDatabase) {
    SqliteDatabase database;
    Engine engine;
    auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "SELECT Name FROM DeviceProtocols ORDER BY ProtocolId");
    connection->Execute("DELETE FROM DeviceProtocols");
    connection.reset();
    EXPECT_EQ(RowsOf(*rows), "HART\nFieldbus\nConventional\n");
}

TEST(Snapshot, ColumnsAreFoundWithoutRegardToCase) {
    SqliteDatabase database;
    database.Execute("INSERT INTO Manufacturers VALUES (4, 'A', 'B')");
    database.Execute("INSERT INTO MfrProtocols VALUES (2, 4, 1, '38')");
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "select *   from MfrProtocols ");
    EXPECT_EQ(rows->Column("MfrProtocolID").Integer(), 2);
    EXPECT_EQ(rows->Column("TAVMfrNameID").Integer(), 4);
    EXPECT_EQ(rows->Column("mfrid").Text(), "38");
}

TEST(Snapshot, AnAliasIsTheColumnsName) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows =
        Snapshot(*connection,
                 "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  "
                 "ORDER BY MajorDevicecategoryId ");
    EXPECT_EQ(rows->Columns(), (std::vector<std::string>{"DevCat", "DevCatName"}));
    EXPECT_EQ(rows->Column("DEVCATNAME").Text(), "Not classified");
    EXPECT_EQ(NumberRaisedBy([&] { (void)rows->Column("MajorDeviceCategoryId"); }), 3265);
}

TEST(Snapshot, ALongColumnNameIsReadWhole) {
    SqliteDatabase database(DeviceSchema::None);
    const std::string name(300, 'n');
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    EXPECT_EQ(Snapshot(*connection, "SELECT 1 AS " + name)->Columns(), std::vector<std::string>{name});
}

TEST(Snapshot, WithoutRowsIsAtItsEndAndKnowsItsColumns) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "SELECT *   FROM Manufacturers ");
    EXPECT_TRUE(rows->AtEnd());
    EXPECT_EQ(rows->RecordCount(), 0U);
    EXPECT_EQ(rows->Columns(), (std::vector<std::string>{"TavMfrNameId", "Name", "Description"}));
    EXPECT_EQ(NumberRaisedBy([&] { (void)rows->Column("Name"); }), 3021);
}

TEST(Snapshot, OfAStatementWithoutColumnsHasNeither) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "INSERT INTO Manufacturers VALUES (1, 'A', 'B')");
    EXPECT_TRUE(rows->AtEnd());
    EXPECT_EQ(rows->RecordCount(), 0U);
    EXPECT_TRUE(rows->Columns().empty());
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "1|A|B\n");
}

TEST(Snapshot, OfAMissingTableFailsWithTheDriversDiagnostics) {
    SqliteDatabase database(DeviceSchema::None);
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto open = [&] { Snapshot(*connection, "SELECT *   FROM __version  ORDER BY Major, Minor "); };
    EXPECT_EQ(DescriptionRaisedBy(open),
              "ODBC--call failed. [HY000] [SQLite]no such table: __version (1) (1)");
    EXPECT_EQ(NumberRaisedBy(open), 3146);
}

TEST(Snapshot, TakesNoNewRecord) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    const auto rows = Snapshot(*connection, "SELECT * FROM Manufacturers");
    EXPECT_EQ(NumberRaisedBy([&] { rows->AddNew(); }), 3420);
}

}  // namespace
}  // namespace ventlock::test
