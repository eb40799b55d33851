// A server gives a statement of the program up in favour of another program's.

#include <gtest/gtest.h>

#include "e2e/Refused.h"
#include "e2e/WorldDatabase.h"
#include "support/Rival.h"

namespace ventlock::test {
namespace {

/// A program that registers kFlowEntry in the database, and a rival that has begun a transaction.
class GivenUp : public testing::Test {
 protected:
    void SetUp() override {
        if (TestedProduct() == Product::Sqlite) GTEST_SKIP() << "SQLite gives no statement up";
        database_ = std::make_unique<WorldDatabase>(world_);
        rival_ = std::make_unique<Rival>(database_->Connect());
        world_.Write("entry.ini", kFlowEntry);
    }

    void Start() {
        program_ = std::make_unique<RunningProgram>(world_.Call({"register", "entry.ini", "--db", "--json"}));
    }

    /// The program comes to its end, has written the entry and says that it took two starts.
    void ExpectWrittenByTheSecondStart() {
        const ProgramResult result = program_->Wait();
        EXPECT_EQ(result.exitCode, 0) << result.out;
        EXPECT_EQ(result.err, "");
        const auto target = DocumentOf(result.out)["entries"][0]["targets"]["database"];
        EXPECT_EQ(target["status"], "written") << target;
        EXPECT_EQ(target["messages"].size(), 0U) << target;
        EXPECT_EQ(target.value("restarts", 0), 1) << target;
        EXPECT_EQ(database_->Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
        EXPECT_EQ(database_->Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");
        EXPECT_EQ(database_->Rows("SELECT * FROM DeviceTypes"), "1|1|7|Flow|Flow meter\n");
        EXPECT_EQ(database_->Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0|R1|First\n");
    }

    const World world_;
    std::unique_ptr<WorldDatabase> database_;
    std::unique_ptr<Rival> rival_;
    std::unique_ptr<RunningProgram> program_;
};

/// The program's insert of a type has the type's number and waits for the row that the type refers to; the
/// rival has that row and asks for the number.
TEST_F(GivenUp, ByADeadlockTheEntryIsStartedAnewAndWritten) {
    if (TestedProduct() != Product::Mariadb) GTEST_SKIP() << "which of the two gives up is chance elsewhere";
    rival_->Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', 'old')");
    rival_->Execute("INSERT INTO MfrProtocols VALUES (1, 1, 0, '38')");
    rival_->Execute("BEGIN");
    rival_->Execute("SELECT * FROM MfrProtocols FOR UPDATE");
    // The server would rather keep what has changed more rows.
    rival_->Execute("UPDATE MajorDeviceCategories SET Description = 'theirs'");
    Start();
    database_->AwaitWaiter();
    rival_->Execute("INSERT INTO DeviceTypes VALUES (1, 1, '8', 'theirs', '')");
    rival_->Execute("ROLLBACK");
    ExpectWrittenByTheSecondStart();
}

/// The program's update of the manufacturer waits for a row that it sees as it was before the rival's change.
TEST_F(GivenUp, ByTheIsolationLevelTheEntryIsStartedAnewAndWritten) {
    if (TestedProduct() != Product::Postgresql) GTEST_SKIP() << "only PostgreSQL refuses it";
    rival_->Execute(
        "DO $$ BEGIN EXECUTE 'ALTER DATABASE ' || current_database() || "
        "' SET default_transaction_isolation = ''repeatable read'''; END $$");
    rival_->Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', 'old')");
    rival_->Execute("INSERT INTO MfrProtocols VALUES (1, 1, 0, '38')");
    rival_->Execute("BEGIN");
    rival_->Execute("UPDATE Manufacturers SET Description = 'theirs'");
    Start();
    database_->AwaitWaiter();
    rival_->Execute("COMMIT");
    ExpectWrittenByTheSecondStart();
}

}  // namespace
}  // namespace ventlock::test
