#pragma once

#include <string>

#include "support/DeviceDatabase.h"
#include "support/DeviceSchema.h"
#include "support/OdbcFolder.h"
#include "support/OdbcHost.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// A device database in a temporary file, whose data source checks foreign keys.
class SqliteDatabase final : public DeviceDatabase {
 public:
    /// @param settings  further settings of the data source; "Timeout" is the time in ms to wait for a locked
    /// file
    /// @param name      of the data source, omitted: one that no other has had
    explicit SqliteDatabase(DeviceSchema schema = DeviceSchema::Current,
                            const OdbcFolder::Settings& settings = {}, const std::string& name = "");

    /// The path of the database file.
    [[nodiscard]] std::string File() const { return folder_ / "device.db"; }

    /// The path by which the driver knows it.
    [[nodiscard]] std::string DriversFile() const { return DriversPath(File()); }

    [[nodiscard]] std::string OwnName() const override { return DriversFile(); }
    void DropTable(const std::string& table) override;
    void MakeText(const std::string& table, const std::string& column) override;

    /// Locks are on the whole file.
    void Lock(const std::string& /*table*/) override { Lock(); }
    void Lock() { Execute("BEGIN EXCLUSIVE"); }
    void Unlock() override { Execute("ROLLBACK"); }

 private:
    TempFolder folder_;
};

}  // namespace ventlock::test
