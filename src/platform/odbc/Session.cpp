#include "platform/odbc/Session.h"

#include <utility>
#include <vector>

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "platform/odbc/SnapshotReader.h"

namespace ventlock::odbc {
namespace {

constexpr std::string_view kLoginPassed = "HYT01";
constexpr std::string_view kQueryPassed = "HYT00";

std::string LimitText(std::string_view state, std::chrono::milliseconds limit) {
    return "[" + std::string(state) + "] The database did not answer within " +
           DecimalText(static_cast<double>(limit.count()) / 1000.0) + " s (0)";
}

// The limit first, then what the driver said when it was stopped.
[[noreturn]] void ThrowLate(std::string limitText, const std::exception_ptr& error) {
    std::vector<std::string> texts{std::move(limitText)};
    try {
        if (error) std::rethrow_exception(error);
    } catch (const RunTimeError& fromDriver) {
        texts.insert(texts.end(), fromDriver.Diagnostics().begin(), fromDriver.Diagnostics().end());
    }
    throw RunTimeError::OdbcCallFailed(std::move(texts));
}

}  // namespace

Session::Session(IEvents& events, DatabaseTimeLimits limits,
                 std::shared_ptr<const EnvironmentHandle> environment)
    : limits_(limits),
      link_(std::make_shared<Link>(std::move(environment))),
      worker_(std::make_shared<Worker>(events, limits.grace)) {}

// The link ends on its own thread, because a driver may take its time over it.
Session::~Session() {
    worker_->Post([link = std::move(link_)] {});
}

Worker::Outcome Session::Call(Job job, std::chrono::milliseconds limit, std::string_view state) {
    // The session may be gone when an event handler returns: nothing of it is used while the call is under
    // way. The link is held by the job alone, so that it is the worker's thread that lets go of it.
    if (link_->IsDead()) throw RunTimeError(ErrorNumber::ObjectInvalid);
    const std::shared_ptr<Worker> worker = worker_;
    const std::weak_ptr<Link> weak = link_;
    const auto cancellation = std::make_shared<Cancellation>();
    const Worker::Result result =
        worker->Run([link = link_, cancellation, job = std::move(job)] { job(*link, *cancellation); }, limit,
                    [cancellation] { cancellation->Cancel(); });
    if (result.outcome == Worker::Outcome::Never) {
        if (const std::shared_ptr<Link> link = weak.lock()) link->MarkDead();
        ThrowLate(LimitText(state, limit), nullptr);
    }
    if (result.error) {
        if (result.outcome == Worker::Outcome::Late) ThrowLate(LimitText(state, limit), result.error);
        std::rethrow_exception(result.error);
    }
    return result.outcome;
}

void Session::Connect(std::string_view connect, bool readOnly) {
    Call([connect = std::string(connect), limit = limits_.login, readOnly](
             Link& link, Cancellation& /*unused*/) { link.Connect(connect, limit, readOnly); },
         limits_.login, kLoginPassed);
}

std::unique_ptr<Recordset> Session::Read(std::string_view query) {
    const std::chrono::milliseconds limit = limits_.query;
    const auto rows = std::make_shared<std::unique_ptr<Recordset>>();
    const Worker::Outcome outcome = Call(
        [rows, query = std::string(query), limit](Link& link, Cancellation& cancellation) {
            Statement statement(link, cancellation, limit);
            *rows = ReadSnapshot(statement, query);
        },
        limit, kQueryPassed);
    // Rows that were read while the statement was being cancelled may not be all of them.
    if (outcome == Worker::Outcome::Late) ThrowLate(LimitText(kQueryPassed, limit), nullptr);
    return std::move(*rows);
}

void Session::Change(std::function<void(Statement&)> work) {
    const std::chrono::milliseconds limit = limits_.query;
    Call(
        [work = std::move(work), limit](Link& link, Cancellation& cancellation) {
            Statement statement(link, cancellation, limit);
            work(statement);
        },
        limit, kQueryPassed);
}

void Session::BeginTransaction() {
    Call([](Link& link, Cancellation& /*unused*/) { link.Begin(); }, limits_.query, kQueryPassed);
}

void Session::CommitTransaction() {
    Call([](Link& link, Cancellation& /*unused*/) { link.End(SQL_COMMIT); }, limits_.query, kQueryPassed);
}

void Session::RollbackTransaction() {
    Call([](Link& link, Cancellation& /*unused*/) { link.End(SQL_ROLLBACK); }, limits_.query, kQueryPassed);
}

ConnectionFacts Session::Facts() {
    const auto facts = std::make_shared<ConnectionFacts>();
    Call([facts](Link& link, Cancellation& /*unused*/) { *facts = link.Facts(); }, limits_.query,
         kQueryPassed);
    return *facts;
}

}  // namespace ventlock::odbc
