#pragma once

#include <memory>
#include <string>

#include "support/DatabaseServer.h"
#include "support/ServerProcess.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// MariaDB on a socket in its own folder.
class MariadbServer final : public DatabaseServer {
 public:
    MariadbServer();

    [[nodiscard]] Dialect OwnDialect() const override { return Dialect::Mariadb; }
    [[nodiscard]] std::string Driver() const override { return OdbcFolder::DriverLibrary("libmaodbc.so"); }
    [[nodiscard]] OdbcFolder::Settings SettingsFor(const std::string& database) const override;
    [[nodiscard]] std::string FirstDatabase() const override { return "mysql"; }

 private:
    TempFolder folder_;
    std::unique_ptr<ServerProcess> process_;
};

}  // namespace ventlock::test
