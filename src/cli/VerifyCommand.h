#pragma once

#include "cli/Console.h"
#include "cli/PlanOptions.h"
#include "cli/Services.h"

namespace ventlock {

/// Compares every entry with what the targets hold now and tells every difference as data. Nothing is written
/// and no lock is taken; the services must be ones that only note statements.
/// @return 1 when something differs or cannot be compared
/// @throws CliError 2 for wrong entries, 1 or 3 for a target that cannot be read.
ExitCode RunVerify(Services& services, const PlanOptions& options, Console& console);

}  // namespace ventlock
