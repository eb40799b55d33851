// Somebody else keeps a table locked for longer than the program waits.

#include "db/DatabaseOf.h"
#include "support/DriverAnswers.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A database that the program waits for no longer than 0.4 s. SQLite's driver cannot be stopped in its wait,
/// which ends soon after.
class LockedTable : public testing::Test {
 protected:
    LockedTable() {
        FillManufacturer(manufacturer_);
        FillDevice(device_);
        device_.ManProtID = 1;
        EXPECT_TRUE(manufacturer_.Init(world_.Objects(), kCurrentSchema, 2));
        EXPECT_TRUE(device_.Init(world_.Objects(), kCurrentSchema, 2));
    }

    void Lock(const std::string& table) { world_.Database().Lock(table); }
    void Unlock() { world_.Database().Unlock(); }
    std::string Rows(const std::string& table) { return world_.Rows("SELECT * FROM " + table); }

    /// The log's entries are the one of this step, and the driver's own words are its last.
    void ExpectTimeLimit(const std::string& tagAndStep) {
        EXPECT_THAT(world_.Entries(),
                    ElementsAre(tagAndStep + ": ODBC--call failed. [HYT00] The database did not answer "
                                             "within 0.4 s (0) (3146)"));
        ASSERT_THAT(world_.Journal().Diagnostics(), Not(IsEmpty()));
        EXPECT_THAT(world_.Journal().Diagnostics().back(), DriverSays(Refusal::LockedTable));
    }

    DbWorld world_{
        DeviceSchema::Current,
        StatementMode::Run,
        {std::chrono::milliseconds(15000), std::chrono::milliseconds(400), std::chrono::milliseconds(15000)}};
    clsManufacturer manufacturer_{world_.Events()};
    clsDevice device_{world_.Events()};
};

TEST_F(LockedTable, FailsASearchAndTheNextOneSucceeds) {
    Lock("MfrProtocols");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 0);
    EXPECT_FALSE(manufacturer_.HasMfrProtocolID());
    ExpectTimeLimit("MANmpid-01");
    Unlock();
    EXPECT_TRUE(manufacturer_.Insert()) << "the connection is still good";
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n");
}

TEST_F(LockedTable, FailsAnInsertOfWhichNothingStays) {
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    Lock("Manufacturers");
    EXPECT_FALSE(manufacturer_.Insert());
    ExpectTimeLimit("MANins-02.1a");
    Unlock();
    EXPECT_EQ(Rows("Manufacturers"), "");
    EXPECT_EQ(Rows("MfrProtocols"), "");
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n") << "once, though it was sent twice";
}

TEST_F(LockedTable, FailsAChangeAndTheOldRowStays) {
    world_.Execute("INSERT INTO Manufacturers VALUES (4, 'M4', 'D4')");
    world_.Execute("INSERT INTO MfrProtocols VALUES (2, 4, 1, '38')");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 2);
    Lock("Manufacturers");
    EXPECT_FALSE(manufacturer_.Insert());
    ExpectTimeLimit("MANins-02.3");
    Unlock();
    EXPECT_EQ(Rows("Manufacturers"), "4|M4|D4\n");
}

TEST_F(LockedTable, KeepsTheRowsThatWereWrittenBeforeIt) {
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(device_.TAVDevRevID(), 1);
    Lock("DeviceTypes");
    EXPECT_FALSE(device_.Insert());
    ExpectTimeLimit("DEVins-03.1");
    Unlock();
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n");
    EXPECT_EQ(Rows("DeviceTypes"), "");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
}

/// A database that waits for a table much shorter than the program does. SQLite's data source has its limit
/// already.
class ImpatientDatabase : public ManufacturerRecord {
 protected:
    ImpatientDatabase() {
        if (TestedProduct() == Product::Postgresql) Send("SET lock_timeout = '200ms'");
        if (TestedProduct() == Product::Mariadb) Send("SET lock_wait_timeout = 1");
    }

 private:
    void Send(std::string_view sql) { DatabaseOf(&world_.Objects()).Execute(sql); }
};

TEST_F(ImpatientDatabase, EndsTheWaitBeforeTheProgramDoes) {
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    world_.Database().Lock("Manufacturers");
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("MANins-02.1a", Refusal::LockLimit)));
    world_.Database().Unlock();
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
}

}  // namespace
}  // namespace ventlock::test
