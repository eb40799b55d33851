#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>

#include "db/clsTavDB.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kVersionRead = "SELECT *   FROM __version  ORDER BY Major, Minor ";

struct VersionRows {
    std::string name;
    std::string values;  ///< "(major, minor), ..." as they are stored one after the other
    std::int16_t code;
};

void PrintTo(const VersionRows& row, std::ostream* out) {
    *out << row.values;
}

class VersionCode : public testing::TestWithParam<VersionRows> {};

TEST_P(VersionCode, FollowsFromTheHighestRow) {
    DbWorld world;
    world.Execute("DELETE FROM __version");
    if (!GetParam().values.empty())
        world.Execute("INSERT INTO __version (Major, Minor) VALUES " + GetParam().values);
    clsTavDB tavDB(world.Events());
    EXPECT_EQ(tavDB.Init(world.Objects(), 2), GetParam().code < 6);
    EXPECT_EQ(tavDB.Version, GetParam().code);
    EXPECT_EQ(tavDB.FindVersion(), GetParam().code);
    EXPECT_EQ(tavDB.Version, GetParam().code);
    EXPECT_THAT(world.Statements(), ElementsAre(kVersionRead, kVersionRead));
}

INSTANTIATE_TEST_SUITE_P(Rows, VersionCode,
                         testing::Values(VersionRows{"None", "", 4}, VersionRows{"V1_0", "(1, 0)", 4},
                                         VersionRows{"V1_1", "(1, 1)", 5}, VersionRows{"V1_9", "(1, 9)", 5},
                                         VersionRows{"V2_0", "(2, 0)", 6}, VersionRows{"V0_9", "(0, 9)", 4},
                                         VersionRows{"V0_9_1_0", "(0, 9), (1, 0)", 4},
                                         VersionRows{"V1_5_2_0", "(1, 5), (2, 0)", 6},
                                         VersionRows{"V1_1_1_0", "(1, 1), (1, 0)", 5},
                                         VersionRows{"V2_0_1_1", "(2, 0), (1, 1)", 6},
                                         VersionRows{"NegativeMajor", "(-1, 5)", 4},
                                         VersionRows{"Largest", "(32767, 0)", 6},
                                         VersionRows{"NegativeMinor", "(1, -1)", 4}),
                         RowName());

TEST(Version, ANullNoteDoesNoHarm) {
    DbWorld world;
    world.Execute("UPDATE __version SET schemaNotes = NULL, SchemaDate = NULL");
    clsTavDB tavDB(world.Events());
    EXPECT_TRUE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(tavDB.Version, 5);
    EXPECT_THAT(world.Entries(), IsEmpty());
}

TEST(Version, ANumberThatCannotBeTakenMakesTheTableUnreadable) {
    struct Case {
        std::string change;
        std::string entry;
    };
    for (const Case& unreadable : {Case{"Major = NULL", "DBlvi-00: Invalid use of Null (94)"},
                                   Case{"Minor = NULL", "DBlvi-00: Invalid use of Null (94)"},
                                   Case{"Major = 'one'", "DBlvi-00: Type mismatch (13)"},
                                   Case{"Minor = 32768", "DBlvi-00: Overflow (6)"}}) {
        DbWorld world;
        world.Database().MakeText("__version", "Major");
        world.Execute("UPDATE __version SET " + unreadable.change);
        clsTavDB tavDB(world.Events());
        EXPECT_FALSE(tavDB.Init(world.Objects(), 2)) << unreadable.change;
        EXPECT_EQ(tavDB.Version, 7) << unreadable.change;
        EXPECT_THAT(world.Entries(), ElementsAre(unreadable.entry, kNoSupport));
    }
}

TEST(Version, AMissingTableGivesCodeSevenAndTwoEntries) {
    DbWorld world(DeviceSchema::None);
    clsTavDB tavDB(world.Events());
    EXPECT_FALSE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(tavDB.Version, 7);
    EXPECT_THAT(world.Entries(), ElementsAre(DatabaseEntry("DBlvi-00"), kNoSupport));
}

