#include "support/PostgresServer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

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

const ServerAccount kAccount("postgres");

}  // namespace

PostgresServer::PostgresServer() {
    const std::string data = folder_ / "data";
    kAccount.MakeFolder(data);
    RunToEnd(kAccount.Running({ProgramFolder() + "/initdb", "--pgdata=" + data, "--username=sa",
                               "--auth=trust", "--encoding=UTF8", "--locale=C", "--no-sync"}));
    Start();
}

void PostgresServer::Start() {
    const std::string data = folder_ / "data";
    process_ = std::make_unique<ServerProcess>(
        kAccount.Running({ProgramFolder() + "/postgres", "-D", data, "-k", data, "-c",
                          "listen_addresses=", "-F", "-c", "full_page_writes=off", "-c", "autovacuum=off"}),
        "ready to accept connections");
    first_ = Connect("postgres");
}

void PostgresServer::Kill() {
    // Each connection has a process of its own. The first process stands still until they are gone, because
    // it would have them tell their clients, and ends all others in its turn.
    std::istringstream processes(
        first_->Rows("SELECT pid FROM pg_stat_activity WHERE backend_type = 'client backend'"));
    process_->Send(SIGSTOP);
    for (pid_t process = 0; processes >> process;) EXPECT_EQ(kill(process, SIGKILL), 0);
    first_.reset();
    process_->Send(SIGQUIT);
    process_->End(SIGCONT);
}

OdbcFolder::Settings PostgresServer::SettingsFor(const std::string& database) const {
    return {{"Servername", folder_ / "data"}, {"Port", "5432"}, {"Database", database}};
}

std::string PostgresServer::TemplateOf(DeviceSchema schema) {
    if (schema == DeviceSchema::None) return "template1";
    std::string name = schema == DeviceSchema::Current ? "current" : "old";
    if (templates_.insert(name).second) {
        first_->Execute("CREATE DATABASE " + name);
        CreateSchema(*Connect(name), OwnProduct(), schema);
    }
    return name;
}

void PostgresServer::Create(const std::string& database, DeviceSchema schema) {
    DropUnused();
    first_->Execute("CREATE DATABASE " + database + " TEMPLATE " + TemplateOf(schema));
}

// Connections that were just closed have not ended yet, and the server would wait for them.
void PostgresServer::Drop(const std::string& database) {
    DropUnused();
    unused_ = database;
}

void PostgresServer::DropUnused() {
    if (!unused_.empty()) first_->Execute("DROP DATABASE " + unused_ + " WITH (FORCE)");
    unused_.clear();
}

void PostgresServer::DropTable(DeviceDatabase& database, const std::string& table) const {
    database.Execute("DROP TABLE " + table + " CASCADE");
}

void PostgresServer::MakeText(DeviceDatabase& database, const std::string& table,
                              const std::string& column) const {
    database.Execute("ALTER TABLE " + table + " ALTER COLUMN " + column + " TYPE VARCHAR(64)");
}

void PostgresServer::Lock(DeviceDatabase& database, const std::string& table) const {
    database.Execute("BEGIN");
    database.Execute("LOCK TABLE " + table + " IN ACCESS EXCLUSIVE MODE");
}

void PostgresServer::Unlock(DeviceDatabase& database) const {
    database.Execute("ROLLBACK");
}

bool PostgresServer::HasWaiter(DeviceDatabase& database) const {
    return database.Rows(
               "SELECT count(*) FROM pg_stat_activity WHERE datname = current_database() AND "
               "wait_event_type = 'Lock'") != "0\n";
}

}  // namespace ventlock::test
