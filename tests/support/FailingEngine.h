#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/RunTimeError.h"
#include "db/clsConnection.h"
#include "platform/Database.h"

namespace ventlock::test {

/// What a FailingEngine takes the calls for that begin and end a transaction.
inline constexpr const char* kBeginTrans = "BeginTrans";
inline constexpr const char* kCommitTrans = "CommitTrans";
inline constexpr const char* kRollback = "Rollback";

/// Which statement a FailingEngine refuses; nothing at first. A refused statement does not reach the
/// database.
class StatementFailure {
 public:
    /// The `call`-th time from now on (1: the next) that exactly this statement, or for a new record the name
    /// of its table, is sent, `error` is raised. There is one such statement at a time: the last one asked
    /// for.
    void FailAt(std::string statement, int call, RunTimeError error) {
        statement_ = std::move(statement);
        callsLeft_ = call;
        error_ = std::move(error);
    }

    void Meet(std::string_view statement) {
        if (callsLeft_ == 0 || statement != statement_) return;
        if (--callsLeft_ == 0) throw RunTimeError(error_);
    }

 private:
    std::string statement_;
    int callsLeft_ = 0;
    RunTimeError error_{ErrorNumber::OdbcCallFailed};
};

/// Engines of `createEngine` whose connections refuse what `failure` says, which must outlive them.
inline EngineFactory Failing(EngineFactory createEngine, StatementFailure& failure) {
    class Connection final : public IConnection {
     public:
        Connection(std::unique_ptr<IConnection> below, StatementFailure& failure)
            : below_(std::move(below)), failure_(failure) {}
        std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override {
            failure_.Meet(source);
            return below_->OpenRecordset(source, type);
        }
        void Execute(std::string_view statement) override {
            failure_.Meet(statement);
            below_->Execute(statement);
        }
        void BeginTrans() override {
            failure_.Meet(kBeginTrans);
            below_->BeginTrans();
        }
        void CommitTrans() override {
            failure_.Meet(kCommitTrans);
            below_->CommitTrans();
        }
        void Rollback() override {
            failure_.Meet(kRollback);
            below_->Rollback();
        }
        ConnectionFacts Facts() override { return below_->Facts(); }

     private:
        std::unique_ptr<IConnection> below_;
        StatementFailure& failure_;
    };
    class Workspace final : public IWorkspace {
     public:
        Workspace(std::unique_ptr<IWorkspace> below, StatementFailure& failure)
            : below_(std::move(below)), failure_(failure) {}
        std::unique_ptr<IConnection> OpenConnection(std::string_view name, std::optional<int> options,
                                                    bool readOnly, std::string_view connect) override {
            return std::make_unique<Connection>(below_->OpenConnection(name, options, readOnly, connect),
                                                failure_);
        }

     private:
        std::unique_ptr<IWorkspace> below_;
        StatementFailure& failure_;
    };
    class Engine final : public IDBEngine {
     public:
        Engine(std::unique_ptr<IDBEngine> below, StatementFailure& failure)
            : below_(std::move(below)), failure_(failure) {}
        std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                    std::string_view password, WorkspaceType type) override {
            return std::make_unique<Workspace>(below_->CreateWorkspace(name, user, password, type), failure_);
        }

     private:
        std::unique_ptr<IDBEngine> below_;
        StatementFailure& failure_;
    };
    return [createEngine = std::move(createEngine), &failure]() -> std::unique_ptr<IDBEngine> {
        return std::make_unique<Engine>(createEngine(), failure);
    };
}

/// Engines whose every connect fails with `error`.
inline EngineFactory RefusingConnect(RunTimeError error) {
    class Workspace final : public IWorkspace {
     public:
        explicit Workspace(RunTimeError error) : error_(std::move(error)) {}
        std::unique_ptr<IConnection> OpenConnection(std::string_view /*name*/, std::optional<int> /*options*/,
                                                    bool /*readOnly*/,
                                                    std::string_view /*connect*/) override {
            throw RunTimeError(error_);
        }

     private:
        RunTimeError error_;
    };
    class Engine final : public IDBEngine {
     public:
        explicit Engine(RunTimeError error) : error_(std::move(error)) {}
        std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view /*name*/, std::string_view /*user*/,
                                                    std::string_view /*password*/,
                                                    WorkspaceType /*type*/) override {
            return std::make_unique<Workspace>(error_);
        }

     private:
        RunTimeError error_;
    };
    return [error = std::move(error)]() -> std::unique_ptr<IDBEngine> {
        return std::make_unique<Engine>(error);
    };
}

}  // namespace ventlock::test
