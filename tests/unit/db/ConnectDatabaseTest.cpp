#include "db/ConnectDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/ItemList.h"
#include "core/clsSettings.h"
#include "db/ReferenceLists.h"
#include "support/DbWorld.h"
#include "support/FakeRegistry.h"
#include "support/LogEntry.h"
#include "support/Raised.h"
#include "unit/db/ActingEvents.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kVersionRead = "SELECT *   FROM __version  ORDER BY Major, Minor ";

/// Shared objects as they are when the program connects: the settings name the world's data source.
class ConnectDatabaseTest : public testing::Test {
 protected:
    void Start(DeviceSchema schema) {
        world_ = std::make_unique<DbWorld>(schema);
        profiles_ = std::make_unique<ProfileStore>(host_->Files(), CodePage(1252));
        settings_ = std::make_shared<clsSettings>(registry_, *profiles_, paths_, locale_);
        settings_->DSN = world_->Dsn();
        world_->Objects().Add(kSettingsKey, settings_);
    }

    bool Connect() { return ConnectDatabase(world_->Objects(), events_, tavDB_, schemaVersion_); }

    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FakeRegistry registry_;
    FakePaths paths_;
    FakeLocale locale_;
    std::unique_ptr<ProfileStore> profiles_;
    std::shared_ptr<clsSettings> settings_;
    std::unique_ptr<DbWorld> world_;
    ActingEvents events_;
    std::unique_ptr<clsTavDB> tavDB_;
    std::int16_t schemaVersion_ = 3;
};

TEST_F(ConnectDatabaseTest, AGoodStartOnTheCurrentSchemaRunsExactlySevenSnapshots) {
    Start(DeviceSchema::Current);
    EXPECT_TRUE(Connect());
    EXPECT_EQ(schemaVersion_, 5);
    ItemList protocols;
    ItemList major;
    ItemList minor;
    ASSERT_NE(tavDB_, nullptr);
    EXPECT_TRUE(LoadReferenceLists(*tavDB_, protocols, major, minor));
    EXPECT_THAT(
        world_->Statements(),
        ElementsAre(kVersionRead, kVersionRead, "SELECT *   FROM Manufacturers ",
                    "SELECT *   FROM DeviceTypes ", "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ",
                    "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM "
                    "MajorDeviceCategories  ORDER BY MajorDevicecategoryId ",
                    "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM "
                    "MinorDeviceCategories  ORDER BY MinorDevicecategoryId "));
    for (const JournalEntry& entry : world_->Journal().Entries())
        EXPECT_EQ(entry.kind, JournalEntry::Kind::Snapshot) << entry.statement;
    EXPECT_THAT(world_->Entries(), IsEmpty());
}

TEST_F(ConnectDatabaseTest, AGoodStartOnTheOldSchemaRunsExactlyFourSnapshots) {
    Start(DeviceSchema::Old);
    EXPECT_TRUE(Connect());
    EXPECT_EQ(schemaVersion_, 4);
    EXPECT_THAT(world_->Statements(), ElementsAre(kVersionRead, kVersionRead, "SELECT *   FROM MfrIds ",
                                                  "SELECT *   FROM DevTypes "));
    EXPECT_THAT(world_->Entries(), IsEmpty());
}

TEST_F(ConnectDatabaseTest, ConnectsToTheDataSourceOfTheSettingsEachTime) {
    Start(DeviceSchema::Current);
    const auto old = NewDeviceDatabase(DeviceSchema::Old);
    EXPECT_TRUE(Connect());
    settings_->DSN = old->Dsn();
    EXPECT_TRUE(Connect());
    EXPECT_EQ(schemaVersion_, 4);
}

TEST_F(ConnectDatabaseTest, IsFalseWithoutAReachableDataSourceAndLeavesTheFacadeAlone) {
    Start(DeviceSchema::Current);
    settings_->DSN = "nowhere";
    EXPECT_FALSE(Connect());
    EXPECT_EQ(tavDB_, nullptr) << "not even created";
    EXPECT_EQ(schemaVersion_, 3);
    EXPECT_THAT(world_->Statements(), IsEmpty());
    EXPECT_THAT(world_->Entries(), ElementsAre(DatabaseEntry("CONNconn-02")));
}

TEST_F(ConnectDatabaseTest, AFailedConnectDoesNotCallInitOfAFacadeThatIsThere) {
    Start(DeviceSchema::Current);
    ASSERT_TRUE(Connect());
    world_->Statements();
    settings_->DSN = "nowhere";
    schemaVersion_ = 3;
    EXPECT_FALSE(Connect());
    EXPECT_EQ(tavDB_->Version, 5);
    EXPECT_EQ(schemaVersion_, 3);
    EXPECT_THAT(world_->Statements(), IsEmpty());
}

