#pragma once

#include <memory>
#include <string>

#include "support/DatabaseServer.h"
#include "support/ServerProcess.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// PostgreSQL on a socket in its own folder.
class PostgresServer final : public DatabaseServer {
 public:
    PostgresServer();

    [[nodiscard]] Dialect OwnDialect() const override { return Dialect::Postgresql; }
    [[nodiscard]] std::string Driver() const override { return OdbcFolder::DriverLibrary("psqlodbcw.so"); }
    [[nodiscard]] OdbcFolder::Settings SettingsFor(const std::string& database) const override;
    [[nodiscard]] std::string FirstDatabase() const override { return "postgres"; }

 private:
    TempFolder folder_;
    std::unique_ptr<ServerProcess> process_;
};

}  // namespace ventlock::test
