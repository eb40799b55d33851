#include "support/SqliteDatabase.h"

#include <memory>
#include <sstream>

namespace ventlock::test {

SqliteDatabase::SqliteDatabase(DeviceSchema schema, const OdbcFolder::Settings& settings,
                               const std::string& name)
    : DeviceDatabase(name.empty() ? OdbcFolder::Get().UnusedName() : name) {
    // No test takes the machine's power away, so that nothing need wait for the disk.
    OdbcFolder::Settings all{{"Database", DriversFile()}, {"FKSupport", "1"}, {"SyncPragma", "OFF"}};
    all.insert(all.end(), settings.begin(), settings.end());
    OdbcFolder::Get().AddDataSource(Dsn(), OdbcFolder::DriverLibrary("libsqlite3odbc.so"), all);
    auto probe = std::make_unique<OdbcProbe>("DSN=" + Dsn(), ProbeText::Bytes);
    probe->Execute("BEGIN");
    CreateSchema(*probe, Product::Sqlite, schema);
    probe->Execute("COMMIT");
    Use(std::move(probe));
}

void SqliteDatabase::DropTable(const std::string& table) {
    Execute("PRAGMA foreign_keys=OFF");
    Execute("DROP TABLE " + table);
    Execute("PRAGMA foreign_keys=ON");
}

// A table's columns cannot be changed here: it is made anew.
void SqliteDatabase::MakeText(const std::string& table, const std::string& column) {
    std::istringstream names(Rows("SELECT name FROM pragma_table_info('" + table + "')"));
    std::string columns;
    for (std::string name; std::getline(names, name);) {
        columns += columns.empty() ? "" : ", ";
        columns += name == column ? "CAST(" + name + " AS TEXT) AS " + name : name;
    }
    Execute("CREATE TABLE loose AS SELECT " + columns + " FROM " + table);
    DropTable(table);
    Execute("ALTER TABLE loose RENAME TO " + table);
}

}  // namespace ventlock::test
