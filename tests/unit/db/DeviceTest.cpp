// What the device record writes into the current schema: numbers, rows, statements.

#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNewFlow =
    "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) VALUES (1, "
    "1, "
    "'10', 'Flow', 'Flow meter') ";
constexpr const char* kNewR1 =
    "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, Name, "
    "Description) VALUES (1, 1, '1', 1, 'R1', 'First') ";

TEST_F(DeviceRecord, NewTypeIsWrittenBeforeItsRevisionAndBothAreNumberedOne) {
    EXPECT_TRUE(device_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchTypes, kNewFlow, kSearchRevisions, kNewR1));
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n") << "type 0A is hexadecimal";
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|1|R1|First\n") << "DD and protocol revision have no column";
    EXPECT_EQ(device_.TAVDevTypeID(), 1);
    EXPECT_EQ(device_.TAVDevRevID(), 1);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DeviceRecord, NewTypeGetsARevisionRowEvenWhenTheRevisionIsFound) {
    LoosenTables();
    Execute("INSERT INTO DeviceRevisions VALUES (5, 1, '1', 1, 'Left', 'over')");
    EXPECT_TRUE(device_.Insert());
    EXPECT_THAT(Statements(),
                ElementsAre(kSearchTypes, kNewFlow, kSearchRevisions,
                            "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
                            "DeviceCategoryId, Name, Description) VALUES (5, 1, '1', 1, 'R1', 'First') "));
    EXPECT_EQ(Rows("DeviceRevisions", "5"), "5|1|1|1|Left|over\n5|1|1|1|R1|First\n");
}

TEST_F(DeviceRecord, NewRevisionOfKnownTypeAddsOnlyTheRevisionRow) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    Execute("INSERT INTO DeviceRevisions VALUES (6, 4, '2', 0, 'R6', 'D6')");
    EXPECT_TRUE(device_.Insert());
    EXPECT_THAT(
        Statements(),
        ElementsAre(kSearchTypes,
                    "UPDATE DeviceTypes    SET Name = 'Flow',        Description = 'Flow meter'  WHERE "
                    "TavDevTypeId = 4 ",
                    kSearchRevisions,
                    "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
                    "DeviceCategoryId, Name, Description) VALUES (7, 4, '1', 1, 'R1', 'First') "));
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "6|4|2|0|R6|D6\n7|4|1|1|R1|First\n");
}

TEST_F(DeviceRecord, KnownTypeAndRevisionAreBothChanged) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    Execute("INSERT INTO DeviceRevisions VALUES (6, 4, '1', 0, 'R6', 'D6')");
    EXPECT_TRUE(device_.Insert());
    EXPECT_THAT(
        Statements(),
        ElementsAre(kSearchTypes,
                    "UPDATE DeviceTypes    SET Name = 'Flow',        Description = 'Flow meter'  WHERE "
                    "TavDevTypeId = 4 ",
                    kSearchRevisions,
                    "UPDATE DeviceRevisions    SET DeviceCategoryId = 1,        Name = 'R1',        "
                    "Description = 'First'  WHERE TavDevRevId = 6 "));
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "6|4|1|1|R1|First\n");
}

TEST_F(DeviceRecord, SameTypeNumberOfAnotherManufacturerIsNewAndNumberedBehindTheWholeTable) {
    Execute("INSERT INTO DeviceTypes VALUES (3, 2, '10', 'T3', 'D3'), (9, 1, '11', 'T9', 'D9')");
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "3|2|10|T3|D3\n9|1|11|T9|D9\n10|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|10|1|1|R1|First\n");
}

TEST_F(DeviceRecord, SameRevisionOfAnotherTypeIsNewAndNumberedBehindTheWholeTable) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4'), (5, 2, '10', 'T5', 'D5')");
    Execute("INSERT INTO DeviceRevisions VALUES (2, 5, '1', 0, 'R2', 'D2'), (8, 4, '3', 0, 'R8', 'D8')");
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("DeviceRevisions"), "2|5|1|0|R2|D2\n8|4|3|0|R8|D8\n9|4|1|1|R1|First\n");
}

