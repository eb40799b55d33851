#include "support/TestedDatabase.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

#include "support/MariadbServer.h"
#include "support/PostgresServer.h"
#include "support/SqliteDatabase.h"
#include "support/TestedServer.h"

namespace ventlock::test {
namespace {

std::unique_ptr<DatabaseServer> StartServer() {
    if (TestedProduct() == Product::Postgresql) return std::make_unique<PostgresServer>();
    return std::make_unique<MariadbServer>();
}

}  // namespace

Product TestedProduct() {
    const char* const value = std::getenv("VENTLOCK_TEST_DATABASE");
    const std::string_view name = value == nullptr ? "" : value;
    if (name == "postgresql") return Product::Postgresql;
    if (name == "mariadb") return Product::Mariadb;
    EXPECT_EQ(name, "") << "VENTLOCK_TEST_DATABASE names no product";
    return Product::Sqlite;
}

DatabaseServer& TestedServer() {
    static const std::unique_ptr<DatabaseServer> server = StartServer();
    return *server;
}

std::unique_ptr<DeviceDatabase> NewDeviceDatabase(DeviceSchema schema, const std::string& dataSource) {
    if (TestedProduct() != Product::Sqlite)
        return std::make_unique<ServerDatabase>(TestedServer(), schema, dataSource);
    return std::make_unique<SqliteDatabase>(schema, OdbcFolder::Settings{{"Timeout", "600"}}, dataSource);
}

}  // namespace ventlock::test
