#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "support/DeviceSchema.h"
#include "support/OdbcFolder.h"
#include "support/OdbcProbe.h"

namespace ventlock::test {

/// A database server of its own in a temporary folder, which answers nobody but this machine. The role "sa"
/// owns it and needs no password.
class DatabaseServer {
 public:
    virtual ~DatabaseServer() = default;

    [[nodiscard]] virtual Dialect OwnDialect() const = 0;

    /// The path of the driver and what a data source needs to reach a database of the server.
    [[nodiscard]] virtual std::string Driver() const = 0;
    [[nodiscard]] virtual OdbcFolder::Settings SettingsFor(const std::string& database) const = 0;

    /// The database that is always there.
    [[nodiscard]] virtual std::string FirstDatabase() const = 0;
};

/// A new database on a server with a data source of the user; both go when it does, but for the data source's
/// entry.
class ServerDatabase {
 public:
    explicit ServerDatabase(DatabaseServer& server, DeviceSchema schema = DeviceSchema::Current);
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    /// What the program connects with: "ODBC;UID=sa;PWD=;DSN=" and the name.
    [[nodiscard]] std::string ConnectString() const { return "ODBC;UID=sa;PWD=;DSN=" + name_; }

    /// For setting up; a failing statement fails the test.
    void Execute(std::string_view sql) { probe_->Execute(sql); }

    /// The rows of a query: "a|b|NULL\n" each.
    std::string Rows(std::string_view sql) { return probe_->Rows(sql); }

 private:
    std::unique_ptr<OdbcProbe> Connect(const std::string& database);

    DatabaseServer& server_;
    std::string name_;
    std::unique_ptr<OdbcProbe> probe_;
};

}  // namespace ventlock::test
