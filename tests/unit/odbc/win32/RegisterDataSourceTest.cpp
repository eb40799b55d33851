#include <gtest/gtest.h>

#include <string>

#include "platform/odbc/DataSources.h"
#include "platform/odbc/Installer.h"
#include "support/OdbcFolder.h"
#include "support/Raised.h"
#include "unit/odbc/ListedSources.h"
#include "unit/odbc/OdbcTest.h"
#include "unit/odbc/win32/DataSourceKey.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

std::string NotListed(const std::string& name) {
    return "[HY000] The driver manager does not list the data source " + name + " that was registered (0)";
}

TEST(RegisterDataSource, TheInstallerKeepsItsDriverAndEverySetting) {
    const std::string name = OdbcFolder::Get().UnusedName() + " Ger\u00E4t \u03A9 \u4E2D";
    odbc::WriteUserDataSource(name, "SQLite3",
                              {{"Database", "C:\\some where\\\u03A9 \u00FC.db"}, {"FKSupport", "1"}});
    EXPECT_EQ(DriverInList(name), "SQLite3");
    EXPECT_EQ(SettingOf(name, "Database"), "C:\\some where\\\u03A9 \u00FC.db");
    EXPECT_EQ(SettingOf(name, "FKSupport"), "1");
    EXPECT_EQ(SettingOf(name, "Timeout"), std::nullopt);

    odbc::WriteUserDataSource(name, "SQLite3", {{"Database", "C:\\other.db"}});
    EXPECT_EQ(SettingOf(name, "Database"), "C:\\other.db");

    EXPECT_EQ(DiagnosticsOf([&] { odbc::RequireListed(name); }), Texts{NotListed(name)});
    EXPECT_EQ(DriverInList(name), std::nullopt) << "its registration is taken back";
    RemoveSettings(name);
}

// The driver manager of the system below Wine does not read what Wine's installer writes.
TEST(RegisterDataSource, OneThatTheDriverManagerDoesNotListFailsAndIsTakenBack) {
    const std::string name = OdbcFolder::Get().UnusedName();
    const auto registering = [&] { RegisterSqliteDataSource(name, "C:\\device.db"); };
    EXPECT_EQ(DescriptionRaisedBy(registering), "ODBC--call failed. " + NotListed(name));
    EXPECT_EQ(NumberRaisedBy(registering), 3146);
    EXPECT_EQ(DriverInList(name), std::nullopt);
    EXPECT_EQ(PlacesOf({name + "|SQLite3|user", name + "|SQLite3|system"}),
              (std::vector<std::ptrdiff_t>{-1, -1}));
    EXPECT_EQ(SettingOf(name, "Database"), "C:\\device.db");
    EXPECT_EQ(SettingOf(name, "FKSupport"), "1");
    EXPECT_EQ(SettingOf(name, "NoCreat"), "1");
    EXPECT_EQ(SettingOf(name, "Timeout"), "10000");
    RemoveSettings(name);
}

TEST(RegisterDataSource, OneThatTheDriverManagerListsIsKept) {
    const std::string name = OdbcFolder::Get().UnusedName();
    OdbcFolder::Get().AddDataSource(name, "SQLite3", {{"Description", "of the user"}});
    EXPECT_EQ(DiagnosticsOf([&] { odbc::RequireListed(name); }), Texts{"none"});
}

TEST(RegisterDataSource, ANameThatTheInstallerRefusesFailsWithItsWords) {
    OdbcFolder::Get();
    for (const std::string name : {"bad;name", "a name of thirty-three characters"}) {
        EXPECT_EQ(DiagnosticsOf([&] { RegisterSqliteDataSource(name, "C:\\x.db"); }),
                  Texts{"[HY000] Invalid DSN (9)"})
            << name;
        EXPECT_EQ(DriverInList(name), std::nullopt);
    }
}

TEST(RegisterDataSource, OneOfWhichASettingCannotBeKeptFailsAndIsTakenBack) {
    const std::string name = OdbcFolder::Get().UnusedName();
    // The installer of Wine gives no words for it.
    const std::string tooLong(20000, 'x');  // the registry takes names of 16383 characters
    EXPECT_EQ(DiagnosticsOf([&] {
                  odbc::WriteUserDataSource(name, "SQLite3", {{"Database", "C:\\device.db"}, {tooLong, "1"}});
              }),
              Texts{"[HY000] The data source could not be registered (0)"});
    EXPECT_EQ(DriverInList(name), std::nullopt);
    RemoveSettings(name);
}

}  // namespace
}  // namespace ventlock::test
