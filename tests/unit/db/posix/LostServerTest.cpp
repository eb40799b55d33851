// The server goes away while the program is connected.

#include "db/DatabaseOf.h"
#include "db/clsTavDB.h"
#include "support/DriverAnswers.h"
#include "support/Raised.h"
#include "support/TestedServer.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

constexpr auto kInvalid = ErrorNumber::ObjectInvalid;

class LostServer : public DeviceRecord {
 protected:
    void SetUp() override {
        if (TestedProduct() == Product::Sqlite) GTEST_SKIP() << "SQLite has no server";
    }

    void StartAgain() {
        TestedServer().Start();
        dynamic_cast<ServerDatabase&>(world_.Database()).Reconnect();
    }
};

TEST_F(LostServer, KilledBetweenTwoStatementsFailsTheOneAndEveryOneBehindIt) {
    EXPECT_EQ(device_.TAVDevRevID(), 1);
    TestedServer().Kill();
    EXPECT_FALSE(device_.Insert());
    EXPECT_FALSE(device_.Insert());
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Entries(),
                ElementsAre(RefusedEntry("DEVins-03.1", Refusal::LostConnection),
                            EntryText("DEVins-03.1", kInvalid), EntryText("MANmpid-01", kInvalid)));
    StartAgain();
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|1|2|38\n");
    EXPECT_EQ(Rows("DeviceTypes"), "");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
}

TEST_F(LostServer, KilledBetweenTwoStatementsLeavesWhatWasCommitted) {
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(device_.TAVDevRevID(), 1);
    TestedServer().Kill();
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("DEVins-03.3", Refusal::LostConnection)));
    StartAgain();
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|T4|D4\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
}

TEST_F(LostServer, IsReachedAgainByConnectingAgain) {
    TestedServer().Kill();
    EXPECT_FALSE(world_.Connect(world_.Dsn()));
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 0);
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("CONNconn-02", Refusal::AbsentServer),
                                       EntryText("MANmpid-01", ErrorNumber::ObjectVariableNotSet)));
    StartAgain();
    EXPECT_TRUE(world_.Connect(world_.Dsn()));
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
}

/// "DeviceTypes" is a view whose 20,000th row takes its time, so that the connection can be ended when
/// thousands of rows are on their way.
class CutSnapshot : public LostServer {
 protected:
    void SetUp() override {
        LostServer::SetUp();
        if (IsSkipped()) return;
        world_.Database().DropTable("DeviceTypes");
        if (TestedProduct() == Product::Postgresql) {
            Execute(
                "CREATE VIEW DeviceTypes AS SELECT n AS TavDevTypeId, 1 AS MfrProtocolId, '99' AS "
                "DeviceType, "
                "CASE WHEN n = 20000 THEN pg_sleep(60)::text END AS Name FROM generate_series(1, 30000) n");
        } else {
            Execute(
                "CREATE VIEW DeviceTypes AS SELECT seq AS TavDevTypeId, 1 AS MfrProtocolId, '99' AS "
                "DeviceType, CASE WHEN seq = 20000 THEN SLEEP(60) END AS Name FROM seq_1_to_30000");
        }
        world_.WhileWaiting([this] { EndTheSlowOne(); });
    }

    /// Ends the program's connection once it has come to the slow row.
    void EndTheSlowOne() {
        if (TestedProduct() == Product::Postgresql) {
            world_.Rows(
                "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE wait_event = 'PgSleep'");
            return;
        }
        const std::string id = world_.Rows(
            "SELECT ID FROM information_schema.PROCESSLIST WHERE STATE = 'User sleep' AND INFO LIKE "
            "'%DeviceTypes%'");
        if (!id.empty()) Execute("KILL " + id.substr(0, id.size() - 1));
    }
};

TEST_F(CutSnapshot, FailsTheSearchAndNothingIsWritten) {
    EXPECT_EQ(device_.TAVDevTypeID(), 0);
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("DEVadtid-01", Refusal::CutSnapshot),
                                       EntryText("DEVadtid-01", kInvalid)));
    EXPECT_EQ(Rows("DeviceRevisions"), "");
}

TEST_F(CutSnapshot, GivesNoRowsOfItToAnybody) {
    std::unique_ptr<Recordset> rows;
    EXPECT_EQ(NumberRaisedBy([&] { rows = OpenSnapshot(&world_.Objects(), kSearchTypes); }), 3146);
    EXPECT_EQ(rows, nullptr);
}

}  // namespace
}  // namespace ventlock::test
