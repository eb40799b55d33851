#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/AppObjects.h"
#include "core/Guarded.h"
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
    /// replaced by the next Init.
    [[nodiscard]] IConnection* DB() const noexcept { return connection_.get(); }

    /// The driver's records of the last connect when it failed, in their order; none after a good one.
    [[nodiscard]] const std::vector<std::string>& Diagnostics() const noexcept { return diagnostics_; }

 private:
    bool Connect();

    EngineFactory createEngine_;
    bool isConnected_ = false;
    std::string dataSource_ = "PYX";
    std::unique_ptr<IDBEngine> engine_;
    std::unique_ptr<IWorkspace> workspace_;
    std::unique_ptr<IConnection> connection_;
    std::vector<std::string> diagnostics_;
    const AppObjects* oAppObjects_ = nullptr;
};

}  // namespace ventlock
