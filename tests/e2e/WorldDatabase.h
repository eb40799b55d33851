#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "e2e/World.h"
#include "support/DatabaseServer.h"
#include "support/TestedDatabase.h"

namespace ventlock::test {

/// The device database of a world, of the product that this process is to test (VENTLOCK_TEST_DATABASE). The
/// world's data source "PYX" opens it: the program's own "device.db", or a new database on the tested server.
/// World and database end together.
class WorldDatabase {
 public:
    explicit WorldDatabase(const World& world, DeviceSchema schema = DeviceSchema::Current);

    /// The driver's library, as in "psqlodbcw.so".
    [[nodiscard]] std::string Driver() const;

    /// A further connection to it that is none of the program's.
    [[nodiscard]] std::unique_ptr<OdbcProbe> Connect() const;

    /// Returns when a statement waits for another connection's rows; on servers alone.
    void AwaitWaiter() const { served_->AwaitWaiter(); }

    /// The rows of a query: "a|b|NULL\n" each.
    [[nodiscard]] std::string Rows(std::string_view sql) const { return Connect()->Rows(sql); }

 private:
    const World& world_;
    std::unique_ptr<ServerDatabase> served_;
};

}  // namespace ventlock::test
