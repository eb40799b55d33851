#include "db/StoredDevices.h"

#include "db/DatabaseOf.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

std::vector<DeviceTexts> Stored(DbWorld& world, std::int16_t schemaVersion) {
    return StoredDevices(DatabaseOf(&world.Objects()), schemaVersion);
}

TEST(StoredDevices, OfTheCurrentSchemaHaveEveryColumnOfTheirFourRows) {
    DbWorld world;
    world.Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', 'Acme Inc')");
    world.Execute("INSERT INTO MfrProtocols VALUES (1, 1, 2, '38')");
    world.Execute("INSERT INTO DeviceTypes VALUES (1, 1, '10', 'Flow', NULL)");
    world.Execute("INSERT INTO DeviceRevisions VALUES (2, 1, '1', 17, '', 'First')");
    world.Execute("INSERT INTO DeviceRevisions VALUES (1, 1, '255', 0, 'R255', '')");
    const std::string pair = world.Rows(
        "SELECT MajorDeviceCategoryId, MinorDeviceCategoryId FROM DeviceCategories WHERE "
        "DeviceCategoryId = '17'");
    const std::string major = pair.substr(0, pair.find('|'));
    const std::string minor = pair.substr(major.size() + 1, pair.size() - major.size() - 2);
    EXPECT_THAT(Stored(world, kCurrentSchema), ElementsAre(DeviceTexts{{"ManID", "26"},
                                                                       {"ManName", "Acme"},
                                                                       {"ManDesc", "Acme Inc"},
                                                                       {"ProtID", "2"},
                                                                       {"DevID", "0A"},
                                                                       {"DevName", "Flow"},
                                                                       {"DevRev", "FF"},
                                                                       {"DevRevName", "R255"},
                                                                       {"DevRevDesc", ""},
                                                                       {"DevCatID", "0"},
                                                                       {"DevMinCatID", "0"}},
                                                           DeviceTexts{{"ManID", "26"},
                                                                       {"ManName", "Acme"},
                                                                       {"ManDesc", "Acme Inc"},
                                                                       {"ProtID", "2"},
                                                                       {"DevID", "0A"},
                                                                       {"DevName", "Flow"},
                                                                       {"DevRev", "01"},
                                                                       {"DevRevName", ""},
                                                                       {"DevRevDesc", "First"},
                                                                       {"DevCatID", major},
                                                                       {"DevMinCatID", minor}}));
}

TEST(StoredDevices, LeaveOutAnIdThatIsNoWholeNumber) {
    for (const std::string id : {"2.5", "-1", "1e300", "x", ""}) {
        DbWorld world;
        world.Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', '')");
        world.Execute("INSERT INTO MfrProtocols VALUES (1, 1, 0, '" + id + "')");
        world.Execute("INSERT INTO DeviceTypes VALUES (1, 1, '10', 'Flow', '')");
        world.Execute("INSERT INTO DeviceRevisions VALUES (1, 1, '1', 0, '', '')");
        const std::vector<DeviceTexts> devices = Stored(world, kCurrentSchema);
        ASSERT_EQ(devices.size(), 1U);
        EXPECT_FALSE(devices[0].contains("ManID")) << id;
        EXPECT_EQ(devices[0].at("DevID"), "0A");
    }
}

TEST(StoredDevices, OfTheOldSchemaHaveWhatItsTablesHold) {
    DbWorld world(DeviceSchema::Old);
    EXPECT_THAT(Stored(world, kOldSchema), IsEmpty());
    world.Execute("INSERT INTO MfrIds VALUES (38, 'Acme')");
    world.Execute("INSERT INTO DevTypes VALUES (38, 10, 'other')");
    world.Execute("INSERT INTO PDevices VALUES ('00000026000A0001', 38, 10, 'Flow', 1, 2, NULL)");
    EXPECT_THAT(Stored(world, kOldSchema), ElementsAre(DeviceTexts{{"ManID", "26"},
                                                                   {"ManName", "Acme"},
                                                                   {"DevID", "0A"},
                                                                   {"DevName", "Flow"},
                                                                   {"DevRev", "01"},
                                                                   {"DDRev", "02"}}));
}

TEST(StoredDevices, AreOnlyRead) {
    DbWorld world;
    Stored(world, kCurrentSchema);
    EXPECT_THAT(world.Statements(), Not(IsEmpty()));
    for (const std::string& statement : world.Statements()) {
        EXPECT_TRUE(statement.starts_with("SELECT ")) << statement;
    }
}

}  // namespace
}  // namespace ventlock::test
