#include "platform/odbc/DataSources.h"

#include <gtest/gtest.h>

#include <string>

#include "support/SqliteDatabase.h"
#include "unit/odbc/ListedSources.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

TEST(RegisterDataSource, ANewOneIsListedAndOpensItsFile) {
    SqliteDatabase database;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, database.File());
    EXPECT_NE(PlacesOf({name + "|SQLite3|user"})[0], -1);
    Engine engine;
    const auto connection = engine.Open("ODBC;UID=sa;PWD=;DSN=" + name);
    connection->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')");
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "1|A|B\n");
}

TEST(RegisterDataSource, ANewOneChecksForeignKeys) {
    SqliteDatabase database;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, database.File());
    Engine engine;
    const auto connection = engine.Open("ODBC;UID=sa;PWD=;DSN=" + name);
    EXPECT_EQ(DiagnosticsOf([&] { connection->Execute("INSERT INTO MfrProtocols VALUES (1, 9, 1, '38')"); }),
              Texts{"[HY000] [SQLite]FOREIGN KEY constraint failed (19) (19)"});
}

TEST(RegisterDataSource, ANewOneIsWrittenIntoTheUsersFile) {
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, "/some where/Ω ü.db");
    const std::string file = ReadBytes(OdbcFolder::Get().UserFile());
    const std::string section = file.substr(file.find("[" + name + "]"));
    EXPECT_EQ(section.substr(0, section.find("\n\n") + 1),
              "[" + name +
                  "]\nDriver=SQLite3\nDatabase=/some where/Ω ü.db\n"
                  "FKSupport=1\nNoCreat=1\nTimeout=10000\n");
}

TEST(RegisterDataSource, AFileNameOutsideAsciiIsOpened) {
    TempFolder folder;
    const std::string name = OdbcFolder::Get().UnusedName();
    WriteBytes(folder / "Gerät Ω 中.db", "");
    RegisterSqliteDataSource(name, folder / "Gerät Ω 中.db");
    Engine engine;
    engine.Open("ODBC;UID=sa;PWD=;DSN=" + name)->Execute("CREATE TABLE t (x INTEGER)");
    EXPECT_EQ(folder.Listing(), "Gerät Ω 中.db");
}

TEST(RegisterDataSource, AFileThatIsGoneIsNotMadeAnew) {
    TempFolder folder;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, folder / "device.db");
    Engine engine;
    EXPECT_THAT(DiagnosticsOf([&] { engine.Open("ODBC;UID=sa;PWD=;DSN=" + name); }),
                testing::ElementsAre(testing::HasSubstr("[SQLite]connect failed")));
    EXPECT_EQ(folder.Listing(), "");
}

TEST(RegisterDataSource, RegisteringAgainChangesTheFile) {
    SqliteDatabase database;
    const std::string name = OdbcFolder::Get().UnusedName();
    RegisterSqliteDataSource(name, "/nowhere.db");
    RegisterSqliteDataSource(name, database.File());
    const std::string file = ReadBytes(OdbcFolder::Get().UserFile());
    EXPECT_EQ(file.find("/nowhere.db"), std::string::npos);
    EXPECT_NE(file.find("[" + name + "]\nDriver=SQLite3\nDatabase=" + database.File() + "\n"),
              std::string::npos);
}

TEST(RegisterDataSource, ANameThatTheInstallerRefusesFailsWithItsWords) {
    OdbcFolder::Get();
    EXPECT_EQ(DiagnosticsOf([] { RegisterSqliteDataSource("bad;name", "/x.db"); }),
              Texts{"[HY000] Invalid DSN (9)"});
}

TEST(RegisterDataSource, ANameThatCouldNotBeFoundAgainIsRefused) {
    OdbcFolder::Get();
    EXPECT_EQ(DiagnosticsOf([] { RegisterSqliteDataSource("Gerät", "/x.db"); }),
              Texts{"[HY000] The driver manager finds no data source named Gerät (0)"});
}

}  // namespace
}  // namespace ventlock::test
