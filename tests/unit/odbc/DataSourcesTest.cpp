#include "platform/odbc/DataSources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/OdbcProbe.h"
#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

std::string Line(const DataSource& source) {
    return source.name + "|" + source.driver + "|" + (source.system ? "system" : "user");
}

// Places of these lines in the list, -1 for one that is not in it.
std::vector<std::ptrdiff_t> PlacesOf(const Texts& lines) {
    Texts listed;
    for (const DataSource& source : ListDataSources()) listed.push_back(Line(source));
    std::vector<std::ptrdiff_t> places;
    for (const std::string& line : lines) {
        const auto found = std::find(listed.begin(), listed.end(), line);
        places.push_back(found == listed.end() ? -1 : found - listed.begin());
    }
    return places;
}

TEST(DataSources, ThoseOfTheUserAreListedBeforeThoseOfTheMachine) {
    OdbcFolder& folder = OdbcFolder::Get();
    const std::string ofUser = folder.UnusedName();
    const std::string ofMachine = folder.UnusedName();
    folder.AddSystemDataSource(ofMachine, "SQLite3", {{"Description", "for all"}});
    folder.AddDataSource(ofUser, "SQLite3", {{"Description", "for one"}});
    const auto places = PlacesOf({ofUser + "|SQLite3|user", ofMachine + "|SQLite3|system"});
    EXPECT_NE(places[0], -1);
    EXPECT_LT(places[0], places[1]);
}

TEST(DataSources, InstalledDriversAreListed) {
    OdbcFolder::Get();
    EXPECT_EQ(ListDrivers(), Texts{"SQLite3"});
}

TEST(DataSources, ARegisteredOneIsListedAndOpensItsFile) {
    SqliteDatabase database;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, database.File());
    EXPECT_NE(PlacesOf({name + "|SQLite3|user"})[0], -1);
    Engine engine;
    const auto connection = engine.Open("ODBC;UID=sa;PWD=;DSN=" + name);
    connection->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')");
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "1|A|B\n");
}

TEST(DataSources, ARegisteredOneChecksForeignKeys) {
    SqliteDatabase database;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, database.File());
    Engine engine;
    const auto connection = engine.Open("ODBC;UID=sa;PWD=;DSN=" + name);
    EXPECT_EQ(DiagnosticsOf([&] { connection->Execute("INSERT INTO MfrProtocols VALUES (1, 9, 1, '38')"); }),
              Texts{"[HY000] [SQLite]FOREIGN KEY constraint failed (19) (19)"});
}

TEST(DataSources, ARegisteredOneIsWrittenIntoTheUsersFile) {
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, "/some where/Ω ü.db");
    const std::string file = ReadBytes(OdbcFolder::Get().UserFile());
    const std::string section = file.substr(file.find("[" + name + "]"));
    EXPECT_EQ(section.substr(0, section.find("\n\n") + 1),
              "[" + name +
                  "]\nDriver=SQLite3\nDatabase=/some where/Ω ü.db\n"
                  "FKSupport=1\nTimeout=10000\n");
}

TEST(DataSources, AFileNameOutsideAsciiIsOpened) {
    TempFolder folder;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, folder / "Gerät Ω 中.db");
    Engine engine;
    engine.Open("ODBC;UID=sa;PWD=;DSN=" + name)->Execute("CREATE TABLE t (x INTEGER)");
    EXPECT_EQ(folder.Listing(), "Gerät Ω 中.db");
}

TEST(DataSources, RegisteringAgainChangesTheFile) {
    SqliteDatabase database;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, "/nowhere.db");
    RegisterSqliteDataSource(name, database.File());
    const std::string file = ReadBytes(OdbcFolder::Get().UserFile());
    EXPECT_EQ(file.find("/nowhere.db"), std::string::npos);
    EXPECT_NE(file.find("[" + name + "]\nDriver=SQLite3\nDatabase=" + database.File() + "\n"),
              std::string::npos);
}

TEST(DataSources, ANameThatTheInstallerRefusesFailsWithItsWords) {
    OdbcFolder::Get();
    EXPECT_EQ(DiagnosticsOf([] { RegisterSqliteDataSource("bad;name", "/x.db"); }),
              Texts{"[HY000] Invalid DSN (9)"});
}

TEST(DataSources, ANameThatCouldNotBeFoundAgainIsRefused) {
    OdbcFolder::Get();
    EXPECT_EQ(DiagnosticsOf([] { RegisterSqliteDataSource("Gerät", "/x.db"); }),
              Texts{"[HY000] The driver manager finds no data source named Gerät (0)"});
}

TEST(DataSources, WithoutADriverForSqliteNoneIsRegistered) {
    OdbcFolder& folder = OdbcFolder::Get();
    const std::string drivers = ReadBytes(folder.DriverFile());
    WriteBytes(folder.DriverFile(), "[Other]\nDriver=/nonexistent.so\n");
    const Texts texts = DiagnosticsOf([] { RegisterSqliteDataSource("x", "/x.db"); });
    const Texts listed = ListDrivers();
    WriteBytes(folder.DriverFile(), drivers);
    EXPECT_EQ(texts, Texts{"[IM003] No driver for SQLite 3 is installed (0)"});
    EXPECT_EQ(listed, Texts{"Other"});
}

}  // namespace
}  // namespace ventlock::test