TEST(Version, FindVersionDoesNotKeepCodeSeven) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    world.Execute("DROP TABLE __version");
    EXPECT_EQ(tavDB.FindVersion(), 7);
    EXPECT_EQ(tavDB.Version, 5);
    EXPECT_THAT(world.Entries(), ElementsAre(DatabaseEntry("DBlvi-00")));
}

TEST(Version, YieldsOncePerRowReadAndOncePerItemWalked) {
    DbWorld world;
    world.Execute("INSERT INTO __version (Major, Minor) VALUES (1, 0), (0, 9)");
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(world.Events().yields, 6);
}

TEST(Version, WithoutAConnectionNothingCanBeRead) {
    DbWorld world;
    ASSERT_FALSE(world.Connect("nowhere"));
    clsTavDB tavDB(world.Events());
    EXPECT_FALSE(tavDB.Init(world.Objects(), 2));
    EXPECT_THAT(world.Entries(),
                ElementsAre(DatabaseEntry("CONNconn-02"),
                            EntryText("DBlvi-00", ErrorNumber::ObjectVariableNotSet), kNoSupport));
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(FacadeInit, WithoutOperationTwoReadsNothingAndIsFalse) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    EXPECT_FALSE(tavDB.Init(world.Objects()));
    EXPECT_FALSE(tavDB.Init(world.Objects(), 1));
    EXPECT_FALSE(tavDB.Init(world.Objects(), 3));
    EXPECT_EQ(tavDB.Version, 0);
    EXPECT_THAT(world.Statements(), IsEmpty());
    EXPECT_THAT(world.Entries(), IsEmpty());
    EXPECT_EQ(tavDB.GetCategoryID("Flow", kMajorCategory), "") << "it is not initialised";
}

TEST(FacadeInit, RefusesAnUnsupportedSchemaAndStaysUninitialised) {
    DbWorld world;
    world.Execute("UPDATE __version SET Major = 2");
    clsTavDB tavDB(world.Events());
    EXPECT_FALSE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(tavDB.Version, 6);
    EXPECT_EQ(tavDB.GetCategoryID("Flow", kMajorCategory), "");
    EXPECT_THAT(world.Entries(), ElementsAre(kNoSupport));
    EXPECT_THAT(world.Statements(), ElementsAre(kVersionRead));
}

TEST(FacadeInit, IsInitialisedOnceBothRecordsAre) {
    for (const DeviceSchema schema : {DeviceSchema::Old, DeviceSchema::Current}) {
        DbWorld world(schema);
        clsTavDB tavDB(world.Events());
        EXPECT_TRUE(tavDB.Init(world.Objects(), 2));
        EXPECT_EQ(tavDB.GetCategoryID("Flow", kMajorCategory), "3");
    }
}

TEST(FacadeInit, KeepsTheRecordsAndTheirFields) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    clsManufacturer& manufacturer = tavDB.Manufacturer();
    clsDevice& device = tavDB.Device();
    manufacturer.Name = "Acme";
    manufacturer.TAVMfrNameID = 12;
    device.DevName = "Flow";
    device.ManProtID = 34;
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(&tavDB.Manufacturer(), &manufacturer);
    EXPECT_EQ(&tavDB.Device(), &device);
    EXPECT_EQ(manufacturer.Name, "Acme");
    EXPECT_EQ(manufacturer.TAVMfrNameID, 12);
    EXPECT_EQ(device.DevName, "Flow");
    EXPECT_EQ(device.ManProtID, 34);
}

struct RowCounts {
    std::string name;
    int manufacturers;
    int deviceTypes;
    bool isEmpty;
};

void PrintTo(const RowCounts& row, std::ostream* out) {
    *out << row.name;
}

class Emptiness : public testing::TestWithParam<RowCounts> {
 protected:
    static void Fill(DbWorld& world, const std::string& table, int rows, const std::string& restOfRow) {
        for (int i = 1; i <= rows; ++i)
            world.Execute(std::string("INSERT INTO ")
                              .append(table)
                              .append(" VALUES (")
                              .append(std::to_string(i))
                              .append(restOfRow)
                              .append(")"));
    }
};

