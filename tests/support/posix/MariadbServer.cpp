#include "support/MariadbServer.h"

namespace ventlock::test {

MariadbServer::MariadbServer() {
    const ServerAccount account("mysql");
    const std::string run = folder_ / "run";
    const std::string data = run + "/data";
    account.MakeFolder(run);
    account.MakeFolder(data);
    RunToEnd(account.Running({"mariadb-install-db", "--no-defaults", "--datadir=" + data, "--skip-test-db",
                              "--auth-root-authentication-method=normal"}));
    WriteBytes(folder_ / "first.sql",
               "CREATE USER sa@localhost IDENTIFIED BY '';\n"
               "GRANT ALL ON *.* TO sa@localhost;\n");
    process_ = std::make_unique<ServerProcess>(
        account.Running({"mariadbd", "--no-defaults", "--datadir=" + data, "--socket=" + run + "/socket",
                         "--pid-file=" + run + "/pid", "--skip-networking",
                         "--init-file=" + (folder_ / "first.sql"), "--innodb-flush-log-at-trx-commit=0"}),
        "ready for connections");
}

OdbcFolder::Settings MariadbServer::SettingsFor(const std::string& database) const {
    return {{"SERVER", "localhost"},
            {"SOCKET", folder_ / "run/socket"},
            {"DATABASE", database},
            {"CHARSET", "utf8mb4"}};
}

}  // namespace ventlock::test
