#pragma once

#include "support/Bench.h"
#include "support/Databases.h"

namespace ventlock::bench {

/// Each adds one work with all its sizes and candidates.
void AddUpsertPyx(Bench& bench);          ///< one entry into "Pyx.ini" in process
void AddRegisterIni(Bench& bench);        ///< the same as a whole program
void AddRegisterDDInstall(Bench& bench);  ///< one entry into "Ddinstal.ini" as a whole program
void AddVersion(Bench& bench);            ///< the start of the command line
void AddWindowStart(Bench& bench);        ///< the start of the window, and what it has in memory then

/// The works of the device database; `databases` must outlive the bench.
void AddReadRows(Bench& bench, Databases& databases);    ///< the rows of a table, used by name
void AddRegisterDb(Bench& bench, Databases& databases);  ///< new devices as a whole program

}  // namespace ventlock::bench
