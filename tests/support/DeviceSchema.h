#pragma once

#include "support/Product.h"

namespace ventlock::test {

class OdbcProbe;

/// The schemas of the device database that the system knows.
enum class DeviceSchema {
    Current,  ///< 1.1
    Old,      ///< 1.0
    None,     ///< a database without any table
};

/// Makes the tables of a schema and their first rows, as the product takes them.
void CreateSchema(OdbcProbe& database, Product product, DeviceSchema schema);

}  // namespace ventlock::test
