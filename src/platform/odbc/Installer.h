#pragma once

#include <string>
#include <utility>
#include <vector>

namespace ventlock::odbc {

/// Registers or changes a data source of the user with the host's installer library. Settings of the data
/// source that are not named stay as they are.
/// @throws RunTimeError 3146 with the installer's own messages.
void WriteUserDataSource(const std::string& name, const std::string& driver,
                         const std::vector<std::pair<std::string, std::string>>& settings);

}  // namespace ventlock::odbc
