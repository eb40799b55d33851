#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "support/OdbcProbe.h"

namespace ventlock::test {

/// A device database of its own, with a data source of the user that opens it, and a connection of the test's
/// for setting it up and looking at it. The data source goes on being listed after the database is gone.
class DeviceDatabase {
 public:
    virtual ~DeviceDatabase() = default;
    DeviceDatabase(const DeviceDatabase&) = delete;
    DeviceDatabase& operator=(const DeviceDatabase&) = delete;

    /// The data source's name.
    [[nodiscard]] const std::string& Dsn() const noexcept { return dsn_; }

    /// What the program connects with: "ODBC;UID=sa;PWD=;DSN=" and the name.
    [[nodiscard]] std::string ConnectString() const { return "ODBC;UID=sa;PWD=;DSN=" + dsn_; }

    /// What the driver tells as the database that is open.
    [[nodiscard]] virtual std::string OwnName() const = 0;

    /// For setting up; a failing statement fails the test.
    void Execute(std::string_view sql) { probe_->Execute(sql); }

    /// The rows of a query: "a|b|NULL\n" each.
    std::string Rows(std::string_view sql) { return probe_->Rows(sql); }

    /// Drops a table whatever refers to it.
    virtual void DropTable(const std::string& table) = 0;

    /// Makes a column take any text; a key of its own it must not be.
    virtual void MakeText(const std::string& table, const std::string& column) = 0;

    /// Takes keys, checks and references from a table and keeps its rows. What refers to it is loosened
    /// first.
    void Loosen(const std::string& table);

    /// Lets nobody else read or write a table until Unlock; this connection touches no other until then.
    virtual void Lock(const std::string& table) = 0;
    virtual void Unlock() = 0;

 protected:
    explicit DeviceDatabase(std::string dsn) : dsn_(std::move(dsn)) {}

    void Use(std::unique_ptr<OdbcProbe> probe) { probe_ = std::move(probe); }

 private:
    std::string dsn_;
    std::unique_ptr<OdbcProbe> probe_;
};

}  // namespace ventlock::test
