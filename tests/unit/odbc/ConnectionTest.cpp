#include <gtest/gtest.h>

#include <string>

#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

TEST(OdbcConnection, OpensTheDataSourceOfTheConnectString) {
    SqliteDatabase first;
    SqliteDatabase second(DeviceSchema::Old);
    Engine engine;
    const auto toFirst = engine.Open(first.ConnectString());
    const auto toSecond = engine.Open(second.ConnectString());
    EXPECT_EQ(RowsOf(*Snapshot(*toFirst, "SELECT Major, Minor FROM __version")), "1|1\n");
    EXPECT_EQ(RowsOf(*Snapshot(*toSecond, "SELECT Major, Minor FROM __version")), "1|0\n");
}

TEST(OdbcConnection, TheLeadingOdbcIsNotNeeded) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open("DSN=" + database.Dsn());
    EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT Major FROM __version")), "1\n");
}

TEST(OdbcConnection, AnEmptyDataSourceNameIsRefusedBeforeTheDriverManager) {
    SqliteDatabase byDefault(DeviceSchema::Current, {}, "DEFAULT");
    Engine engine;
    EXPECT_EQ(DiagnosticsOf([&] { engine.Open("ODBC;UID=sa;PWD=;DSN="); }),
              Texts{"[IM002] No data source was named (0)"});
    EXPECT_EQ(NumberRaisedBy([&] { engine.Open("ODBC;UID=sa;PWD=;DSN="); }), 3146);
    EXPECT_EQ(engine.events.yields, 0);
}

TEST(OdbcConnection, AnUnknownDataSourceFailsWithTheDriverManagersDiagnostics) {
    OdbcFolder::Get();
    Engine engine;
    const auto open = [&] { engine.Open("ODBC;UID=sa;PWD=;DSN=no such source"); };
    EXPECT_EQ(DescriptionRaisedBy(open),
              "ODBC--call failed. [IM002] [unixODBC][Driver Manager]Data source name not found and no "
              "default driver "
              "specified (0)");
    EXPECT_EQ(NumberRaisedBy(open), 3146);
}

TEST(OdbcConnection, AMissingDriverLibraryFailsWithItsName) {
    const std::string name = OdbcFolder::Get().UnusedName();
    OdbcFolder::Get().AddDataSource(name, "/nonexistent/libdriver.so", {});
    Engine engine;
    EXPECT_EQ(DiagnosticsOf([&] { engine.Open("ODBC;UID=sa;PWD=;DSN=" + name); }),
              Texts{"[01000] [unixODBC][Driver Manager]Can't open lib '/nonexistent/libdriver.so' : file not "
                    "found (0)"});
}

TEST(OdbcConnection, EveryStatementIsCommittedByItself) {
    SqliteDatabase database;
    Engine engine;
    {
        const auto connection = engine.Open(database.ConnectString());
        connection->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')");
        EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "1|A|B\n");
    }
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "1|A|B\n");
}

TEST(OdbcConnection, OutlivesItsEngine) {
    SqliteDatabase database;
    FakeEvents events;
    std::unique_ptr<IConnection> connection;
    {
        const auto engine = CreateOdbcEngine(events, {});
        const auto workspace = engine->CreateWorkspace("", "sa", "", WorkspaceType::Odbc);
        connection = workspace->OpenConnection("", std::nullopt, false, database.ConnectString());
    }
    EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT Major FROM __version")), "1\n");
}

TEST(OdbcConnection, TellsItsFacts) {
    SqliteDatabase database;
    Engine engine;
    const ConnectionFacts facts = engine.Open(database.ConnectString())->Facts();
    EXPECT_EQ(facts.driver, "sqlite3odbc.so");
    EXPECT_EQ(facts.product, "SQLite");
    EXPECT_EQ(facts.productVersion.substr(0, 2), "3.");
    EXPECT_EQ(facts.driverVersion.substr(0, 2), "0.");
    EXPECT_EQ(facts.driverManager.substr(0, 3), "03.");
    EXPECT_EQ(facts.database, database.DriversFile());
}

TEST(OdbcConnection, AFailureThatBreaksNothingLeavesTheLinkUsable) {
    SqliteDatabase database;
    Engine engine;
    const auto connection = engine.Open(database.ConnectString());
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("nonsense"); }), 3146);
    EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT Major FROM __version")), "1\n");
}

}  // namespace
}  // namespace ventlock::test
