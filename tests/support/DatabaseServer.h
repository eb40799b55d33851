#pragma once

#include <memory>
#include <string>

#include "support/DeviceDatabase.h"
#include "support/DeviceSchema.h"
#include "support/OdbcFolder.h"
#include "support/OdbcProbe.h"

namespace ventlock::test {

/// A database server of its own in a temporary folder, which answers nobody but this machine. The role "sa"
/// owns it and needs no password.
class DatabaseServer {
 public:
    virtual ~DatabaseServer() = default;

    [[nodiscard]] virtual Product OwnProduct() const = 0;

    /// The path of the driver and what a data source needs to reach a database of the server.
    [[nodiscard]] virtual std::string Driver() const = 0;
    [[nodiscard]] virtual OdbcFolder::Settings SettingsFor(const std::string& database) const = 0;

    /// Makes a database with a schema, and takes one away that nobody is connected to any more, in its time.
    virtual void Create(const std::string& database, DeviceSchema schema) = 0;
    virtual void Drop(const std::string& database) = 0;

    /// A connection of the test's to a database.
    [[nodiscard]] std::unique_ptr<OdbcProbe> Connect(const std::string& database) const;

    /// Ends the server without any warning, as a machine that fails does, and starts it again. What was
    /// committed is there again.
    virtual void Kill() = 0;
    virtual void Start() = 0;

    /// Drops a table of a database whatever refers to it.
    virtual void DropTable(DeviceDatabase& database, const std::string& table) const = 0;

    /// Makes a column of a database take any text.
    virtual void MakeText(DeviceDatabase& database, const std::string& table,
                          const std::string& column) const = 0;

    virtual void Lock(DeviceDatabase& database, const std::string& table) const = 0;
    virtual void Unlock(DeviceDatabase& database) const = 0;

    /// True when a statement waits for rows that another connection to the database has changed.
    [[nodiscard]] virtual bool HasWaiter(DeviceDatabase& database) const = 0;
};

/// A new database on a server; it goes when this does.
class ServerDatabase final : public DeviceDatabase {
 public:
    /// @param dataSource  the data source's name, omitted: one that no other has had
    explicit ServerDatabase(DatabaseServer& server, DeviceSchema schema = DeviceSchema::Current,
                            const std::string& dataSource = "");
    ~ServerDatabase() override;

    [[nodiscard]] std::string OwnName() const override { return name_; }
    void DropTable(const std::string& table) override { server_.DropTable(*this, table); }
    void MakeText(const std::string& table, const std::string& column) override {
        server_.MakeText(*this, table, column);
    }
    void Lock(const std::string& table) override { server_.Lock(*this, table); }
    void Unlock() override { server_.Unlock(*this); }

    /// A further connection of the test's.
    [[nodiscard]] std::unique_ptr<OdbcProbe> Connect() const { return server_.Connect(name_); }

    /// Returns when a statement waits for another connection's rows; fails the test when none comes to that.
    void AwaitWaiter();

    /// Connects the test's own connection again, after the server was away.
    void Reconnect() { Use(Connect()); }

 private:
    ServerDatabase(DatabaseServer& server, DeviceSchema schema, const std::string& dataSource,
                   const std::string& name);

    DatabaseServer& server_;
    std::string name_;
};

}  // namespace ventlock::test
