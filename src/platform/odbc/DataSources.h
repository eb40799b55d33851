#pragma once

#include <string>
#include <vector>

namespace ventlock {

/// A data source that the driver manager knows.
struct DataSource {
    std::string name;
    std::string driver;   ///< description of its driver
    bool system = false;  ///< for all users of the machine
};

/// All data sources, those of the user first, each list in the driver manager's order.
/// @throws RunTimeError 3146, 429.
std::vector<DataSource> ListDataSources();

/// Names of the installed drivers. @throws RunTimeError 3146, 429.
std::vector<std::string> ListDrivers();

/// Registers or changes a data source of the user that opens the SQLite database `file` (an absolute path),
/// through the installer library. The first installed driver for SQLite 3 is taken.
/// @throws RunTimeError 3146 with the installer's own messages, or naming the missing driver.
void RegisterSqliteDataSource(const std::string& name, const std::string& file);

}  // namespace ventlock
