#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"
#include "unit/odbc/TimeLimits.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;
using Texts = std::vector<std::string>;

TEST(TimeLimit, ALockedDatabaseFailsWithTheDriversWordsWhenTheDriverIsNotPatient) {
    SqliteDatabase database(DeviceSchema::Current, {{"Timeout", "20"}});
    Engine engine({milliseconds(5000), milliseconds(5000), milliseconds(2000)});
    const auto connection = engine.Open(database.ConnectString());
    database.Lock();
    EXPECT_EQ(DiagnosticsOf([&] { connection->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')"); }),
              Texts{"[HY000] [SQLite]database is locked (5) (5)"});
    EXPECT_EQ(DiagnosticsOf([&] { Snapshot(*connection, "SELECT * FROM Manufacturers"); }),
              Texts{"[HY000] [SQLite]database is locked (5) (5)"});
    database.Unlock();
    connection->Execute("INSERT INTO Manufacturers VALUES (2, 'A', 'B')");
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "2|A|B\n");
}

TEST(TimeLimit, ALockedDatabaseHoldsNobodyUpWhenTheDriverIsPatient) {
    SqliteDatabase database(DeviceSchema::Current, {{"Timeout", "30000"}});
    Engine engine(kShort);
    const auto connection = engine.Open(database.ConnectString());
    database.Lock();
    Texts texts;
    const milliseconds time = TimeOf([&] {
        texts = DiagnosticsOf([&] { connection->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')"); });
    });
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.front(), "[HYT00] The database did not answer within 0.3 s (0)");
    EXPECT_LT(time, milliseconds(2500));
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("DELETE FROM Manufacturers"); }), 3420);
    database.Unlock();  // the driver's wait ends, and with it the thread that was given up
}

TEST(TimeLimit, AStatementThatComputesTooLongIsCancelled) {
    SqliteDatabase database;
    Engine engine(kShort);
    const auto connection = engine.Open(database.ConnectString());
    const auto endless = [&] {
        Snapshot(*connection,
                 "WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT count(*) FROM c");
    };
    EXPECT_EQ(DiagnosticsOf(endless), (Texts{"[HYT00] The database did not answer within 0.3 s (0)",
                                             "[HY000] [SQLite]interrupted (9) (9)"}));
    EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT Major FROM __version")), "1\n");
}

}  // namespace
}  // namespace ventlock::test
