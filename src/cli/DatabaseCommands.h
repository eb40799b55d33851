#pragma once

#include <string>

#include "cli/Console.h"
#include "cli/Services.h"

namespace ventlock {

struct CreateDatabaseOptions {
    std::string file;  ///< absolute; must not exist
    bool isOldSchema = false;
    std::string dataSource;  ///< registered for the user; "" registers none
};

/// Makes an SQLite device database with its schema and reference rows and registers a data source for it.
/// @throws CliError 2 when the file or the data source exists, 1 when it cannot be made, 3 without a driver.
ExitCode CreateDatabase(Services& services, const CreateDatabaseOptions& options, Console& console);

/// Schema code, row counts and what the connection tells of itself. @throws CliError 3.
ExitCode ShowDatabase(Services& services, Console& console);

/// Rows of one kind: protocols, major-categories, minor-categories, manufacturers or devices.
/// @throws CliError 3.
ExitCode ListRows(Services& services, const std::string& kind, Console& console);

/// The data sources that the driver manager knows, with their drivers.
ExitCode ListSources(Console& console);

}  // namespace ventlock
