#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Database.h"
#include "platform/IEvents.h"
#include "platform/odbc/Link.h"
#include "platform/odbc/Statement.h"
#include "platform/odbc/Worker.h"

namespace ventlock::odbc {

/// A link and the thread that works on it: every call is made there, within a limit.
class Session {
 public:
    /// @throws RunTimeError 7.
    Session(IEvents& events, DatabaseTimeLimits limits, std::shared_ptr<const EnvironmentHandle> environment);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Opens the link. @throws RunTimeError 3146 when it cannot be had within the login limit.
    void Connect(std::string_view connect, bool readOnly);

    /// Runs the query and gives its rows. @throws RunTimeError 3146, 3420.
    std::unique_ptr<Recordset> Read(std::string_view query);

    /// Runs `work` on a new statement. One that was carried out behind the limit after all is a success,
    /// because what it changed stays changed. @throws RunTimeError 3146, 3420.
    void Change(std::function<void(Statement&)> work);

    /// The link's transaction, see IConnection. @throws RunTimeError 3146, 3420.
    void BeginTransaction();
    void CommitTransaction();
    void RollbackTransaction();

    /// @throws RunTimeError 3146, 3420.
    ConnectionFacts Facts();

 private:
    using Job = std::function<void(Link&, Cancellation&)>;

    Worker::Outcome Call(Job job, std::chrono::milliseconds limit, std::string_view state);

    DatabaseTimeLimits limits_;
    std::shared_ptr<Link> link_;
    std::shared_ptr<Worker> worker_;
};

}  // namespace ventlock::odbc