TEST_F(ConnectDatabaseTest, KeepsTheFacadeThatIsThere) {
    Start(DeviceSchema::Current);
    tavDB_ = std::make_unique<clsTavDB>(events_);
    tavDB_->Manufacturer().Name = "Acme";
    const clsTavDB* const before = tavDB_.get();
    EXPECT_TRUE(Connect());
    EXPECT_EQ(tavDB_.get(), before);
    EXPECT_EQ(tavDB_->Manufacturer().Name, "Acme");
}

TEST_F(ConnectDatabaseTest, AnUnsupportedSchemaGivesOneEntry) {
    Start(DeviceSchema::Current);
    world_->Execute("UPDATE __version SET Major = 2");
    EXPECT_FALSE(Connect());
    EXPECT_EQ(schemaVersion_, 3) << "unchanged: the facade's own check has refused it";
    EXPECT_THAT(world_->Entries(), ElementsAre(kNoSupport));
    EXPECT_THAT(world_->Statements(), ElementsAre(kVersionRead));
}

TEST_F(ConnectDatabaseTest, AMissingVersionTableGivesTwoEntries) {
    Start(DeviceSchema::None);
    EXPECT_FALSE(Connect());
    EXPECT_EQ(schemaVersion_, 3);
    EXPECT_THAT(world_->Entries(), ElementsAre(DatabaseEntry("DBlvi-00"), kNoSupport));
    EXPECT_THAT(world_->Statements(), ElementsAre(kVersionRead));
}

TEST_F(ConnectDatabaseTest, ASecondReadingThatFailsIsReportedAsNotReadable) {
    Start(DeviceSchema::Current);
    events_.actsAt = 1;
    events_.action = [this] { world_->Execute("DROP TABLE __version"); };
    EXPECT_FALSE(Connect());
    EXPECT_EQ(schemaVersion_, 7);
    EXPECT_THAT(world_->Entries(), ElementsAre(DatabaseEntry("DBlvi-00"), kNoRead));
    EXPECT_THAT(world_->Statements(), ElementsAre(kVersionRead, kVersionRead));
}

TEST_F(ConnectDatabaseTest, ASecondReadingOfAnUnsupportedSchemaIsReportedAsSuch) {
    Start(DeviceSchema::Current);
    events_.actsAt = 1;
    events_.action = [this] { world_->Execute("UPDATE __version SET Major = 2"); };
    EXPECT_FALSE(Connect());
    EXPECT_EQ(schemaVersion_, 6);
    EXPECT_THAT(world_->Entries(), ElementsAre(kNoSupport));
    EXPECT_THAT(world_->Statements(), ElementsAre(kVersionRead, kVersionRead));
}

TEST_F(ConnectDatabaseTest, TheCodeOfTheSecondReadingIsKept) {
    Start(DeviceSchema::Old);
    events_.actsAt = 1;
    events_.action = [this] { world_->Execute("UPDATE __version SET Minor = 1"); };
    EXPECT_FALSE(world_->Rows("SELECT * FROM __version").empty());
    EXPECT_TRUE(Connect());
    EXPECT_EQ(schemaVersion_, 5);
    EXPECT_EQ(tavDB_->Version, 5);
}

TEST_F(ConnectDatabaseTest, AFullDatabaseChangesNothing) {
    Start(DeviceSchema::Current);
    world_->Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', ''), (2, 'Best', '')");
    EXPECT_TRUE(Connect());
    EXPECT_EQ(schemaVersion_, 5);
    EXPECT_THAT(world_->Entries(), IsEmpty());
}

TEST_F(ConnectDatabaseTest, AFailedEmptinessCheckIsLoggedAndChangesNothing) {
    Start(DeviceSchema::Current);
    world_->Database().DropTable("DeviceTypes");
    EXPECT_TRUE(Connect());
    EXPECT_EQ(schemaVersion_, 5);
    EXPECT_THAT(world_->Entries(), ElementsAre(DatabaseEntry("DBe1-02")));
}

TEST_F(ConnectDatabaseTest, AMissingSharedObjectGoesToTheCaller) {
    Start(DeviceSchema::Current);
    AppObjects empty;
    EXPECT_EQ(NumberRaisedBy([&] { ConnectDatabase(empty, events_, tavDB_, schemaVersion_); }), 5);
    empty.Add(kSettingsKey, settings_);
    EXPECT_EQ(NumberRaisedBy([&] { ConnectDatabase(empty, events_, tavDB_, schemaVersion_); }), 5);
    EXPECT_EQ(tavDB_, nullptr);
    EXPECT_THAT(world_->Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
