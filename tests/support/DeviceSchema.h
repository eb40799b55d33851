#pragma once

namespace ventlock::test {

class OdbcProbe;

/// The schemas of the device database that the system knows.
enum class DeviceSchema {
    Current,  ///< 1.1
    Old,      ///< 1.0
    None,     ///< a database without any table
};

/// The folder of a database product in the schema files.
enum class Dialect { Sqlite, Postgresql, Mariadb };

/// Makes the tables of a schema and their first rows.
void CreateSchema(OdbcProbe& database, Dialect dialect, DeviceSchema schema);

}  // namespace ventlock::test
