#include "platform/odbc/OdbcEngine.h"

#include <memory>
#include <string>
#include <utility>

#include "base/RunTimeError.h"
#include "platform/odbc/ConnectString.h"
#include "platform/odbc/Environment.h"
#include "platform/odbc/OdbcConnection.h"

namespace ventlock {
namespace odbc {
namespace {

constexpr std::string_view kPrefix = "ODBC;";

class OdbcWorkspace final : public IWorkspace {
 public:
    OdbcWorkspace(IEvents& events, DatabaseTimeLimits limits,
                  std::shared_ptr<const EnvironmentHandle> environment)
        : events_(events), limits_(limits), environment_(std::move(environment)) {}

    std::unique_ptr<IConnection> OpenConnection(std::string_view /*name*/, std::optional<int> /*options*/,
                                                bool readOnly, std::string_view connect) override {
        if (connect.substr(0, kPrefix.size()) == kPrefix) connect.remove_prefix(kPrefix.size());
        if (NamesEmptyDataSource(connect)) {
            throw RunTimeError::OdbcCallFailed({"[IM002] No data source was named (0)"});
        }
        auto session = std::make_shared<Session>(events_, limits_, environment_);
        session->Connect(connect, readOnly);
        return std::make_unique<OdbcConnection>(std::move(session));
    }

 private:
    IEvents& events_;
    DatabaseTimeLimits limits_;
    std::shared_ptr<const EnvironmentHandle> environment_;
};

class OdbcEngine final : public IDBEngine {
 public:
    OdbcEngine(IEvents& events, DatabaseTimeLimits limits)
        : events_(events),
          limits_(limits),
          environment_(std::make_shared<const EnvironmentHandle>(OpenEnvironment())) {}

    // The connect string carries user and password of its own, so that the workspace's are not asked for.
    std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view /*name*/, std::string_view /*user*/,
                                                std::string_view /*password*/,
                                                WorkspaceType /*type*/) override {
        return std::make_unique<OdbcWorkspace>(events_, limits_, environment_);
    }

 private:
    IEvents& events_;
    DatabaseTimeLimits limits_;
    std::shared_ptr<const EnvironmentHandle> environment_;
};

}  // namespace
}  // namespace odbc

std::unique_ptr<IDBEngine> CreateOdbcEngine(IEvents& events, DatabaseTimeLimits limits) {
    return std::make_unique<odbc::OdbcEngine>(events, limits);
}

}  // namespace ventlock
