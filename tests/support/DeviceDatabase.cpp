#include "support/DeviceDatabase.h"

namespace ventlock::test {

// Columns on the outer side of a join may be null in every product, whatever the table says.
void DeviceDatabase::Loosen(const std::string& table) {
    Execute("CREATE TABLE loose AS SELECT " + table + ".* FROM (SELECT 1 AS one) AS single LEFT JOIN " +
            table + " ON 1 = 0 LIMIT 0");
    Execute("INSERT INTO loose SELECT * FROM " + table);
    DropTable(table);
    Execute("ALTER TABLE loose RENAME TO " + table);
}

}  // namespace ventlock::test
