#pragma once

#include <string>
#include <utility>
#include <vector>

namespace ventlock::odbc {

/// Registers or changes a data source of the user with the host's installer library. Whether settings of the
/// data source that are not named stay is up to the library. On Windows one that could not be given all of
/// its settings is registered no more, even if it was before.
/// @throws RunTimeError 3146 with the installer's own messages.
void WriteUserDataSource(const std::string& name, const std::string& driver,
                         const std::vector<std::pair<std::string, std::string>>& settings);

/// Takes the registration of a data source of the user back when the driver manager does not list it, on a
/// host where a new data source is listed at once; elsewhere it does nothing.
/// @throws RunTimeError 3146 when it was not listed.
void RequireListed(const std::string& name);

}  // namespace ventlock::odbc
