// A server gives a statement up in favour of another connection's.

#include "db/DatabaseOf.h"
#include "platform/odbc/DriverAnswers.h"
#include "support/DriverAnswers.h"
#include "support/Rival.h"
#include "support/TestedServer.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

/// The program and a rival, each in a transaction of its own, with the rows of DeviceRecord between them.
class GivenUp : public DeviceRecord {
 protected:
    void SetUp() override {
        if (TestedProduct() == Product::Sqlite) GTEST_SKIP() << "SQLite has one lock, nobody waits crosswise";
        rival_ = std::make_unique<Rival>(Served().Connect());
        if (IsPostgresql()) {
            // Who looks for a deadlock first is the one that gives up.
            rival_->Execute("SET deadlock_timeout = '1h'");
            rival_->Execute("SET lock_timeout = '1min'");
            Send("SET deadlock_timeout = '10ms'");
        }
    }

    [[nodiscard]] static bool IsPostgresql() { return TestedProduct() == Product::Postgresql; }
    ServerDatabase& Served() { return dynamic_cast<ServerDatabase&>(world_.Database()); }

    /// Sends a statement of the program's.
    void Send(std::string_view sql) { DatabaseOf(&world_.Objects()).Execute(sql); }

    /// Both begin; the rival's transaction is made the heavier one, which a server would rather keep.
    void BeginBoth(const std::string& isolation) {
        for (const std::string& sql :
             {"SET SESSION " + std::string(IsPostgresql() ? "CHARACTERISTICS AS " : "") +
                  "TRANSACTION ISOLATION LEVEL " + isolation,
              std::string("BEGIN")}) {
            rival_->Execute(sql);
            Send(sql);
        }
        std::string rows;
        for (int i = 0; i < 50; ++i) rows += (i > 0 ? ", (" : "(") + std::to_string(100 + i) + ", 'R', '')";
        rival_->Execute("INSERT INTO Manufacturers VALUES " + rows);
    }

    /// The program ends its transaction, and with it what the rival's statement waits for.
    void RollBackAndLetTheRivalCommit() {
        Send("ROLLBACK");
        rival_->AwaitAnswer();
        rival_->Execute("COMMIT");
    }

    /// The one log entry is that of the step, and the driver's records are the refusal's, which the program
    /// takes for those of a statement that was given up, or does not.
    void ExpectRefused(const std::string& tagAndStep, Refusal refusal, bool isGivenUp) {
        EXPECT_THAT(Entries(), ElementsAre(RefusedEntry(tagAndStep, refusal)));
        EXPECT_THAT(world_.Journal().Diagnostics(), ElementsAre(DriverSays(refusal)));
        EXPECT_EQ(odbc::TellGivenUp(world_.Journal().Diagnostics()), isGivenUp);
        EXPECT_FALSE(odbc::TellDuplicate(world_.Journal().Diagnostics()));
    }

    /// Of the program's transaction nothing is left, and the same connection takes another one.
    void ExpectUsable() {
        EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|1|2|99\n");
        Send("BEGIN");
        Send("UPDATE MfrProtocols SET MfrId = '39' WHERE MfrProtocolId = 2");
        EXPECT_TRUE(manufacturer_.Insert());
        Send("COMMIT");
        EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|1|2|39\n");
        EXPECT_EQ(world_.Rows("SELECT * FROM Manufacturers WHERE TavMfrNameId = 1"), "1|Acme|Acme Inc\n");
        EXPECT_TRUE(device_.Insert()) << "statements commit by themselves again";
        EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    }

    std::unique_ptr<Rival> rival_;
};

TEST_F(GivenUp, OfTwoThatChangeTwoTablesInOppositeOrderOneIsToldOfTheDeadlock) {
    BeginBoth("READ COMMITTED");
    rival_->Execute("UPDATE Manufacturers SET Name = 'rival' WHERE TavMfrNameId = 1");
    Send("UPDATE MfrProtocols SET MfrId = '77' WHERE MfrProtocolId = 2");
    rival_->Send("UPDATE MfrProtocols SET MfrId = '99' WHERE MfrProtocolId = 2");
    Served().AwaitWaiter();
    EXPECT_FALSE(manufacturer_.Insert());
    ExpectRefused("MANins-02.3", Refusal::Deadlock, true);
    RollBackAndLetTheRivalCommit();
    ExpectUsable();
}

