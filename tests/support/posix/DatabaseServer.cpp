#include "support/DatabaseServer.h"

namespace ventlock::test {

std::unique_ptr<OdbcProbe> DatabaseServer::Connect(const std::string& database) const {
    std::string connect = "UID=sa;PWD=;Driver=" + Driver();
    for (const auto& [key, value] : SettingsFor(database))
        connect.append(";").append(key).append("=").append(value);
    return std::make_unique<OdbcProbe>(connect, ProbeText::Wide);
}

ServerDatabase::ServerDatabase(DatabaseServer& server, DeviceSchema schema, const std::string& dataSource)
    : ServerDatabase(server, schema, dataSource, OdbcFolder::Get().UnusedName()) {}

ServerDatabase::ServerDatabase(DatabaseServer& server, DeviceSchema schema, const std::string& dataSource,
                               const std::string& name)
    : DeviceDatabase(dataSource.empty() ? name : dataSource), server_(server), name_(name) {
    server_.Create(name_, schema);
    OdbcFolder::Get().AddDataSource(Dsn(), server_.Driver(), server_.SettingsFor(name_));
    Reconnect();
}

ServerDatabase::~ServerDatabase() {
    Use(nullptr);
    server_.Drop(name_);
}

}  // namespace ventlock::test
