#pragma once

#include <string>

namespace ventlock::test {

/// Makes the driver manager of this process look into a folder of the tests: "odbc.ini" there holds the data
/// sources of the user, "system" the drivers and the data sources of the machine. SQLite's driver is known, a
/// data source is not. To be called once, before the driver manager is used.
/// @return the folder's path
std::string UseOdbcFolder();

/// The path by which drivers know the file that this process knows as `path`.
std::string DriversPath(const std::string& path);

/// Where drivers are installed, themselves or in folders of their own.
std::string LibraryFolder();

}  // namespace ventlock::test
