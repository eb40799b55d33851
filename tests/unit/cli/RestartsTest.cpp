#include "cli/Restarts.h"

#include <gtest/gtest.h>

#include <string>

namespace ventlock::test {
namespace {

constexpr const char* kDuplicate = "[23505] duplicate key value (1)";
constexpr const char* kGivenUp = "[40001] could not serialize access (1)";

/// What is known after a statement was refused; "" for a commit.
StatementJournal Refused(const std::string& statement, const std::string& record) {
    StatementJournal journal;
    if (statement.empty()) {
        journal.CallFailed({record});
        return journal;
    }
    journal.Add({JournalEntry::Kind::Change, statement, {}, false});
    journal.LastFailed({record});
    return journal;
}

class RestartsOf : public testing::TestWithParam<Restarts::Of> {
 protected:
    Restarts restarts_{GetParam()};
};

TEST_P(RestartsOf, AreForWhatAnotherProgramIsTheReasonOf) {
    EXPECT_TRUE(restarts_.StartAnew(Refused("INSERT 1", kDuplicate)));
    EXPECT_TRUE(restarts_.StartAnew(Refused("INSERT 2", kGivenUp)));
    EXPECT_TRUE(restarts_.StartAnew(Refused("INSERT 3", "[40P01] deadlock detected (1)")));
    EXPECT_EQ(restarts_.Count(), 3);
    EXPECT_FALSE(restarts_.StartAnew(Refused("INSERT 4", "[22001] value too long (1)")));
    EXPECT_FALSE(restarts_.StartAnew(Refused("INSERT 5", "[HY000] [SQLite]database is locked (5)")));
    EXPECT_FALSE(restarts_.StartAnew(StatementJournal()));
    EXPECT_EQ(restarts_.Count(), 3);
}

TEST_P(RestartsOf, KnowARowThatIsLeftByItsStatementComingAgain) {
    const int refusals = GetParam() == Restarts::Of::Entry ? 15 : 3;
    restarts_.StartAnew(Refused("INSERT 1", kDuplicate));
    for (int i = 1; i <= refusals; ++i) {
        EXPECT_FALSE(restarts_.MetLeftRow());
        EXPECT_TRUE(restarts_.StartAnew(Refused("INSERT 2", kDuplicate)));
    }
    EXPECT_TRUE(restarts_.MetLeftRow());
    restarts_.StartAnew(Refused("INSERT 3", kDuplicate));
    EXPECT_FALSE(restarts_.MetLeftRow());
}

TEST_P(RestartsOf, OfARefusedCommitMeetNoLeftRow) {
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(restarts_.StartAnew(Refused("", kGivenUp)));
    EXPECT_FALSE(restarts_.MetLeftRow());
}

INSTANTIATE_TEST_SUITE_P(On, RestartsOf, testing::Values(Restarts::Of::Entry, Restarts::Of::Transaction),
                         [](const auto& what) {
                             return what.param == Restarts::Of::Entry ? "Entry" : "Transaction";
                         });

}  // namespace
}  // namespace ventlock::test
