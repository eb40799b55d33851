#pragma once

#include <cstdint>
#include <vector>

#include "base/DeviceTexts.h"
#include "platform/Database.h"

namespace ventlock {

/// Every device revision that the database holds, in the order of their numbers. A column that is NULL, or an
/// id that is no number, is left out.
/// @throws RunTimeError 3146 when a table cannot be read.
std::vector<DeviceTexts> StoredDevices(IConnection& connection, std::int16_t schemaVersion);

}  // namespace ventlock
