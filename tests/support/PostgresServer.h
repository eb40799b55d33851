#pragma once

#include <memory>
#include <set>
#include <string>

#include "support/DatabaseServer.h"
#include "support/ServerProcess.h"
#include "support/TempFolder.h"

namespace ventlock::test {

/// PostgreSQL on a socket in its own folder.
class PostgresServer final : public DatabaseServer {
 public:
    PostgresServer();

    [[nodiscard]] Product OwnProduct() const override { return Product::Postgresql; }
    [[nodiscard]] std::string Driver() const override { return OdbcFolder::DriverLibrary("psqlodbcw.so"); }
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
    /// The database that those of a schema are copied from.
    std::string TemplateOf(DeviceSchema schema);

    void DropUnused();

    TempFolder folder_{ServerFolders()};
    std::set<std::string> templates_;  ///< those that are made
    std::string unused_;               ///< the database that is to be dropped next
    std::unique_ptr<ServerProcess> process_;
    std::unique_ptr<OdbcProbe> first_;  ///< to the database that is always there
};

}  // namespace ventlock::test
