#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "support/DeviceSchema.h"
#include "support/OdbcFolder.h"
#include "support/OdbcHost.h"
#include "support/OdbcProbe.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// A device database of its own in a temporary file, with a data source of the user that opens it and checks
/// foreign keys. The data source goes on being listed after the database is gone.
class SqliteDatabase {
 public:
    /// @param settings  further settings of the data source; "Timeout" is the time in ms to wait for a locked
    /// file
    /// @param name      of the data source, omitted: one that no other has had
    explicit SqliteDatabase(DeviceSchema schema = DeviceSchema::Current,
                            const OdbcFolder::Settings& settings = {}, const std::string& name = "");

    /// The data source's name.
    [[nodiscard]] const std::string& Dsn() const noexcept { return dsn_; }

    /// What the program connects with: "ODBC;UID=sa;PWD=;DSN=" and the name.
    [[nodiscard]] std::string ConnectString() const { return "ODBC;UID=sa;PWD=;DSN=" + dsn_; }

    /// The path of the database file.
    [[nodiscard]] std::string File() const { return folder_ / "device.db"; }

    /// The path by which the driver knows it.
    [[nodiscard]] std::string DriversFile() const { return DriversPath(File()); }

    /// For setting up; a failing statement fails the test.
    void Execute(std::string_view sql) { probe_->Execute(sql); }

    /// The rows of a query: "a|b|NULL\n" each.
    std::string Rows(std::string_view sql) { return probe_->Rows(sql); }

    /// Lets nobody else read or write until Unlock.
    void Lock() { probe_->Execute("BEGIN EXCLUSIVE"); }
    void Unlock() { probe_->Execute("ROLLBACK"); }

 private:
    TempFolder folder_;
    std::string dsn_;
    std::unique_ptr<OdbcProbe> probe_;
};

}  // namespace ventlock::test