TEST_F(DeviceRecord, TypeAndRevisionTextsAreComparedAsNumbers) {
    LoosenTables();
    Execute(
        "INSERT INTO DeviceTypes VALUES (4, 1, 'abc', '', ''), (5, 1, NULL, '', ''), (6, 1, '010 ', '', '')");
    Execute(
        "INSERT INTO DeviceRevisions VALUES (2, 6, 'x', 0, '', ''), (3, 6, NULL, 0, '', ''), "
        "(4, 6, ' 01', 0, '', '')");
    EXPECT_EQ(device_.TAVDevRevID(), 4);
    EXPECT_EQ(device_.TAVDevTypeID(), 6);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DeviceRecord, NumbersThatAreNoneAreLeftOutOfTheLargest) {
    LoosenTables();
    MakeText("DeviceTypes", "TavDevTypeId");
    MakeText("DeviceRevisions", "TavDevRevId");
    Execute(
        "INSERT INTO DeviceTypes VALUES (2, 1, '11', '', ''), (NULL, 1, '12', '', ''), ('x', 1, '13', '', "
        "'')");
    Execute(
        "INSERT INTO DeviceRevisions VALUES (7, 9, '1', 0, '', ''), (NULL, 9, '2', 0, '', ''), "
        "('x', 9, '3', 0, '', '')");
    EXPECT_EQ(device_.TAVDevTypeID(), 3);
    EXPECT_EQ(device_.TAVDevRevID(), 8);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DeviceRecord, SearchesYieldOncePerRowAndStopAtTheMatch) {
    LoosenTables();
    Execute(
        "INSERT INTO DeviceTypes VALUES (1, 1, '1', '', ''), (2, 1, '2', '', ''), (3, 1, '10', '', ''), "
        "(40000, 1, '10', '', '')");
    Execute(
        "INSERT INTO DeviceRevisions VALUES (1, 1, '1', 0, '', ''), (2, 3, '1', 0, '', ''), "
        "(40000, 3, '1', 0, '', '')");
    EXPECT_EQ(device_.TAVDevTypeID(), 3);
    EXPECT_EQ(world_.Events().yields, 2) << "two rows before the match";
    EXPECT_EQ(device_.TAVDevRevID(), 2);
    EXPECT_EQ(world_.Events().yields, 3);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DeviceRecord, SearchOfANewOneYieldsForEveryRow) {
    LoosenTables();
    Execute("INSERT INTO DeviceTypes VALUES (1, 1, '1', '', ''), (2, 1, '2', '', '')");
    Execute(
        "INSERT INTO DeviceRevisions VALUES (1, 1, '1', 0, '', ''), (2, 1, '2', 0, '', ''), "
        "(3, 1, '3', 0, '', '')");
    EXPECT_EQ(device_.TAVDevRevID(), 4);
    EXPECT_EQ(world_.Events().yields, 2 + 3);
}

TEST_F(DeviceRecord, RevisionNumberByItselfSearchesTheTypeFirstAndBothOnce) {
    EXPECT_EQ(device_.TAVDevRevID(), 1);
    EXPECT_THAT(Statements(), ElementsAre(kSearchTypes, kSearchRevisions));
    EXPECT_EQ(device_.TAVDevTypeID(), 1);
    EXPECT_EQ(device_.TAVDevRevID(), 1);
    EXPECT_THAT(Statements(), IsEmpty());
}

TEST_F(DeviceRecord, SecondInsertOfANewOneRepeatsBothInsertsWithTheSameNumbers) {
    LoosenTables();
    EXPECT_TRUE(device_.Insert());
    Statements();
    device_.DevID = "0B";
    device_.DevRev = "02";
    EXPECT_TRUE(device_.Insert());
    EXPECT_THAT(
        Statements(),
        ElementsAre(
            "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) "
            "VALUES (1, 1, '11', 'Flow', 'Flow meter') ",
            "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
            "DeviceCategoryId, Name, Description) VALUES (1, 1, '2', 1, 'R1', 'First') "));
    EXPECT_EQ(Rows("DeviceTypes", "3"), "1|1|10|Flow|Flow meter\n1|1|11|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions", "3"), "1|1|1|1|R1|First\n1|1|2|1|R1|First\n");
}

TEST_F(DeviceRecord, SecondInsertOfAKnownOneChangesTheFirstOnesRows) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    Execute("INSERT INTO DeviceRevisions VALUES (6, 4, '1', 0, 'R6', 'D6')");
    EXPECT_TRUE(device_.Insert());
    Statements();
    device_.DevID = "0B";
    device_.DevRev = "02";
    device_.DevName = "Level";
    device_.RevName = "R2";
    EXPECT_TRUE(device_.Insert());
    EXPECT_THAT(Statements(),
                ElementsAre("UPDATE DeviceTypes    SET Name = 'Level',        Description = 'Flow "
                            "meter'  WHERE TavDevTypeId = 4 ",
                            "UPDATE DeviceRevisions    SET DeviceCategoryId = 1,        Name = "
                            "'R2',        Description = 'First'  WHERE TavDevRevId = 6 "));
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|Level|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "6|4|1|1|R2|First\n");
}

