#include "support/DeviceSchema.h"

#include <string>

#include "support/OdbcProbe.h"

namespace ventlock::test {
namespace {

std::string FileOf(Product product) {
    switch (product) {
        case Product::Sqlite:
            return "sqlite.sql";
        case Product::Postgresql:
            return "postgresql.sql";
        case Product::Mariadb:
            return "mariadb.sql";
    }
    return {};
}

}  // namespace

void CreateSchema(OdbcProbe& database, Product product, DeviceSchema schema) {
    if (schema == DeviceSchema::None) return;
    const std::string folder = VENTLOCK_SOURCE_FOLDER "/data/schema/";
    const std::string own = folder + (schema == DeviceSchema::Current ? "current/" : "old/");
    database.RunScript(folder + "common/" + FileOf(product));
    database.RunScript(own + FileOf(product));
    database.RunScript(folder + "reference.sql");
    database.RunScript(own + "version.sql");
}

}  // namespace ventlock::test
