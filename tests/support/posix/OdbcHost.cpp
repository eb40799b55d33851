#include "support/OdbcHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/OdbcFolder.h"
#include "support/TempFolder.h"

namespace ventlock::test {

std::string UseOdbcFolder() {
    static const TempFolder folder;
    std::filesystem::create_directory(folder / "system");
    WriteBytes(folder / "system/odbcinst.ini", "[SQLite3]\nDescription=SQLite 3\nDriver=" +
                                                   OdbcFolder::DriverLibrary("libsqlite3odbc.so") + "\n\n");
    WriteBytes(folder / "odbc.ini", "");
    WriteBytes(folder / "system/odbc.ini", "");
    EXPECT_EQ(setenv("ODBCINI", (folder / "odbc.ini").c_str(), 1), 0);
    EXPECT_EQ(setenv("ODBCSYSINI", (folder / "system").c_str(), 1), 0);
    return folder.Path();
}

std::string DriversPath(const std::string& path) {
    return path;
}

std::string LibraryFolder() {
    return "/usr/lib";
}

}  // namespace ventlock::test
