#include "db/BorrowedConnection.h"

#include <memory>
#include <utility>

namespace ventlock {
namespace {

class BorrowedConnection final : public IConnection {
 public:
    BorrowedConnection(IConnection& lent, std::function<void()> beforeCall)
        : lent_(lent), beforeCall_(std::move(beforeCall)) {}

    std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override {
        beforeCall_();
        return lent_.OpenRecordset(source, type);
    }
    void Execute(std::string_view statement) override {
        beforeCall_();
        lent_.Execute(statement);
    }
    void BeginTrans() override {
        beforeCall_();
        lent_.BeginTrans();
    }
    void CommitTrans() override {
        beforeCall_();
        lent_.CommitTrans();
    }
    void Rollback() override { lent_.Rollback(); }
    ConnectionFacts Facts() override { return lent_.Facts(); }

 private:
    IConnection& lent_;
    std::function<void()> beforeCall_;
};

class BorrowingWorkspace final : public IWorkspace {
 public:
    BorrowingWorkspace(IConnection& lent, std::function<void()> beforeCall)
        : lent_(lent), beforeCall_(std::move(beforeCall)) {}

    std::unique_ptr<IConnection> OpenConnection(std::string_view /*name*/, std::optional<int> /*options*/,
                                                bool /*readOnly*/, std::string_view /*connect*/) override {
        return std::make_unique<BorrowedConnection>(lent_, beforeCall_);
    }

 private:
    IConnection& lent_;
    std::function<void()> beforeCall_;
};

class BorrowingEngine final : public IDBEngine {
 public:
    BorrowingEngine(IConnection& lent, std::function<void()> beforeCall)
        : lent_(lent), beforeCall_(std::move(beforeCall)) {}

    std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view /*name*/, std::string_view /*user*/,
                                                std::string_view /*password*/,
                                                WorkspaceType /*type*/) override {
        return std::make_unique<BorrowingWorkspace>(lent_, beforeCall_);
    }

 private:
    IConnection& lent_;
    std::function<void()> beforeCall_;
};

}  // namespace

EngineFactory Borrowing(IConnection& connection, std::function<void()> beforeCall) {
    return [&connection, beforeCall = std::move(beforeCall)]() -> std::unique_ptr<IDBEngine> {
        return std::make_unique<BorrowingEngine>(connection, beforeCall);
    };
}

}  // namespace ventlock
