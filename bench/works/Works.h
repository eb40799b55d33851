#pragma once

#include "support/Bench.h"
#include "support/Databases.h"
#include "works/WindowWorld.h"
#include "works/WineWorld.h"

namespace ventlock::bench {

/// Each adds one work with all its sizes and candidates.
void AddUpsertPyx(Bench& bench);          ///< one entry into "Pyx.ini" in process
void AddRegisterIni(Bench& bench);        ///< the same as a whole program
void AddRegisterDDInstall(Bench& bench);  ///< one entry into "Ddinstal.ini" as a whole program
void AddVersion(Bench& bench);            ///< the start of the command line

/// The works of the device database; `databases` must outlive the bench.
void AddReadRows(Bench& bench, Databases& databases);    ///< the rows of a table, used by name
void AddRegisterDb(Bench& bench, Databases& databases);  ///< new devices as a whole program

/// The works of the window; worlds and databases must outlive the bench.
void AddWindowStart(Bench& bench, WindowWorld& world);  ///< its start, and what it has in memory then
void AddWineStart(Bench& bench, WineWorld& world);      ///< the same of the Windows programs
void AddKeyPress(Bench& bench, WindowWorld& world);     ///< a key in one of its fields
void AddWindowWrite(Bench& bench, WindowWorld& world,
                    Databases& databases);  ///< "Write to Database" with full tables

}  // namespace ventlock::bench
