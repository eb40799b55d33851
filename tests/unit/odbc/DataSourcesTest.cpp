#include "platform/odbc/DataSources.h"

#include <gtest/gtest.h>

#include <string>

#include "support/OdbcFolder.h"
#include "support/TempFolder.h"
#include "unit/odbc/ListedSources.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

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
