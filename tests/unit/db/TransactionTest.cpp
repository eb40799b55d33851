#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "db/SchemaVersion.h"
#include "db/Statements.h"
#include "db/clsTavDB.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct Entry {
    std::string manufacturer;
    std::string protocol;
    std::string type;
    std::string revision;
    std::string major;
    std::string minor;
};

/// Writes an entry with records of its own, as a batch does.
bool Write(DbWorld& world, const Entry& entry) {
    clsTavDB tavDB(world.Events());
    if (!tavDB.Init(world.Objects(), 2)) return false;
    clsManufacturer& manufacturer = tavDB.Manufacturer();
    clsDevice& device = tavDB.Device();
    manufacturer.ManID = device.ManID = entry.manufacturer;
    manufacturer.Name = "Maker " + entry.manufacturer;
    manufacturer.Desc = "of " + entry.type;
    manufacturer.ProtID = entry.protocol;
    device.DevID = entry.type;
    device.DevName = "Type " + entry.type;
    device.DevRev = device.DDRev = entry.revision;
    device.RevName = "Rev " + entry.revision;
    device.ProtRev = "05";
    if (tavDB.Version == 5) {
        device.CatID =
            tavDB.GetDevCatID(tavDB.GetCategoryID(entry.major, 8), tavDB.GetCategoryID(entry.minor, 9));
    }
    return tavDB.Update();
}

/// Entries in which everything comes again: manufacturers, their protocols, types, revisions, categories.
std::vector<Entry> Entries(int count) {
    std::minstd_rand random(7);
    const auto oneOf = [&](const std::vector<std::string>& texts) {
        return texts[std::uniform_int_distribution<std::size_t>(0, texts.size() - 1)(random)];
    };
    std::vector<Entry> entries;
    for (int i = 0; i < count; ++i) {
        entries.push_back({oneOf({"26", "27", "1F", "0", "26FF"}), oneOf({"0", "1", "2"}),
                           oneOf({"0A", "0B", "1", "2"}), oneOf({"1", "2"}),
                           oneOf({"Torque", "TORQUE", "Turbines", ""}), oneOf({"Wheel", "Übung", "ÜBUNG"})});
    }
    return entries;
}

std::string Everything(DbWorld& world, DeviceSchema schema) {
    std::vector<std::string> tables{"MajorDeviceCategories", "MinorDeviceCategories", "DeviceCategories"};
    if (schema == DeviceSchema::Old)
        tables.insert(tables.end(), {"MfrIds", "DevTypes", "PDevices"});
    else
        tables.insert(tables.end(), {"Manufacturers", "MfrProtocols", "DeviceTypes", "DeviceRevisions"});
    std::string rows;
    for (const std::string& table : tables)
        rows += table + "\n" + world.Rows("SELECT * FROM " + table + " ORDER BY 1, 2");
    return rows;
}

/// What a run has sent, with or without what it has only read.
std::vector<std::string> Sent(DbWorld& world, bool withReads) {
    std::vector<std::string> statements;
    for (const JournalEntry& entry : world.Journal().Entries()) {
        if (withReads || entry.kind != JournalEntry::Kind::Snapshot) statements.push_back(entry.statement);
    }
    return statements;
}

TEST(Transaction, GivesTheRowsOfEntriesThatAreWrittenOneByOne) {
    DbWorld oneByOne;
    DbWorld together;
    for (DbWorld* world : {&oneByOne, &together}) {
        world->Execute("INSERT INTO Manufacturers VALUES (4, 'Stored', 'before')");
        world->Execute("INSERT INTO MfrProtocols VALUES (9, 4, 1, '38')");
        world->Execute("INSERT INTO DeviceTypes VALUES (3, 9, '10', 'Stored', 'before')");
    }
    EXPECT_TRUE(together.Connection().BeginTrans(kCurrentSchema));
    for (const Entry& entry : Entries(80)) {
        EXPECT_TRUE(Write(oneByOne, entry));
        EXPECT_TRUE(Write(together, entry));
    }
    EXPECT_TRUE(together.Connection().CommitTrans());
    EXPECT_EQ(Everything(together, DeviceSchema::Current), Everything(oneByOne, DeviceSchema::Current));
    std::vector<std::string> sent = Sent(together, false);
    EXPECT_EQ(sent.front(), statements::kClaimTables);
    sent.erase(sent.begin());
    EXPECT_EQ(sent, Sent(oneByOne, false));
    EXPECT_THAT(together.Entries(), IsEmpty());
}

