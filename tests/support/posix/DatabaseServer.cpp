#include "support/DatabaseServer.h"

namespace ventlock::test {

ServerDatabase::ServerDatabase(DatabaseServer& server, DeviceSchema schema)
    : server_(server), name_(OdbcFolder::Get().UnusedName()) {
    Connect(server_.FirstDatabase())->Execute("CREATE DATABASE " + name_);
    OdbcFolder::Get().AddDataSource(name_, server_.Driver(), server_.SettingsFor(name_));
    probe_ = Connect(name_);
    CreateSchema(*probe_, server_.OwnDialect(), schema);
}

ServerDatabase::~ServerDatabase() {
    probe_.reset();
    Connect(server_.FirstDatabase())->Execute("DROP DATABASE " + name_);
}

std::unique_ptr<OdbcProbe> ServerDatabase::Connect(const std::string& database) {
    std::string connect = "UID=sa;PWD=;Driver=" + server_.Driver();
    for (const auto& [key, value] : server_.SettingsFor(database))
        connect.append(";").append(key).append("=").append(value);
    return std::make_unique<OdbcProbe>(connect, ProbeText::Wide);
}

}  // namespace ventlock::test
