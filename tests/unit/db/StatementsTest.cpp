#include "db/Statements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "db/clsTavDB.h"
#include "support/DbWorld.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

struct TemplateRow {
    std::string name;
    std::string_view statement;
    std::string_view text;
};

void PrintTo(const TemplateRow& row, std::ostream* out) {
    *out << row.name;
}

class StatementTemplate : public testing::TestWithParam<TemplateRow> {};

TEST_P(StatementTemplate, IsThisTextByteForByte) {
    EXPECT_EQ(GetParam().statement, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, StatementTemplate,
    testing::Values(
        TemplateRow{"VersionRows", statements::kVersionRows,
                    "SELECT *   FROM __version  ORDER BY Major, Minor "},
        TemplateRow{"WholeTable", statements::kWholeTable, "SELECT *   FROM ? "},
        TemplateRow{"SearchedTable", statements::kSearchedTable, "select *   from ? "},
        TemplateRow{"Protocols", statements::kProtocols,
                    "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId "},
        TemplateRow{
            "MajorCategories", statements::kMajorCategories,
            "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  "
            "ORDER BY MajorDevicecategoryId "},
        TemplateRow{
            "MinorCategories", statements::kMinorCategories,
            "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  "
            "ORDER BY MinorDevicecategoryId "},
        TemplateRow{"DeviceCategories", statements::kDeviceCategories,
                    "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId "},
        TemplateRow{"NewMajorCategory", statements::kNewMajorCategory,
                    "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, Description) "
                    "VALUES ('?', '?', '?') "},
        TemplateRow{"NewMinorCategory", statements::kNewMinorCategory,
                    "INSERT INTO MinorDeviceCategories        (MinorDeviceCategoryId, Name, Description) "
                    "VALUES ('?', '?', '?') "},
        TemplateRow{"NewDeviceCategory", statements::kNewDeviceCategory,
                    "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
                    "MinorDeviceCategoryId) VALUES ('?', '?', '?') "},
        TemplateRow{"NewManufacturer", statements::kNewManufacturer,
                    "INSERT INTO ?        (TavMfrNameId, Name, Description) VALUES (?, '?', '?') "},
        TemplateRow{"ChangeManufacturer", statements::kChangeManufacturer,
                    "update ?    set Name = '?',        Description = '?'  where TAVMfrNameID = ? "},
        TemplateRow{"NewManufacturerProtocol", statements::kNewManufacturerProtocol,
                    "INSERT INTO ?        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (?, ?, ?, "
                    "'?') "},
        TemplateRow{
            "NewDeviceType", statements::kNewDeviceType,
            "INSERT INTO ?        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) VALUES "
            "(?, ?, '?', '?', '?') "},
        TemplateRow{
            "NewDeviceRevision", statements::kNewDeviceRevision,
            "INSERT INTO ?        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, Name, "
            "Description) VALUES (?, ?, '?', ?, '?', '?') "},
        TemplateRow{"ChangeDeviceType", statements::kChangeDeviceType,
                    "UPDATE ?    SET Name = '?',        Description = '?'  WHERE TavDevTypeId = ? "},
        TemplateRow{
            "ChangeDeviceRevision", statements::kChangeDeviceRevision,
            "UPDATE ?    SET DeviceCategoryId = ?,        Name = '?',        Description = '?'  WHERE "
            "TavDevRevId = ? "},
        TemplateRow{"DeleteRowOne", statements::kDeleteRowOne, "delete   from ?  where ? = 1 "},
        TemplateRow{"DeleteOldManufacturer", statements::kDeleteOldManufacturer,
                    "delete   from ?  where DevMfrId = ? "},
        TemplateRow{"DeleteOldDeviceType", statements::kDeleteOldDeviceType,
                    "delete   from ?  where DevMfrId = ?    and DevType = ? "},
        TemplateRow{"DeleteOldDeviceRevision", statements::kDeleteOldDeviceRevision,
                    "delete   from ?  where UDevRevId = ? "}),
    RowName());

TEST(Statements, FillKeepsEveryBlankAndTheLetterCase) {
    EXPECT_EQ(
        statements::Fill(statements::kNewManufacturerProtocol, {"MfrProtocols", "8", "4", "3", "38"}),
        "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (8, 4, "
        "3, '38') ");
    EXPECT_EQ(statements::Fill(statements::kSearchedTable, {"DeviceTypes"}), "select *   from DeviceTypes ");
    EXPECT_EQ(statements::Fill(statements::kDeleteOldDeviceType, {"DevTypes", "38", "7"}),
              "delete   from DevTypes  where DevMfrId = 38    and DevType = 7 ");
}

TEST(Statements, AQuestionMarkInAValueTakesTheNextValueInItsPlace) {
    EXPECT_EQ(statements::Fill(statements::kNewManufacturer, {"Manufacturers", "7", "A?B", "D"}),
              "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'ADB', '?') ");
    EXPECT_EQ(statements::Fill(statements::kNewManufacturer, {"Manufacturers", "7", "A??", "D"}),
              "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'AD?', '?') ");
}

TEST(Statements, FillDoublesNoApostrophe) {
    EXPECT_EQ(
        statements::Fill(statements::kNewManufacturer, {"Manufacturers", "7", "O'Neil", "D"}),
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'O'Neil', 'D') ");
}

TEST(Statements, AValueThatEndsInABlankIsFilledAsItStands) {
    EXPECT_EQ(
        statements::Fill(statements::kNewManufacturer, {"Manufacturers", "7", "Acme ", " D "}),
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, 'Acme ', ' D ') ");
}

TEST(Statements, EveryChangeIsCommittedByItself) {
    DbWorld world;
    world.Connection().DB()->Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', 'Acme Inc') ");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n")
        << "another connection sees the row while the program's is open";
    EXPECT_THROW(world.Connection().DB()->Execute("INSERT INTO Manufacturers VALUES (1, 'Other', '') "),
                 RunTimeError);
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n")
        << "a failed statement takes nothing back";
    EXPECT_THAT(world.Statements(), ElementsAre("INSERT INTO Manufacturers VALUES (1, 'Acme', 'Acme Inc') ",
                                                "INSERT INTO Manufacturers VALUES (1, 'Other', '') "));
}

TEST(Statements, AnUpdateThatHitsNoRowIsSuccess) {
    DbWorld world;
    world.Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', 'Acme Inc')");
    const std::string statement =
        statements::Fill(statements::kChangeManufacturer, {"Manufacturers", "New", "Desc", "2"});
    EXPECT_NO_THROW(world.Connection().DB()->Execute(statement));
    EXPECT_THAT(world.Statements(), ElementsAre("update Manufacturers    set Name = 'New',        "
                                                "Description = 'Desc'  where TAVMfrNameID = 2 "));
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_THAT(world.Journal().Diagnostics(), testing::IsEmpty());
}

TEST(Statements, NamesOutsideTheSystemsCodePageReachTheDatabaseUnchanged) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    world.Statements();
    EXPECT_EQ(tavDB.GetCategoryID("Ventil Ω 阀 😀", kMajorCategory), "10");
    EXPECT_EQ(
        world.Statements().back(),
        "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, Description) VALUES ('10', "
        "'Ventil Ω 阀 😀', '') ");
    EXPECT_EQ(world.Rows("SELECT Name FROM MajorDeviceCategories WHERE MajorDeviceCategoryId = 10"),
              "Ventil Ω 阀 😀\n");
}

}  // namespace
}  // namespace ventlock::test
