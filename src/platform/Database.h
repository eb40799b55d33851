#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Recordset.h"

namespace ventlock {

enum class RecordsetType {
    Dynaset = 2,   ///< a table, by its name, that takes new records
    Snapshot = 4,  ///< the rows of a query
};

/// ODBC is the one kind of workspace there is here.
enum class WorkspaceType { Odbc = 1 };

/// What a connection tells about itself; a text is empty when the driver does not say.
struct ConnectionFacts {
    std::string driver;  ///< the driver's file name
    std::string driverVersion;
    std::string driverManager;  ///< the driver manager's version
    std::string product;        ///< the database product
    std::string productVersion;
    std::string database;  ///< the current database or its file
};

/// An open link to a database; closed by its destructor. Every statement is committed by itself, unless a
/// transaction has begun. All calls raise RunTimeError 3146 with the driver's diagnostics, or 3420 once the
/// link is dead.
class IConnection {
 public:
    virtual ~IConnection() = default;

    /// Snapshot: runs `source` as it stands and reads its rows to the end; the statement is closed when it
    /// returns. Dynaset: opens the table named `source` for new records; values are bound, never put into the
    /// text.
    virtual std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) = 0;

    /// Runs a statement that changes rows, sent as it stands. Changing no row is success.
    virtual void Execute(std::string_view statement) = 0;

    /// Begins a transaction that sees nothing of other programs' work until it ends: the statements that
    /// follow are committed together or not at all. It is rolled back when the connection is closed or lost
    /// and when the program ends. One that the driver cannot isolate is refused (3146) and nothing begins.
    virtual void BeginTrans() = 0;

    /// Commits what was done since BeginTrans. After a failure the transaction may still be open: roll it
    /// back. When that fails too, only the database knows whether it has kept all or nothing.
    virtual void CommitTrans() = 0;

    /// Takes back what was done since BeginTrans.
    virtual void Rollback() = 0;

    virtual ConnectionFacts Facts() = 0;
};

class IWorkspace {
 public:
    virtual ~IWorkspace() = default;

    /// Opens a connection and never asks the user. `connect` is "ODBC;" and a connect string of the driver
    /// manager. A connect string that ends in an empty data source name is refused (3146) before the driver
    /// manager sees it.
    /// @param name      empty
    /// @param options   omitted: no prompt
    /// @param readOnly  False
    virtual std::unique_ptr<IConnection> OpenConnection(std::string_view name, std::optional<int> options,
                                                        bool readOnly, std::string_view connect) = 0;
};

class IDBEngine {
 public:
    virtual ~IDBEngine() = default;
    virtual std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                        std::string_view password, WorkspaceType type) = 0;
};

/// Longest times that a database may take to answer.
struct DatabaseTimeLimits {
    std::chrono::milliseconds login{15000};
    std::chrono::milliseconds query{60000};
    std::chrono::milliseconds grace{2000};  ///< behind a limit, for a driver that was told to stop
};

}  // namespace ventlock
