// Connections that stand above another one, and what they pass on to it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "db/BorrowedConnection.h"
#include "db/DryRunConnection.h"
#include "db/TransactionConnection.h"
#include "support/Raised.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Keeps the calls that reach it, and has tables without rows.
class NotedConnection final : public IConnection {
 public:
    explicit NotedConnection(std::vector<std::string>& calls) : calls_(calls) {}

    std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType /*type*/) override {
        calls_.emplace_back(source);
        return std::make_unique<Recordset>(std::vector<std::string>{"Id"});
    }
    void Execute(std::string_view statement) override { calls_.emplace_back(statement); }
    void BeginTrans() override { calls_.emplace_back("begin"); }
    void CommitTrans() override { calls_.emplace_back("commit"); }
    void Rollback() override { calls_.emplace_back("rollback"); }
    ConnectionFacts Facts() override {
        ConnectionFacts facts;
        facts.database = "plant";
        return facts;
    }

 private:
    std::vector<std::string>& calls_;
};

void CallEverything(IConnection& connection) {
    connection.BeginTrans();
    connection.OpenRecordset("SELECT * FROM Devices", RecordsetType::Snapshot);
    connection.Execute("DELETE FROM Devices");
    connection.CommitTrans();
    connection.Rollback();
}

class ConnectionOverAnother : public testing::Test {
 protected:
    std::vector<std::string> calls_;
    NotedConnection below_{calls_};
};

TEST_F(ConnectionOverAnother, WhenBorrowedPassesEachCallOnBehindTheLendersOwn) {
    const EngineFactory engines = Borrowing(below_, [this] { calls_.emplace_back("before"); });
    const auto workspace = engines()->CreateWorkspace("", "", "", WorkspaceType::Odbc);
    const auto connection = workspace->OpenConnection("", {}, false, "");
    CallEverything(*connection);
    EXPECT_THAT(calls_, ElementsAre("before", "begin", "before", "SELECT * FROM Devices", "before",
                                    "DELETE FROM Devices", "before", "commit", "rollback"));
    EXPECT_EQ(connection->Facts().database, "plant");
}

TEST_F(ConnectionOverAnother, WhenBorrowedIsStoppedByTheLenderButForARollback) {
    const EngineFactory engines = Borrowing(below_, [] { throw RunTimeError(ErrorNumber::OdbcCallFailed); });
    const auto workspace = engines()->CreateWorkspace("", "", "", WorkspaceType::Odbc);
    const auto connection = workspace->OpenConnection("", {}, false, "");
    EXPECT_EQ(NumberRaisedBy([&] { connection->BeginTrans(); }), 3146);
    EXPECT_EQ(NumberRaisedBy([&] { connection->OpenRecordset("t", RecordsetType::Snapshot); }), 3146);
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("DELETE FROM t"); }), 3146);
    EXPECT_EQ(NumberRaisedBy([&] { connection->CommitTrans(); }), 3146);
    EXPECT_THAT(calls_, IsEmpty());
    connection->Rollback();
    EXPECT_THAT(calls_, ElementsAre("rollback"));
}

TEST_F(ConnectionOverAnother, InATransactionPassesOnWhatIsNotRead) {
    TransactionConnection connection(below_);
    CallEverything(connection);
    EXPECT_THAT(calls_,
                ElementsAre("begin", "SELECT * FROM Devices", "DELETE FROM Devices", "commit", "rollback"));
    EXPECT_EQ(connection.Facts().database, "plant");
}

TEST_F(ConnectionOverAnother, InATransactionReadsAnewBehindARowThatItCannotTell) {
    TransactionConnection connection(below_);
    const std::string query = "SELECT * FROM Devices";
    connection.OpenRecordset(query, RecordsetType::Snapshot);
    connection.OpenRecordset(query, RecordsetType::Snapshot);
    EXPECT_THAT(calls_, ElementsAre(query));
    const std::string insert = "INSERT INTO Devices SELECT * FROM Others";
    connection.Execute(insert);
    connection.OpenRecordset(query, RecordsetType::Snapshot);
    EXPECT_THAT(calls_, ElementsAre(query, insert, query));
}

TEST_F(ConnectionOverAnother, InADryRunIsOnlyReadFrom) {
    DryRunConnection connection(std::make_unique<NotedConnection>(calls_));
    CallEverything(connection);
    EXPECT_THAT(calls_, ElementsAre("SELECT * FROM Devices"));
    EXPECT_EQ(connection.Facts().database, "plant");
}

}  // namespace
}  // namespace ventlock::test
