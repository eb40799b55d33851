#include <gtest/gtest.h>

#include <memory>

#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "support/posix/NoMoreThreads.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

TEST(NoThread, ForAConnectionIsTheLackOfMemory) {
    SqliteDatabase database;
    Engine engine;
    {
        const NoMoreThreads none;
        EXPECT_EQ(NumberRaisedBy([&] { engine.Open(database.ConnectString()); }), 7);
    }
    EXPECT_EQ(RowsOf(*Snapshot(*engine.Open(database.ConnectString()), "SELECT Major FROM __version")),
              "1\n");
}

}  // namespace
}  // namespace ventlock::test
