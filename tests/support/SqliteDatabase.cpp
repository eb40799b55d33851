#include "support/SqliteDatabase.h"

namespace ventlock::test {

SqliteDatabase::SqliteDatabase(DeviceSchema schema, const OdbcFolder::Settings& settings,
                               const std::string& name)
    : dsn_(name.empty() ? OdbcFolder::Get().UnusedName() : name) {
    OdbcFolder::Settings all{{"Database", DriversFile()}, {"FKSupport", "1"}};
    all.insert(all.end(), settings.begin(), settings.end());
    OdbcFolder::Get().AddDataSource(dsn_, OdbcFolder::DriverLibrary("libsqlite3odbc.so"), all);
    probe_ = std::make_unique<OdbcProbe>("DSN=" + dsn_, ProbeText::Bytes);
    probe_->Execute("BEGIN");
    CreateSchema(*probe_, Dialect::Sqlite, schema);
    probe_->Execute("COMMIT");
}

}  // namespace ventlock::test
