// A facade's copy for other shared objects, on a connection that is lent to it.

#include "db/BorrowedConnection.h"
#include "db/DatabaseOf.h"
#include "db/StatementJournal.h"
#include "db/clsTavDB.h"
#include "support/LoggedApp.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class Copy : public testing::Test {
 protected:
    Copy() {
        Fill(tavDB_);
        Lend([] {});
    }

    void Fill(clsTavDB& tavDB) {
        EXPECT_TRUE(tavDB.Init(world_.Objects(), 2));
        FillManufacturer(tavDB.Manufacturer());
        FillDevice(tavDB.Device());
    }

    /// Gives the copies' objects the world's connection, for reading alone.
    void Lend(const std::function<void()>& beforeCall) {
        auto connection = std::make_shared<clsConnection>(
            Journaled(Borrowing(DatabaseOf(&world_.Objects()), beforeCall), journal_, StatementMode::DryRun));
        EXPECT_TRUE(connection->Init(other_->Objects(), 2));
        other_->Objects().Add(kConnectionKey, connection);
        world_.Statements();
    }

    std::vector<std::string> Journal() const {
        std::vector<std::string> statements;
        for (const JournalEntry& call : journal_.Entries()) statements.push_back(StatementLine(call));
        return statements;
    }

    DbWorld world_;
    clsTavDB tavDB_{world_.Events()};
    StatementJournal journal_;
    std::unique_ptr<LoggedApp> other_ = std::make_unique<LoggedApp>();
};

TEST_F(Copy, WritesWhatTheFacadeWouldOnItsOwnObjects) {
    const auto copy = tavDB_.CopyFor(other_->Objects());
    EXPECT_TRUE(copy->Update());
    EXPECT_THAT(world_.Statements(),
                ElementsAre("select *   from MfrProtocols ", "select *   from DeviceTypes ",
                            "select *   from DeviceRevisions "));
    EXPECT_EQ(world_.Rows("SELECT * FROM Manufacturers"), "");
    EXPECT_TRUE(tavDB_.Update());
    EXPECT_EQ(world_.Statements(), Journal());
}

TEST_F(Copy, KnowsWhatTheRecordsHaveFound) {
    clsTavDB first(world_.Events());
    Fill(first);
    EXPECT_TRUE(first.Update());
    EXPECT_TRUE(tavDB_.Update()) << "of rows that it finds";
    world_.Statements();
    tavDB_.Manufacturer().Name = "Best";
    const auto copy = tavDB_.CopyFor(other_->Objects());
    EXPECT_TRUE(copy->Update());
    EXPECT_THAT(world_.Statements(), IsEmpty()) << "it searches nothing again";
    EXPECT_TRUE(tavDB_.Update());
    EXPECT_EQ(world_.Statements(), Journal());
}

TEST_F(Copy, HasWhatTheFacadeHolds) {
    tavDB_.DBPath = "/d/pyxall.mdb";
    tavDB_.LastTAVVersions = "5.0, 6.0";
    const auto copy = tavDB_.CopyFor(other_->Objects());
    EXPECT_EQ(copy->Version, kCurrentSchema);
    EXPECT_EQ(copy->DBPath, "/d/pyxall.mdb");
    EXPECT_EQ(copy->LastTAVVersions, "5.0, 6.0");
}

TEST_F(Copy, LeavesTheFacadesRecordsAlone) {
    const auto copy = tavDB_.CopyFor(other_->Objects());
    copy->Manufacturer().Name = "Best";
    EXPECT_TRUE(copy->Update());
    EXPECT_FALSE(tavDB_.Manufacturer().HasMfrProtocolID());
    EXPECT_EQ(tavDB_.Manufacturer().Name, "Acme");
}

TEST_F(Copy, ReportsToItsOwnLogWhatEndsACall) {
    other_ = std::make_unique<LoggedApp>();
    Lend([] { throw RunTimeError(ErrorNumber::PermissionDenied); });
    EXPECT_FALSE(tavDB_.CopyFor(other_->Objects())->Update());
    EXPECT_THAT(world_.Statements(), IsEmpty());
    EXPECT_THAT(other_->Entries(), Contains(StartsWith("MAN")));
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
