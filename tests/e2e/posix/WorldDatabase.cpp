#include "e2e/WorldDatabase.h"

#include <filesystem>

#include "support/TestedServer.h"

namespace ventlock::test {
namespace {

constexpr const char* kDataSource = "PYX";

std::string SqliteDriver() {
    return OdbcFolder::DriverLibrary("libsqlite3odbc.so");
}

}  // namespace

WorldDatabase::WorldDatabase(const World& world, DeviceSchema schema) : world_(world) {
    if (TestedProduct() == Product::Sqlite) {
        world.MakeDatabase(schema == DeviceSchema::Current ? "current" : "old", kDataSource);
        return;
    }
    served_ = std::make_unique<ServerDatabase>(TestedServer(), schema);
    world.AddDataSource(kDataSource, TestedServer().Driver(), TestedServer().SettingsFor(served_->OwnName()));
}

std::string WorldDatabase::Driver() const {
    const std::string path = served_ ? TestedServer().Driver() : SqliteDriver();
    return std::filesystem::path(path).filename().string();
}

std::unique_ptr<OdbcProbe> WorldDatabase::Connect() const {
    if (served_) return served_->Connect();
    return std::make_unique<OdbcProbe>("Driver=" + SqliteDriver() + ";Database=" + world_.Path("device.db"),
                                       ProbeText::Bytes);
}

}  // namespace ventlock::test