TEST_F(GivenUp, OfTwoThatReadWhatTheOtherWritesOneIsRefused) {
    BeginBoth("SERIALIZABLE");
    rival_->Execute("SELECT * FROM Manufacturers WHERE TavMfrNameId = 1");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1) << "reads all rows";
    rival_->Send("UPDATE MfrProtocols SET MfrId = '99' WHERE MfrProtocolId = 2");
    if (IsPostgresql()) {
        rival_->AwaitAnswer();  // nobody waits for a reader here
        rival_->Execute("COMMIT");
    } else {
        Served().AwaitWaiter();
    }
    EXPECT_FALSE(manufacturer_.Insert());
    ExpectRefused("MANins-02.3", IsPostgresql() ? Refusal::OutOfOrder : Refusal::Deadlock, true);
    if (IsPostgresql()) {
        Send("ROLLBACK");
    } else {
        RollBackAndLetTheRivalCommit();
    }
    ExpectUsable();
}

TEST_F(GivenUp, WhoWaitsForARowLongerThanTheServersLimitIsToldSo) {
    Send(IsPostgresql() ? "SET lock_timeout = '200ms'" : "SET innodb_lock_wait_timeout = 1");
    BeginBoth("READ COMMITTED");
    rival_->Execute("UPDATE MfrProtocols SET MfrId = '99' WHERE MfrProtocolId = 2");
    rival_->Execute("UPDATE Manufacturers SET Name = 'rival' WHERE TavMfrNameId = 1");
    EXPECT_FALSE(manufacturer_.Insert());
    ExpectRefused("MANins-02.3", Refusal::LockLimit, false);
    rival_->Execute("COMMIT");
    Send("ROLLBACK");
    ExpectUsable();
}

TEST_F(GivenUp, WhoSeesARowAsItWasBeforeAnothersChangeMayNotChangeIt) {
    if (!IsPostgresql()) Send("SET innodb_snapshot_isolation = ON");
    BeginBoth("REPEATABLE READ");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    rival_->Execute("UPDATE MfrProtocols SET MfrId = '99' WHERE MfrProtocolId = 2");
    rival_->Execute("UPDATE Manufacturers SET Name = 'rival' WHERE TavMfrNameId = 1");
    rival_->Execute("COMMIT");
    EXPECT_FALSE(manufacturer_.Insert());
    ExpectRefused("MANins-02.3", Refusal::OutOfOrder, true);
    Send("ROLLBACK");
    ExpectUsable();
}

TEST_F(GivenUp, ASingleStatementThatWaitedForARowIsRefusedByPostgresqlAloneWhenItHasChanged) {
    Send(IsPostgresql() ? "SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL REPEATABLE READ"
                        : "SET innodb_snapshot_isolation = ON");
    rival_->Execute("BEGIN");
    rival_->Execute("UPDATE Manufacturers SET Name = 'rival' WHERE TavMfrNameId = 1");
    bool isCommitted = false;
    world_.WhileWaiting([&] {
        if (isCommitted || !TestedServer().HasWaiter(world_.Database())) return;
        isCommitted = true;
        rival_->Execute("COMMIT");
    });
    EXPECT_NE(manufacturer_.Insert(), IsPostgresql());
    EXPECT_TRUE(isCommitted);
    if (IsPostgresql()) {
        ExpectRefused("MANins-02.3", Refusal::OutOfOrder, true);
        EXPECT_EQ(Rows("Manufacturers"), "1|rival|Acme Inc\n");
        EXPECT_TRUE(manufacturer_.Insert());
    }
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
}

}  // namespace
}  // namespace ventlock::test
