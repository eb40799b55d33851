#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr uid_t kNobody = 65534;

// Takes the superuser's rights away, to whom no file is read-only; without them there is nothing to take.
class OrdinaryUser {
 public:
    OrdinaryUser() { EXPECT_EQ(user_ == 0 ? seteuid(kNobody) : 0, 0); }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(user_), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
    uid_t user_ = geteuid();
};

TEST(ReadOnlyFile, IsReadAndRefusesEveryChange) {
    SqliteDatabase database;
    fs::permissions(database.File(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    {
        const OrdinaryUser user;
        Engine engine;
        const auto connection = engine.Open(database.ConnectString());
        EXPECT_EQ(RowsOf(*Snapshot(*connection, "SELECT Major, Minor FROM __version")), "1|1\n");
        EXPECT_EQ(
            DiagnosticsOf([&] { connection->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')"); }),
            Texts{"[HY000] [SQLite]attempt to write a readonly database (8) (8)"});
    }
    EXPECT_EQ(database.Rows("SELECT * FROM Manufacturers"), "");
}

}  // namespace
}  // namespace ventlock::test
