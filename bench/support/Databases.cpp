#include "support/Databases.h"

#include <filesystem>
#include <stdexcept>

#include "support/DeviceRows.h"
#include "support/DeviceSchema.h"
#include "support/Files.h"
#include "support/OdbcFolder.h"
#include "support/OdbcProbe.h"
#include "support/PostgresServer.h"

namespace ventlock::bench {
namespace {

std::string SqliteDriver() {
    return test::OdbcFolder::DriverLibrary("libsqlite3odbc.so");
}

void Fill(test::OdbcProbe& database, test::Product product, std::size_t devices) {
    database.Execute("BEGIN");
    test::CreateSchema(database, product, test::DeviceSchema::Current);
    for (const std::string& insert : DeviceInserts(devices)) database.Execute(insert);
    database.Execute("COMMIT");
}

}  // namespace

Databases::Databases(const Workplace& place) : place_(place) {
    AddDataSource(kSqlite, "Driver=" + SqliteDriver() + "\nDatabase=" + place.Target("device.db") +
                               "\nFKSupport=1\nTimeout=600\n");
}

Databases::~Databases() = default;

void Databases::AddDataSource(const std::string& name, const std::string& settings) {
    dataSources_ += "[" + name + "]\n" + settings + "\n";
    StoreBytes(place_.Path("odbc.ini"), dataSources_);
}

std::unique_ptr<test::OdbcProbe> Databases::OpenSqlite(const std::string& path) const {
    return std::make_unique<test::OdbcProbe>("Driver=" + SqliteDriver() + ";Database=" + path,
                                             test::ProbeText::Bytes);
}

void Databases::StoreSqlite(std::size_t devices) {
    std::string& bytes = made_[devices];
    if (bytes.empty()) {
        const std::string path = place_.Path("made.db");
        Fill(*OpenSqlite(path), test::Product::Sqlite, devices);
        bytes = ReadBytes(path);
        std::filesystem::remove(path);
    }
    StoreBytes(place_.Target("device.db"), bytes);
}

const std::string& Databases::ReadOnlyPostgres(std::size_t devices) {
    std::string& name = served_[devices];
    if (name.empty()) {
        if (!server_) server_ = std::make_unique<test::PostgresServer>();
        name = "rows" + std::to_string(devices);
        server_->Create(name, test::DeviceSchema::None);
        const auto database = server_->Connect(name);
        Fill(*database, test::Product::Postgresql, devices);
        database->Execute("VACUUM ANALYZE");  // the first reader would pay for it
        std::string settings = "Driver=" + server_->Driver() + "\nUID=sa\n";
        for (const auto& [key, value] : server_->SettingsFor(name)) settings += key + "=" + value + "\n";
        AddDataSource(name, settings);
    }
    return name;
}

void Databases::RequireSqlite(std::size_t devices) const {
    const auto database = OpenSqlite(place_.Target("device.db"));
    const std::vector<std::string> expected = ExpectedRows(1, devices);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (database->Rows(DeviceQueries()[i]) != expected[i])
            throw std::runtime_error("other rows than expected: " + DeviceQueries()[i]);
    }
}

}  // namespace ventlock::bench
