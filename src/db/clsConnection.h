#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/AppObjects.h"
#include "core/Guarded.h"
#include "db/TransactionConnection.h"
#include "platform/Database.h"

namespace ventlock {

/// Makes a database engine. @throws RunTimeError 429 when there is none.
using EngineFactory = std::function<std::unique_ptr<IDBEngine>()>;

/// The one open link to the device database. Shared under "Connection".
class clsConnection final : public AppObject {
 public:
    explicit clsConnection(EngineFactory createEngine) : createEngine_(std::move(createEngine)) {}

    /// Connects to the data source `vDatabase` ("PYX" when omitted; given but empty stays empty) when
    /// `vOperation` is given and 2; in every other case nothing is opened and the result is False. `vAppID`
    /// changes nothing. A failure is logged; what was connected before is gone then.
    bool Init(const AppObjects& oAppObjects, const std::optional<std::int16_t>& vOperation = {},
              const std::optional<std::string>& vDatabase = {},
              const std::optional<std::string>& vAppID = {});

    /// The open connection, nullptr before the first and after a failed connect. Owned by this object and
    /// replaced by the next Init, by BeginTrans and by the transaction's end.
    [[nodiscard]] IConnection* DB() const noexcept;

    /// Begins a transaction: until its end every query of DB is sent once. With the current schema, whose
    /// tables are read before they are written, it waits until no other program writes. False after a logged
    /// error, for example of a driver that cannot keep other programs out. `Transaction` is still to be
    /// rolled back then if there is one.
    bool BeginTrans(std::int16_t schemaVersion);

    /// Commits. False after a logged error; the transaction is still to be rolled back then.
    bool CommitTrans();

    /// Takes back all that was done since BeginTrans. False after a logged error: when a commit was tried
    /// before, only the database knows what it has kept.
    bool Rollback();

    /// The connection's transaction, nullptr when there is none.
    [[nodiscard]] TransactionConnection* Transaction() const noexcept { return transaction_.get(); }

    /// The driver's records of the last connect when it failed, in their order; none after a good one.
    [[nodiscard]] const std::vector<std::string>& Diagnostics() const noexcept { return diagnostics_; }

 private:
    bool Connect();
    IConnection& RequireOpen();

    EngineFactory createEngine_;
    bool isConnected_ = false;
    std::string dataSource_ = "PYX";
    std::unique_ptr<IDBEngine> engine_;
    std::unique_ptr<IWorkspace> workspace_;
    std::unique_ptr<IConnection> connection_;
    std::unique_ptr<TransactionConnection> transaction_;
    std::vector<std::string> diagnostics_;
    const AppObjects* oAppObjects_ = nullptr;
};

}  // namespace ventlock