TEST_F(DeviceRecord, ForgottenNumbersAreSearchedAgain) {
    EXPECT_TRUE(device_.Insert());
    Statements();
    device_.DevRev = "02";
    device_.ForgetNumbers();
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|1|R1|First\n2|1|2|1|R1|First\n");
}

struct CategoryRow {
    const char* name;
    const char* catID;
    const char* filled;
};

class DeviceCategoryNumber : public DeviceRecord, public testing::WithParamInterface<CategoryRow> {};

TEST_P(DeviceCategoryNumber, IsFilledBareAsItsNumericValue) {
    device_.CatID = GetParam().catID;
    const std::string filled = GetParam().filled;
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(
        Statements().back(),
        "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, DeviceCategoryId, "
        "Name, Description) VALUES (1, 1, '1', " +
            filled + ", 'R1', 'First') ");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|" + filled + "|R1|First\n");

    clsDevice again(world_.Events());
    FillDevice(again);
    again.ManProtID = 1;
    again.CatID = GetParam().catID;
    EXPECT_TRUE(again.Init(world_.Objects(), kCurrentSchema, 2));
    EXPECT_TRUE(again.Insert());
    EXPECT_EQ(Statements().back(),
              "UPDATE DeviceRevisions    SET DeviceCategoryId = " + filled +
                  ",        Name = 'R1',        Description = 'First'  WHERE TavDevRevId "
                  "= 1 ");
}

INSTANTIATE_TEST_SUITE_P(, DeviceCategoryNumber,
                         testing::Values(CategoryRow{"Empty", "", "0"}, CategoryRow{"Zero", "0", "0"},
                                         CategoryRow{"Seven", "7", "7"}),
                         RowName());

TEST_F(DeviceRecord, OptionalArgumentIsKeptAndChangesNothing) {
    device_.NoName = 9;
    EXPECT_TRUE(device_.Insert(3));
    EXPECT_EQ(device_.NoName, 3);
    EXPECT_THAT(Statements(), ElementsAre(kSearchTypes, kNewFlow, kSearchRevisions, kNewR1));
    EXPECT_FALSE(device_.Insert()) << "the same rows again";
    EXPECT_EQ(device_.NoName, 0);
}

TEST_F(DeviceRecord, OtherSchemaCodesWriteNothingAndGiveTrue) {
    for (const std::int16_t code : std::vector<std::int16_t>{0, 6, 7}) {
        Prepare(code);
        EXPECT_TRUE(device_.Insert()) << code;
        EXPECT_TRUE(device_.Delete()) << code;
    }
    EXPECT_THAT(Statements(), IsEmpty());
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DeviceRecord, InitGivesTrueForOperationTwoOnlyAndKeepsObjectsAndCodeAlways) {
    for (const std::optional<std::int16_t>& operation : std::vector<std::optional<std::int16_t>>{{}, 1, 3}) {
        clsDevice device(world_.Events());
        EXPECT_FALSE(device.Init(world_.Objects(), kCurrentSchema, operation));
        EXPECT_TRUE(device.Delete());
        EXPECT_THAT(Statements(), ElementsAre("delete   from DeviceRevisions  where TavDevRevId = 1 ",
                                              "delete   from DeviceTypes  where TavDevTypeId = 1 "));
    }
}

TEST_F(DeviceRecord, InitChangesNoField) {
    device_.MajCatID = "3";
    device_.MinCatID = "4";
    device_.ODevId = "5";
    device_.ODevRev = "6";
    device_.OManID = "7";
    device_.NoName = 8;
    EXPECT_TRUE(device_.Init(world_.Objects(), kCurrentSchema, 2));
    const std::vector<std::string> fields{device_.ManID,  device_.DevID,   device_.DevName,  device_.DevDesc,
                                          device_.DevRev, device_.RevName, device_.RevDesc,  device_.DDRev,
                                          device_.CatID,  device_.ProtRev, device_.MajCatID, device_.MinCatID,
                                          device_.ODevId, device_.ODevRev, device_.OManID};
    EXPECT_THAT(fields, ElementsAre("26", "0A", "Flow", "Flow meter", "01", "R1", "First", "02", "1", "05",
                                    "3", "4", "5", "6", "7"));
    EXPECT_EQ(device_.ManProtID, 1);
    EXPECT_EQ(device_.NoName, 8);
    EXPECT_THAT(Statements(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