TEST(Transaction, SendsEveryQueryOnce) {
    DbWorld world;
    EXPECT_TRUE(world.Connection().BeginTrans(kCurrentSchema));
    for (const Entry& entry : Entries(80)) EXPECT_TRUE(Write(world, entry));
    std::vector<std::string> reads;
    for (const JournalEntry& entry : world.Journal().Entries()) {
        if (entry.kind == JournalEntry::Kind::Snapshot) reads.push_back(entry.statement);
    }
    EXPECT_EQ(reads.size(), 7U) << "the version, four searched tables but two for the categories' names";
    std::sort(reads.begin(), reads.end());
    EXPECT_EQ(std::adjacent_find(reads.begin(), reads.end()), reads.end());
    EXPECT_TRUE(world.Connection().Rollback());
}

TEST(Transaction, GivesTheRowsOfTheOldSchemaToo) {
    DbWorld oneByOne(DeviceSchema::Old);
    DbWorld together(DeviceSchema::Old);
    EXPECT_TRUE(together.Connection().BeginTrans(kOldSchema));
    for (DbWorld* world : {&oneByOne, &together}) {
        EXPECT_TRUE(Write(*world, {"26", "0", "0A", "1", "", ""}));
        EXPECT_TRUE(Write(*world, {"27", "0", "0B", "2", "", ""}));
        EXPECT_FALSE(Write(*world, {"27", "0", "0C", "2", "", ""})) << "it takes each manufacturer once";
    }
    EXPECT_TRUE(together.Connection().CommitTrans());
    EXPECT_EQ(Everything(together, DeviceSchema::Old), Everything(oneByOne, DeviceSchema::Old));
    EXPECT_EQ(together.Entries(), oneByOne.Entries());
}

TEST(Transaction, ThatIsCommittedRemembersNothing) {
    DbWorld world;
    EXPECT_TRUE(world.Connection().BeginTrans(kCurrentSchema));
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "", ""}));
    EXPECT_TRUE(world.Connection().CommitTrans());
    EXPECT_EQ(world.Connection().Transaction(), nullptr);
    world.Statements();
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "", ""}));
    EXPECT_THAT(world.Statements(), Contains("select *   from MfrProtocols ")) << "others may write again";
}

TEST(Transaction, ThatIsRolledBackLeavesNothing) {
    for (const DeviceSchema schema : {DeviceSchema::Current, DeviceSchema::Old}) {
        DbWorld world(schema);
        const std::string before = Everything(world, schema);
        EXPECT_TRUE(world.Connection().BeginTrans(schema == DeviceSchema::Old ? kOldSchema : kCurrentSchema));
        EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "Torque", "Wheel"}));
        EXPECT_TRUE(world.Connection().Rollback());
        EXPECT_EQ(Everything(world, schema), before);
        EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "Torque", "Wheel"})) << "by itself";
        EXPECT_NE(Everything(world, schema), before);
    }
}

TEST(Transaction, ThatAClosedConnectionLeavesIsRolledBack) {
    DbWorld world;
    const std::string before = Everything(world, DeviceSchema::Current);
    EXPECT_TRUE(world.Connection().BeginTrans(kCurrentSchema));
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "Torque", "Wheel"}));
    EXPECT_TRUE(world.Connect(world.Dsn()));
    EXPECT_EQ(world.Connection().Transaction(), nullptr);
    EXPECT_EQ(Everything(world, DeviceSchema::Current), before);
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "Torque", "Wheel"}));
}

TEST(Transaction, ReadsATableAgainWhenATextMayBeStoredOtherwise) {
    DbWorld world;
    EXPECT_TRUE(world.Connection().BeginTrans(kCurrentSchema));
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    const std::string first = tavDB.GetCategoryID("a\\b", kMajorCategory);
    world.Statements();
    tavDB.GetCategoryID("a\\b", kMajorCategory);
    // MariaDB has stored "ab" and is given another one.
    EXPECT_EQ(world.Statements().front(), statements::kMajorCategories);
    EXPECT_TRUE(world.Connection().CommitTrans());
    EXPECT_EQ(world.Rows("SELECT count(*) FROM MajorDeviceCategories WHERE MajorDeviceCategoryId = " + first),
              "1\n");
}

