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

    [[nodiscard]] Product OwnProduct() const override { return Product::Mariadb; }
    [[nodiscard]] std::string Driver() const override { return OdbcFolder::DriverLibrary("libmaodbc.so"); }
    [[nodiscard]] OdbcFolder::Settings SettingsFor(const std::string& database) const override;
    void Create(const std::string& database, DeviceSchema schema) override;
    void Drop(const std::string& database) override;
    void Kill() override;
    void Start() override;
    void DropTable(DeviceDatabase& database, const std::string& table) const override;
    void MakeText(DeviceDatabase& database, const std::string& table,
                  const std::string& column) const override;
    void Lock(DeviceDatabase& database, const std::string& table) const override;
    void Unlock(DeviceDatabase& database) const override;
    [[nodiscard]] bool HasWaiter(DeviceDatabase& database) const override;

 private:
    TempFolder folder_{ServerFolders()};
    std::unique_ptr<ServerProcess> process_;
    std::unique_ptr<OdbcProbe> first_;  ///< to the database that is always there
};

}  // namespace ventlock::test
