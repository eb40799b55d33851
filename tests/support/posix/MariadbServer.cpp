#include "support/MariadbServer.h"

namespace ventlock::test {
namespace {

const ServerAccount kAccount("mysql");

}  // namespace

MariadbServer::MariadbServer() {
    const std::string run = folder_ / "run";
    kAccount.MakeFolder(run);
    kAccount.MakeFolder(run + "/data");
    RunToEnd(kAccount.Running({"mariadb-install-db", "--no-defaults", "--datadir=" + run + "/data",
                               "--skip-test-db", "--auth-root-authentication-method=normal"}));
    WriteBytes(folder_ / "first.sql",
               "CREATE USER IF NOT EXISTS sa@localhost IDENTIFIED BY '';\n"
               "GRANT ALL ON *.* TO sa@localhost;\n");
    Start();
}

void MariadbServer::Start() {
    const std::string run = folder_ / "run";
    process_ = std::make_unique<ServerProcess>(
        kAccount.Running({"mariadbd", "--no-defaults", "--datadir=" + run + "/data",
                          "--socket=" + run + "/socket", "--pid-file=" + run + "/pid", "--skip-networking",
                          "--init-file=" + (folder_ / "first.sql"), "--innodb-flush-log-at-trx-commit=2",
                          "--innodb-doublewrite=0", "--sync-frm=0"}),
        "ready for connections");
    first_ = Connect("mysql");
}

void MariadbServer::Kill() {
    first_.reset();
    process_->End(SIGKILL);
}

OdbcFolder::Settings MariadbServer::SettingsFor(const std::string& database) const {
    return {{"SERVER", "localhost"},
            {"SOCKET", folder_ / "run/socket"},
            {"DATABASE", database},
            {"CHARSET", "utf8mb4"}};
}

void MariadbServer::Create(const std::string& database, DeviceSchema schema) {
    first_->Execute("CREATE DATABASE " + database + " CHARACTER SET utf8mb4 COLLATE utf8mb4_bin");
    CreateSchema(*Connect(database), OwnProduct(), schema);
}

void MariadbServer::Drop(const std::string& database) {
    first_->Execute("DROP DATABASE " + database);
}

void MariadbServer::DropTable(DeviceDatabase& database, const std::string& table) const {
    database.Execute("SET foreign_key_checks = 0");
    database.Execute("DROP TABLE " + table);
    database.Execute("SET foreign_key_checks = 1");
}

void MariadbServer::MakeText(DeviceDatabase& database, const std::string& table,
                             const std::string& column) const {
    database.Execute("ALTER TABLE " + table + " MODIFY " + column + " VARCHAR(64)");
}

void MariadbServer::Lock(DeviceDatabase& database, const std::string& table) const {
    database.Execute("LOCK TABLES " + table + " WRITE");
}

void MariadbServer::Unlock(DeviceDatabase& database) const {
    database.Execute("UNLOCK TABLES");
}

// The counter is the whole server's, but always the latest; the table of transactions is a copy that is made
// anew only when nobody has asked for a while.
bool MariadbServer::HasWaiter(DeviceDatabase& database) const {
    return database.Rows("SHOW GLOBAL STATUS LIKE 'Innodb_row_lock_current_waits'") !=
           "Innodb_row_lock_current_waits|0\n";
}

}  // namespace ventlock::test