TEST_P(Emptiness, OfTheCurrentSchemaCountsManufacturersThenDeviceTypes) {
    DbWorld world;
    world.Loosen({"DeviceRevisions", "DeviceTypes"});
    Fill(world, "Manufacturers", GetParam().manufacturers, ", 'Acme', ''");
    Fill(world, "DeviceTypes", GetParam().deviceTypes, ", 1, '10', 'Flow', ''");
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    world.Statements();
    EXPECT_EQ(tavDB.IsEmpty(), std::optional(GetParam().isEmpty));
    EXPECT_THAT(world.Statements(),
                ElementsAre("SELECT *   FROM Manufacturers ", "SELECT *   FROM DeviceTypes "));
}

TEST_P(Emptiness, OfTheOldSchemaCountsMfrIdsThenDevTypes) {
    DbWorld world(DeviceSchema::Old);
    world.Loosen({"PDevices", "DevTypes"});
    Fill(world, "MfrIds", GetParam().manufacturers, ", 'Acme'");
    Fill(world, "DevTypes", GetParam().deviceTypes, ", 10, 'Flow'");
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    world.Statements();
    EXPECT_EQ(tavDB.IsEmpty(), std::optional(GetParam().isEmpty));
    EXPECT_THAT(world.Statements(), ElementsAre("SELECT *   FROM MfrIds ", "SELECT *   FROM DevTypes "));
}

INSTANTIATE_TEST_SUITE_P(Rows, Emptiness,
                         testing::Values(RowCounts{"None", 0, 0, true}, RowCounts{"OneEach", 1, 1, true},
                                         RowCounts{"TwoManufacturers", 2, 0, false},
                                         RowCounts{"TwoDeviceTypes", 1, 2, false},
                                         RowCounts{"TwoEach", 2, 2, false}),
                         RowName());

TEST(EmptinessCheck, AnErrorIsFalseAndIsLoggedWithItsStep) {
    struct Case {
        DeviceSchema schema;
        std::string missing;
        std::string tagAndStep;
        std::size_t statements;
    };
    for (const Case& failing : {Case{DeviceSchema::Current, "Manufacturers", "DBe1-01", 1},
                                Case{DeviceSchema::Current, "DeviceTypes", "DBe1-02", 2},
                                Case{DeviceSchema::Old, "MfrIds", "DBe0-01", 1},
                                Case{DeviceSchema::Old, "DevTypes", "DBe0-02", 2}}) {
        DbWorld world(failing.schema);
        world.Database().DropTable(failing.missing);
        clsTavDB tavDB(world.Events());
        ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
        world.Statements();
        EXPECT_EQ(tavDB.IsEmpty(), std::optional(false)) << failing.missing;
        EXPECT_THAT(world.Entries(), ElementsAre(DatabaseEntry(failing.tagAndStep)));
        EXPECT_EQ(world.Statements().size(), failing.statements);
    }
}

TEST(EmptinessCheck, WithoutAConnectionIsFalse) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    ASSERT_FALSE(world.Connect("nowhere"));
    EXPECT_EQ(tavDB.IsEmpty(), std::optional(false));
    tavDB.Version = 4;
    EXPECT_EQ(tavDB.IsEmpty(), std::optional(false));
    EXPECT_THAT(world.Entries(), ElementsAre(DatabaseEntry("CONNconn-02"),
                                             EntryText("DBe1-01", ErrorNumber::ObjectVariableNotSet),
                                             EntryText("DBe0-01", ErrorNumber::ObjectVariableNotSet)));
}

TEST(EmptinessCheck, OfAnyOtherCodeIsNothingWithoutAStatement) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    world.Statements();
    for (const std::int16_t code : std::initializer_list<std::int16_t>{0, 3, 6, 7}) {
        tavDB.Version = code;
        EXPECT_EQ(tavDB.IsEmpty(), std::nullopt) << code;
    }
    EXPECT_THAT(world.Statements(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
