#include "support/PostgresServer.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace ventlock::test {
namespace {

// The folder of the newest installed version's programs.
std::string ProgramFolder() {
    namespace fs = std::filesystem;
    fs::path newest;
    for (const auto& version : fs::directory_iterator("/usr/lib/postgresql")) {
        const fs::path programs = version.path() / "bin";
        if (fs::exists(programs / "postgres") && programs > newest) newest = programs;
    }
    EXPECT_FALSE(newest.empty()) << "no PostgreSQL server is installed";
    return newest.string();
}

}  // namespace

PostgresServer::PostgresServer() {
    const ServerAccount account("postgres");
    const std::string data = folder_ / "data";
    account.MakeFolder(data);
    RunToEnd(account.Running({ProgramFolder() + "/initdb", "--pgdata=" + data, "--username=sa",
                              "--auth=trust", "--encoding=UTF8", "--locale=C", "--no-sync"}));
    process_ = std::make_unique<ServerProcess>(account.Running({ProgramFolder() + "/postgres", "-D", data,
                                                                "-k", data, "-c", "listen_addresses=", "-F"}),
                                               "ready to accept connections");
}

OdbcFolder::Settings PostgresServer::SettingsFor(const std::string& database) const {
    return {{"Servername", folder_ / "data"}, {"Port", "5432"}, {"Database", database}};
}

}  // namespace ventlock::test
