#pragma once

#include <memory>
#include <string>

#include "support/DeviceDatabase.h"
#include "support/DeviceSchema.h"
#include "support/Product.h"

namespace ventlock::test {

/// The database product that this process is to test: what the environment variable VENTLOCK_TEST_DATABASE
/// names, "postgresql" or "mariadb"; SQLite without it.
Product TestedProduct();

/// A device database of that product. Its server is started for the first one and ends with the process;
/// SQLite's driver waits at least 600 ms for a locked file.
/// @param dataSource  the data source's name, omitted: one that no other has had
std::unique_ptr<DeviceDatabase> NewDeviceDatabase(DeviceSchema schema = DeviceSchema::Current,
                                                  const std::string& dataSource = "");

}  // namespace ventlock::test
