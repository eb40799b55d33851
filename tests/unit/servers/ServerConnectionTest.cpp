#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "support/Raised.h"
#include "unit/servers/ServersTest.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;
using Texts = std::vector<std::string>;

class ServerConnection : public OnServer {
 protected:
    ServerDatabase database_{Server()};
    Engine engine_;
    std::unique_ptr<IConnection> connection_ = engine_.Open(database_.ConnectString());
};

TEST_P(ServerConnection, CharactersOutsideTheCodePageSurviveBothWays) {
    connection_->Execute("INSERT INTO Manufacturers VALUES (1, 'Müller Ω 中', 'Жук \U0001F527')");
    EXPECT_EQ(database_.Rows("SELECT Name, Description, char_length(Name) FROM Manufacturers"),
              "Müller Ω 中|Жук \U0001F527|10\n");
    EXPECT_EQ(RowsOf(*Snapshot(*connection_,
                               "SELECT Name, Description FROM Manufacturers WHERE Name = 'Müller Ω 中'")),
              "Müller Ω 中|Жук \U0001F527\n");
}

TEST_P(ServerConnection, UniqueAndForeignKeysAreKept) {
    connection_->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')");
    connection_->Execute("INSERT INTO MfrProtocols VALUES (1, 1, 0, '38')");
    for (const std::string statement : {
             "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'A', 'B') ",
             "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (2, 1, "
             "0, '38') ",
             "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (2, 9, "
             "0, '38') ",
             "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (2, 1, "
             "9, '38') ",
             "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
             "MinorDeviceCategoryId) VALUES "
             "('99', '0', '0') ",
             "delete   from Manufacturers  where TavMfrNameId = 1 ",
         }) {
        const Texts texts = DiagnosticsOf([&] { connection_->Execute(statement); });
        const std::string state = texts.front().substr(0, 7);
        EXPECT_TRUE(state == "[23503]" || state == "[23505]" || state == "[23000]")
            << statement << texts.front();
    }
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "1|A|B\n");
    EXPECT_EQ(database_.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");
    EXPECT_EQ(database_.Rows("SELECT count(*) FROM DeviceCategories"), "18\n");
}

