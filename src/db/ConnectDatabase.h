#pragma once

#include <cstdint>
#include <memory>

#include "core/AppObjects.h"
#include "db/clsTavDB.h"
#include "platform/IEvents.h"

namespace ventlock {

/// Connects to the data source of the shared "Settings" through the shared "Connection" and checks the
/// schema. `tavDB` is created when missing. `schemaVersion` is set only when the facade's own check has
/// passed.
/// @return True when connected to a schema that can be written; False otherwise, the reason is logged.
/// @throws RunTimeError what a missing shared object raises: this procedure has no guard of its own.
bool ConnectDatabase(const AppObjects& oAppObjects, IEvents& events, std::unique_ptr<clsTavDB>& tavDB,
                     std::int16_t& schemaVersion);

}  // namespace ventlock
