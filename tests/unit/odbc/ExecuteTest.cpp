#include <gtest/gtest.h>

#include <string>

#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

class Execute : public ::testing::Test {
 protected:
    SqliteDatabase database_;
    Engine engine_;
    std::unique_ptr<IConnection> connection_ = engine_.Open(database_.ConnectString());
};

TEST_F(Execute, ChangesRows) {
    connection_->Execute(
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'A', 'B') ");
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "7|A|B\n");
    connection_->Execute(
        "update Manufacturers    set Name = 'C',        Description = 'D'  where TAVMfrNameID = 7 ");
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "7|C|D\n");
    connection_->Execute("delete   from Manufacturers  where TavMfrNameId = 7 ");
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "");
}

TEST_F(Execute, AStatementThatChangesNoRowIsSuccess) {
    connection_->Execute(
        "update Manufacturers    set Name = 'A',        Description = 'B'  where TAVMfrNameID = 7 ");
    connection_->Execute("delete   from Manufacturers  where TavMfrNameId = 1 ");
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "");
}

TEST_F(Execute, ABareMarkerFailsAndChangesNothing) {
    database_.Execute("INSERT INTO Manufacturers VALUES (7, 'old', 'old')");
    const auto update = [&] {
        connection_->Execute(
            "update Manufacturers    set Name = 'ADB',        Description = '7'  where TAVMfrNameID = ? ");
    };
    EXPECT_EQ(DescriptionRaisedBy(update),
              "ODBC--call failed. [HY000] [SQLite]unbound parameters in query (-1)");
    EXPECT_EQ(NumberRaisedBy(update), 3146);
    EXPECT_EQ(NumberRaisedBy([&] { connection_->Execute("INSERT INTO Manufacturers VALUES (8, ?, 'x')"); }),
              3146);
    EXPECT_EQ(NumberRaisedBy([&] { Snapshot(*connection_, "SELECT * FROM Manufacturers WHERE Name = ?"); }),
              3146);
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "7|old|old\n");
}

TEST_F(Execute, AQuotedMarkerIsData) {
    connection_->Execute(
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'AD?', '?') ");
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "7|AD?|?\n");
}

TEST_F(Execute, AnApostropheInAValueFailsAndWritesNoRow) {
    const auto insert = [&] {
        connection_->Execute(
            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'O'Neil', 'D') ");
    };
    EXPECT_EQ(DescriptionRaisedBy(insert),
              "ODBC--call failed. [HY000] [SQLite]near \"Neil\": syntax error (1) (1)");
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "");
}

TEST_F(Execute, CharactersOutsideTheCodePageReachTheDatabaseUnchanged) {
    connection_->Execute("INSERT INTO Manufacturers VALUES (1, 'Müller Ω 中 \U0001F527', 'Жук')");
    EXPECT_EQ(database_.Rows("SELECT Name, Description, length(Name) FROM Manufacturers"),
              "Müller Ω 中 \U0001F527|Жук|12\n");
}

TEST_F(Execute, AMissingTableFailsWithTheDriversDiagnostics) {
    EXPECT_EQ(DiagnosticsOf([&] { connection_->Execute("delete   from MfrIds  where DevMfrId = 38 "); }),
              Texts{"[HY000] [SQLite]no such table: MfrIds (1) (1)"});
}

TEST_F(Execute, ADuplicateKeyFails) {
    const std::string insert =
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'A', 'B') ";
    connection_->Execute(insert);
    EXPECT_EQ(DiagnosticsOf([&] { connection_->Execute(insert); }),
              Texts{"[HY000] [SQLite]UNIQUE constraint failed: Manufacturers.TavMfrNameId (19) (19)"});
}

TEST_F(Execute, AMissingForeignKeyFails) {
    EXPECT_EQ(DiagnosticsOf([&] {
                  connection_->Execute(
                      "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) "
                      "VALUES (1, 9, 1, '38') ");
              }),
              Texts{"[HY000] [SQLite]FOREIGN KEY constraint failed (19) (19)"});
}

TEST_F(Execute, ATextPastItsLimitFails) {
    const std::string most(64, 'm');
    connection_->Execute("INSERT INTO Manufacturers VALUES (1, '" + most + "', 'B')");
    EXPECT_EQ(NumberRaisedBy([&] {
                  connection_->Execute("INSERT INTO Manufacturers VALUES (2, '" + most + "m', 'B')");
              }),
              3146);
    EXPECT_EQ(database_.Rows("SELECT TavMfrNameId FROM Manufacturers"), "1\n");
}

}  // namespace
}  // namespace ventlock::test
