#include "support/DatabaseServer.h"

#include <gtest/gtest.h>

#include <chrono>

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

void ServerDatabase::AwaitWaiter() {
    constexpr std::chrono::seconds kPatience{30};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!server_.HasWaiter(*this)) {
        if (std::chrono::steady_clock::now() < end) continue;
        ADD_FAILURE() << "no statement waits for another connection";
        return;
    }
}

ServerDatabase::~ServerDatabase() {
    Use(nullptr);
    server_.Drop(name_);
}

}  // namespace ventlock::test
