#pragma once

#include <memory>

#include "platform/Database.h"
#include "platform/IEvents.h"

namespace ventlock {

/// The database engine over the host's ODBC driver manager. Calls run on a thread of their own while the
/// caller's thread waits and lets `events` run; no call takes longer than its limit, whatever the driver
/// does. `events` must outlive the engine and all that it opens.
/// @throws RunTimeError 429 when the driver manager cannot be set up.
std::unique_ptr<IDBEngine> CreateOdbcEngine(IEvents& events, DatabaseTimeLimits limits);

}  // namespace ventlock
