#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "support/Workplace.h"

namespace ventlock::test {
class OdbcProbe;
class PostgresServer;
}  // namespace ventlock::test

namespace ventlock::bench {

/// Device databases with the rows of DeviceRows, as data sources of the workplace: a file of SQLite among the
/// targets of a round, and databases of a PostgreSQL server that runs from the first use to the end.
class Databases {
 public:
    static constexpr const char* kSqlite = "sqlite";  ///< the data source of the file

    /// `place` must outlive it.
    explicit Databases(const Workplace& place);
    ~Databases();
    Databases(const Databases&) = delete;
    Databases& operator=(const Databases&) = delete;

    /// Makes the file with so many devices, on the disk.
    void StoreSqlite(std::size_t devices);

    /// The data source of a server's database with so many devices that is only read.
    const std::string& ReadOnlyPostgres(std::size_t devices);

    /// Raises unless the file's tables hold so many devices and nothing else. @throws std::runtime_error
    void RequireSqlite(std::size_t devices) const;

 private:
    [[nodiscard]] std::unique_ptr<test::OdbcProbe> OpenSqlite(const std::string& path) const;
    void AddDataSource(const std::string& name, const std::string& settings);

    const Workplace& place_;
    std::string dataSources_;                  ///< the file of them
    std::map<std::size_t, std::string> made_;  ///< bytes of SQLite's files, by devices
    std::unique_ptr<test::PostgresServer> server_;
    std::map<std::size_t, std::string> served_;  ///< data sources, by devices
};

}  // namespace ventlock::bench
