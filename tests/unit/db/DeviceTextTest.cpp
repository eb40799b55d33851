// Question marks and apostrophes in the device's texts.

#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DeviceRecord, MarkInANewTypesNameTakesTheDescription) {
    device_.DevName = "F?w";
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Statements()[1],
              "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) "
              "VALUES (1, 1, '10', 'FFlow meterw', '?') ");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|FFlow meterw|?\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|1|R1|First\n");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DeviceRecord, MarkInANewRevisionsNameTakesTheDescription) {
    device_.RevName = "R?";
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(
        Statements().back(),
        "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, "
        "Name, Description) VALUES (1, 1, '1', 1, 'RFirst', '?') ");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|1|RFirst|?\n");
}

/// Texts of a device whose type is 4 and whose revision is 5, all of which make a change fail.
struct ChangeRow {
    const char* name;
    std::string clsDevice::*field;
    const char* value;
    std::vector<std::string> changes;
    const char* step;
};

class KnownDeviceText : public DeviceRecord, public testing::WithParamInterface<ChangeRow> {};

TEST_P(KnownDeviceText, FailsAndChangesNothingFromThere) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    Execute("INSERT INTO DeviceRevisions VALUES (5, 4, '1', 0, 'R5', 'D5')");
    device_.CatID = "12";
    device_.RevDesc = "Rd";
    device_.*GetParam().field = GetParam().value;
    EXPECT_FALSE(device_.Insert());

    std::vector<std::string> expected{kSearchTypes, GetParam().changes[0]};
    const bool typeIsChanged = GetParam().changes.size() == 2;
    if (typeIsChanged) {
        expected.emplace_back(kSearchRevisions);
        expected.push_back(GetParam().changes[1]);
    }
    EXPECT_EQ(Statements(), expected);
    EXPECT_EQ(Rows("DeviceTypes"), typeIsChanged ? "4|1|10|Flow|Flow meter\n" : "4|1|10|T4|D4\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "5|4|1|0|R5|D5\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry(GetParam().step)));
}

constexpr const char* kChangeFlow4 =
    "UPDATE DeviceTypes    SET Name = 'Flow',        Description = 'Flow meter'  WHERE TavDevTypeId = 4 ";

INSTANTIATE_TEST_SUITE_P(
    , KnownDeviceText,
    testing::Values(
        ChangeRow{
            "MarkInTheTypesName",
            &clsDevice::DevName,
            "F?",
            {"UPDATE DeviceTypes    SET Name = 'FFlow meter',        Description = '4'  WHERE TavDevTypeId "
             "= ? "},
            "DEVins-03.3"},
        ChangeRow{
            "MarkInTheTypesDescription",
            &clsDevice::DevDesc,
            "D?",
            {"UPDATE DeviceTypes    SET Name = 'Flow',        Description = 'D4'  WHERE TavDevTypeId = ? "},
            "DEVins-03.3"},
        ChangeRow{"ApostropheInTheTypesName",
                  &clsDevice::DevName,
                  "F'w",
                  {"UPDATE DeviceTypes    SET Name = 'F'w',        Description = 'Flow meter'  WHERE "
                   "TavDevTypeId = 4 "},
                  "DEVins-03.3"},
        ChangeRow{
            "MarkInTheRevisionsName",
            &clsDevice::RevName,
            "R?",
            {kChangeFlow4,
             "UPDATE DeviceRevisions    SET DeviceCategoryId = 12,        Name = 'RRd',        Description "
             "= '5'  WHERE TavDevRevId = ? "},
            "DEVins-03.4b"},
        ChangeRow{
            "ApostropheInTheRevisionsName",
            &clsDevice::RevName,
            "R'1",
            {kChangeFlow4,
             "UPDATE DeviceRevisions    SET DeviceCategoryId = 12,        Name = 'R'1',        Description "
             "= 'Rd'  WHERE TavDevRevId = 5 "},
            "DEVins-03.4b"}),
    RowName());

TEST_F(DeviceRecord, ApostropheInANewTypesDescriptionWritesNoRow) {
    device_.DevDesc = "Meter's";
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchTypes,
                                          "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, "
                                          "DeviceType, Name, Description) VALUES (1, 1, '10', 'Flow', "
                                          "'Meter's') "));
    EXPECT_EQ(Rows("DeviceTypes"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-03.1")));
}

TEST_F(DeviceRecord, ApostropheInANewRevisionsDescriptionWritesNoRevision) {
    device_.RevDesc = "It's";
    EXPECT_FALSE(device_.Insert());
    EXPECT_EQ(
        Statements().back(),
        "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, "
        "Name, Description) VALUES (1, 1, '1', 1, 'R1', 'It's') ");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-03.2")));
}

}  // namespace
}  // namespace ventlock::test