TEST(Transaction, OneThatCannotBeginIsLoggedAndEveryStatementCommitsByItself) {
    DbWorld world;
    world.Failure().FailAt(kBeginTrans, 1, RunTimeError::OdbcCallFailed({"[HYC00] None here (0)"}));
    EXPECT_FALSE(world.Connection().BeginTrans(kCurrentSchema));
    EXPECT_EQ(world.Connection().Transaction(), nullptr);
    EXPECT_THAT(world.Entries(), ElementsAre("CONNbeg-01: ODBC--call failed. [HYC00] None here (0) (3146)"));
    EXPECT_THAT(world.Journal().Diagnostics(), ElementsAre("[HYC00] None here (0)"));
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "", ""}));
    EXPECT_EQ(world.Rows("SELECT Name FROM Manufacturers"), "Maker 26\n");
}

TEST(Transaction, OneThatCannotHaveTheTablesIsStillToBeRolledBack) {
    DbWorld world;
    world.Failure().FailAt(std::string(statements::kClaimTables), 1,
                           RunTimeError::OdbcCallFailed({"[HY000] database is locked (5)"}));
    EXPECT_FALSE(world.Connection().BeginTrans(kCurrentSchema));
    EXPECT_THAT(world.Entries(),
                ElementsAre("CONNbeg-02: ODBC--call failed. [HY000] database is locked (5) (3146)"));
    ASSERT_NE(world.Connection().Transaction(), nullptr);
    EXPECT_TRUE(world.Connection().Rollback());
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "", ""}));
    EXPECT_EQ(world.Rows("SELECT Name FROM Manufacturers"), "Maker 26\n") << "by itself";
}

TEST(Transaction, ACommitThatFailsIsLoggedAndCanBeRolledBack) {
    DbWorld world;
    EXPECT_TRUE(world.Connection().BeginTrans(kCurrentSchema));
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "", ""}));
    world.Failure().FailAt(kCommitTrans, 1, RunTimeError::OdbcCallFailed({"[40001] Not now (0)"}));
    EXPECT_FALSE(world.Connection().CommitTrans());
    EXPECT_THAT(world.Entries(), ElementsAre("CONNcom-00: ODBC--call failed. [40001] Not now (0) (3146)"));
    EXPECT_TRUE(world.Connection().Rollback());
    EXPECT_EQ(world.Rows("SELECT Name FROM Manufacturers"), "");
}

TEST(Transaction, ARollbackThatFailsIsLogged) {
    DbWorld world;
    EXPECT_TRUE(world.Connection().BeginTrans(kCurrentSchema));
    world.Failure().FailAt(kRollback, 1, RunTimeError::OdbcCallFailed({"[08S01] Gone (0)"}));
    EXPECT_FALSE(world.Connection().Rollback());
    EXPECT_THAT(world.Entries(), ElementsAre("CONNrol-00: ODBC--call failed. [08S01] Gone (0) (3146)"));
    EXPECT_TRUE(world.Connection().Rollback()) << "before a server is asked to drop the tables";
}

TEST(Transaction, NeedsAnOpenConnection) {
    DbWorld world;
    EXPECT_FALSE(world.Connect("nowhere"));
    EXPECT_FALSE(world.Connection().BeginTrans(kCurrentSchema));
    EXPECT_EQ(world.Entries().back(), "CONNbeg-00: Object variable or With block variable not set (91)");
}

TEST(Transaction, OfADryRunBeginsAndWritesNothing) {
    DbWorld world(DeviceSchema::Current, StatementMode::DryRun);
    world.Failure().FailAt(kBeginTrans, 1, RunTimeError::OdbcCallFailed({"asked"}));
    EXPECT_TRUE(world.Connection().BeginTrans(kCurrentSchema));
    EXPECT_TRUE(Write(world, {"26", "0", "0A", "1", "Torque", "Wheel"}));
    EXPECT_TRUE(Write(world, {"26", "0", "0B", "1", "Torque", "Wheel"}));
    EXPECT_TRUE(world.Connection().CommitTrans());
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "");
}

}  // namespace
}  // namespace ventlock::test
