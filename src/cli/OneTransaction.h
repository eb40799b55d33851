#pragma once

#include "cli/EntryWrite.h"
#include "cli/ExitCode.h"

namespace ventlock {

/// Writes all entries to the database in one transaction and then to the files. The first entry that the
/// database refuses ends it: nothing of any entry is written then, the files are left as they were. When
/// another program was in the way, the whole is started anew.
/// @throws CliError 1 or, when the driver cannot keep other programs out, 3; nothing is written then.
ExitCode RegisterInOneTransaction(RegisterRun& run);

}  // namespace ventlock
