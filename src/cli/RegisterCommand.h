#pragma once

#include "cli/Console.h"
#include "cli/PlanOptions.h"
#include "cli/Services.h"

namespace ventlock {

struct RegisterOptions : PlanOptions {
    bool isDryRun = false;          ///< show statements and diffs; the services write nothing then
    bool isOneTransaction = false;  ///< the database takes all entries or none; the files follow then
};

/// Registers every entry of the files in the targets, in this order: database, "Pyx.ini", "Ddinstal.ini".
/// Everything that can be seen beforehand (entries, reachable targets, read-only files) is looked at before
/// the first write; an entry whose target fails is not written to its later targets, the entries after it
/// are. In one transaction nothing is written when the database refuses one of the entries.
/// @throws CliError 2 or 3, nothing written then.
ExitCode RunRegister(Services& services, const RegisterOptions& options, Console& console);

}  // namespace ventlock
