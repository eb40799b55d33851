#include "support/DeviceSchema.h"

#include <string>

#include "support/OdbcProbe.h"

namespace ventlock::test {
namespace {

std::string FileOf(Dialect dialect) {
    switch (dialect) {
        case Dialect::Sqlite:
            return "sqlite.sql";
        case Dialect::Postgresql:
            return "postgresql.sql";
        case Dialect::Mariadb:
            return "mariadb.sql";
    }
    return {};
}

}  // namespace

void CreateSchema(OdbcProbe& database, Dialect dialect, DeviceSchema schema) {
    if (schema == DeviceSchema::None) return;
    const std::string folder = VENTLOCK_SOURCE_FOLDER "/data/schema/";
    const std::string own = folder + (schema == DeviceSchema::Current ? "current/" : "old/");
    database.RunScript(folder + "common/" + FileOf(dialect));
    database.RunScript(own + FileOf(dialect));
    database.RunScript(folder + "reference.sql");
    database.RunScript(own + "version.sql");
}

}  // namespace ventlock::test