TEST_P(ServerConnection, ABareMarkerAndAnApostropheFail) {
    connection_->Execute("INSERT INTO Manufacturers VALUES (7, 'old', 'old')");
    EXPECT_EQ(NumberRaisedBy([&] {
                  connection_->Execute(
                      "update Manufacturers    set Name = 'ADB',        Description = '7'  where "
                      "TAVMfrNameID = ? ");
              }),
              3146);
    EXPECT_EQ(NumberRaisedBy([&] {
                  connection_->Execute(
                      "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (8, "
                      "'O'Neil', 'D') ");
              }),
              3146);
    EXPECT_EQ(
        NumberRaisedBy([&] {
            connection_->Execute(
                "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (8, ?, 'D') ");
        }),
        3146);
    connection_->Execute(
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (9, 'ADB', '?') ");
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers ORDER BY TavMfrNameId"), "7|old|old\n9|ADB|?\n");
}

TEST_P(ServerConnection, ATextPastItsLimitFails) {
    std::string most;
    for (int i = 0; i < 64; ++i) most += "Ω";
    connection_->Execute("INSERT INTO Manufacturers VALUES (1, '" + most + "', 'B')");
    EXPECT_EQ(NumberRaisedBy([&] {
                  connection_->Execute("INSERT INTO Manufacturers VALUES (2, '" + most + "Ω', 'B')");
              }),
              3146);
    EXPECT_EQ(RowsOf(*Snapshot(*connection_, "SELECT TavMfrNameId, Name FROM Manufacturers")),
              "1|" + most + "\n");
}

TEST_P(ServerConnection, SnapshotsHoldEveryRowNullAndLongTexts) {
    std::string expected;
    std::string values;
    for (int i = 1; i <= 1000; ++i) {
        values += (i > 1 ? ", (" : "(") + std::to_string(i) + ", 'Ω" + std::to_string(i) + " ', NULL)";
        expected += std::to_string(i) + "|Ω" + std::to_string(i) + " |NULL\n";
    }
    database_.Execute("INSERT INTO Manufacturers VALUES " + values);
    const auto rows = Snapshot(*connection_, "SELECT * FROM Manufacturers ORDER BY TavMfrNameId");
    EXPECT_EQ(rows->RecordCount(), 1000U);
    EXPECT_EQ(RowsOf(*rows), expected);

    std::string longText;
    for (int i = 0; i < 25000; ++i) longText += "aüΩ中";
    database_.Execute(IsPostgresql()
                          ? "CREATE TABLE notes (id INTEGER, note TEXT)"
                          : "CREATE TABLE notes (id INTEGER, note LONGTEXT CHARACTER SET utf8mb4)");
    database_.Execute("INSERT INTO notes VALUES (1, repeat('aüΩ中', 25000)), (2, NULL), (3, '')");
    // Too long to be printed.
    EXPECT_TRUE(RowsOf(*Snapshot(*connection_, "SELECT note FROM notes ORDER BY id")) ==
                longText + "\nNULL\n\n");
}

TEST_P(ServerConnection, AQueryThatTakesTooLongIsCancelledAndTheLinkStaysUsable) {
    Engine engine({milliseconds(10000), milliseconds(500), milliseconds(10000)});
    const auto connection = engine.Open(database_.ConnectString());
    const std::string query =
        IsPostgresql() ? "SELECT pg_sleep(60)" : "SELECT count(*) FROM (SELECT SLEEP(60)) s";
    const auto start = std::chrono::steady_clock::now();
    const Texts texts = DiagnosticsOf([&] { Snapshot(*connection, query); });
    EXPECT_EQ(texts.front(), "[HYT00] The database did not answer within 0.5 s (0)");
    EXPECT_EQ(texts.size(), 2U) << "the driver's own words follow";
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_GE(engine.events.yields, 10);
    EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT Major FROM __version")), "1\n");
}

TEST_P(ServerConnection, AConnectionThatTheServerEndsIsDead) {
    EXPECT_EQ(NumberRaisedBy([&] {
                  const auto rows =
                      Snapshot(*connection_, IsPostgresql() ? "SELECT pg_terminate_backend(pg_backend_pid())"
                                                            : "KILL CONNECTION_ID()");
                  Snapshot(*connection_, "SELECT Major FROM __version");
              }),
              3146);
    EXPECT_EQ(NumberRaisedBy([&] { Snapshot(*connection_, "SELECT Major FROM __version"); }), 3420);
}

TEST_P(ServerConnection, AMissingTableTellsItsName) {
    const Texts texts = DiagnosticsOf([&] { Snapshot(*connection_, "SELECT *   FROM MfrIds "); });
    EXPECT_EQ(texts.front().substr(0, 7), IsPostgresql() ? "[42P01]" : "[42S02]");
    EXPECT_NE(texts.front().find(IsPostgresql() ? "mfrids" : "MfrIds"), std::string::npos) << texts.front();
}

TEST_P(ServerConnection, TellsItsFacts) {
    const ConnectionFacts facts = connection_->Facts();
    EXPECT_EQ(facts.product, IsPostgresql() ? "PostgreSQL" : "MariaDB");
    EXPECT_EQ(facts.driver, IsPostgresql() ? "psqlodbcw.so" : "libmaodbc.so");
    EXPECT_EQ("ODBC;UID=sa;PWD=;DSN=" + facts.database, database_.ConnectString());
}

INSTANTIATE_TEST_SUITE_P(On, ServerConnection, ::testing::Values(Product::Postgresql, Product::Mariadb),
                         SuffixOf);

}  // namespace
}  // namespace ventlock::test
