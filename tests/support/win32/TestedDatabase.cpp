#include "support/TestedDatabase.h"

#include "support/SqliteDatabase.h"

namespace ventlock::test {

// Servers are processes of another system, which a Windows program cannot start and end.
Product TestedProduct() {
    return Product::Sqlite;
}

std::unique_ptr<DeviceDatabase> NewDeviceDatabase(DeviceSchema schema, const std::string& dataSource) {
    return std::make_unique<SqliteDatabase>(schema, OdbcFolder::Settings{{"Timeout", "600"}}, dataSource);
}

}  // namespace ventlock::test
