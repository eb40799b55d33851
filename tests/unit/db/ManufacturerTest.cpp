// What the manufacturer record writes: numbers, rows, statements.

#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr const char* kChangeAcme4 =
    "update Manufacturers    set Name = 'Acme',        Description = 'Acme Inc'  where TAVMfrNameID = 4 ";

TEST_F(ManufacturerRecord, FirstManufacturerIsWrittenBeforeItsProtocolAndBothAreNumberedOne) {
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols,
                                          "INSERT INTO Manufacturers        (TavMfrNameId, Name, "
                                          "Description) VALUES (1, 'Acme', 'Acme Inc') ",
                                          "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, "
                                          "ProtocolId, MfrId) VALUES (1, 1, 1, '38') "));
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n") << "id 26 is hexadecimal";
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    EXPECT_EQ(manufacturer_.TAVMfrNameID, 1);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(ManufacturerRecord, NamesReachTheTableUnchanged) {
    manufacturer_.Name = "Ωmega 温度 \xF0\x9F\x98\x80 ";
    manufacturer_.Desc = "";
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(Rows("Manufacturers"), "1|Ωmega 温度 \xF0\x9F\x98\x80 |\n");
}

/// An entry against the rows (2,4,1,'38'), (7,4,2,'38'), (3,9,1,'17').
struct NumberRow {
    const char* name;
    const char* manufacturer;
    const char* protocol;
    std::int16_t id;
    std::int16_t nameID;
    std::int16_t protocolFound;
    std::int16_t nameFound;
    std::vector<std::string> statements;
    std::string manufacturers;
    std::string protocols;
};

class ManufacturerNumbers : public ManufacturerRecord, public testing::WithParamInterface<NumberRow> {};

TEST_P(ManufacturerNumbers, ComeFromTheProtocolTableOnly) {
    LoosenTables();
    Execute("INSERT INTO MfrProtocols VALUES (2, 4, 1, '38'), (7, 4, 2, '38'), (3, 9, 1, '17')");
    Execute("INSERT INTO Manufacturers VALUES (4, 'M4', 'D4'), (9, 'M9', 'D9'), (25, 'M25', 'D25')");
    manufacturer_.ManID = GetParam().manufacturer;
    manufacturer_.ProtID = GetParam().protocol;

    EXPECT_EQ(manufacturer_.MfrProtocolID(), GetParam().id);
    EXPECT_EQ(manufacturer_.TAVMfrNameID, GetParam().nameID);
    EXPECT_EQ(manufacturer_.MfrProtocolFound, GetParam().protocolFound);
    EXPECT_EQ(manufacturer_.MfrNameFound, GetParam().nameFound);
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols));

    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAreArray(GetParam().statements));
    EXPECT_EQ(Rows("Manufacturers"), GetParam().manufacturers);
    EXPECT_EQ(Rows("MfrProtocols"), "2|4|1|38\n3|9|1|17\n7|4|2|38\n" + GetParam().protocols);
}

INSTANTIATE_TEST_SUITE_P(
    , ManufacturerNumbers,
    testing::Values(
        NumberRow{"KnownWithItsProtocol",
                  "26",
                  "1",
                  2,
                  4,
                  1,
                  0,
                  {kChangeAcme4},
                  "4|Acme|Acme Inc\n9|M9|D9\n25|M25|D25\n",
                  ""},
        NumberRow{"KnownWithAnotherProtocol",
                  "26",
                  "3",
                  8,
                  4,
                  0,
                  1,
                  {kChangeAcme4,
                   "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES "
                   "(8, 4, 3, '38') "},
                  "4|Acme|Acme Inc\n9|M9|D9\n25|M25|D25\n",
                  "8|4|3|38\n"},
        NumberRow{"New",
                  "27",
                  "1",
                  8,
                  10,
                  0,
                  0,
                  {"INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (10, 'Acme', "
                   "'Acme Inc') ",
                   "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES "
                   "(8, 10, 1, '39') "},
                  "4|M4|D4\n9|M9|D9\n10|Acme|Acme Inc\n25|M25|D25\n",
                  "8|10|1|39\n"},
        NumberRow{"OtherKnownWithAnotherProtocol",
                  "11",
                  "2",
                  8,
                  9,
                  0,
                  1,
                  {"update Manufacturers    set Name = 'Acme',        Description = 'Acme Inc'  where "
                   "TAVMfrNameID = 9 ",
                   "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES "
                   "(8, 9, 2, '17') "},
                  "4|M4|D4\n9|Acme|Acme Inc\n25|M25|D25\n",
                  "8|9|2|17\n"}),
    RowName());

TEST_F(ManufacturerRecord, NumberOfAKnownManufacturerIsItsLastRowsAndOthersDoNotCount) {
    LoosenTables();
    Execute("INSERT INTO MfrProtocols VALUES (1, 40, 1, '38'), (2, 6, 2, '38'), (3, 80, 1, '17')");
    manufacturer_.ProtID = "3";
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 4);
    EXPECT_EQ(manufacturer_.TAVMfrNameID, 6);
    EXPECT_EQ(manufacturer_.MfrProtocolFound, 0);
    EXPECT_EQ(manufacturer_.MfrNameFound, 1);
}

TEST_F(ManufacturerRecord, WalkStopsAtTheMatch) {
    LoosenTables();
    Execute(
        "INSERT INTO MfrProtocols VALUES (1, 4, 2, '38'), (2, 6, 1, '38'), (40000, 5, 3, '38'), "
        "(NULL, NULL, 1, '38')");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 2);
    EXPECT_EQ(manufacturer_.TAVMfrNameID, 6);
    EXPECT_EQ(manufacturer_.MfrProtocolFound, 1);
    EXPECT_EQ(manufacturer_.MfrNameFound, 1);
    EXPECT_EQ(world_.Events().yields, 1) << "one row before the match";
    EXPECT_THAT(Entries(), IsEmpty()) << "the rows behind the match cannot be numbers";
}

TEST_F(ManufacturerRecord, TakesAStoredNumberOfZero) {
    LoosenTables();
    Execute("INSERT INTO MfrProtocols VALUES (0, 6, 1, '38')");
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols, testing::StartsWith("update Manufacturers ")));
}

TEST_F(ManufacturerRecord, SearchYieldsOncePerRow) {
    LoosenTables();
    Execute("INSERT INTO MfrProtocols VALUES (1, 1, 1, '17'), (2, 1, 2, '17'), (3, 2, 1, '18')");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 4);
    EXPECT_EQ(world_.Events().yields, 3);
}

TEST_F(ManufacturerRecord, NumbersThatAreNoneAreLeftOutOfTheLargest) {
    LoosenTables();
    MakeText("MfrProtocols", "MfrProtocolId");
    MakeText("MfrProtocols", "TavMfrNameId");
    Execute("INSERT INTO MfrProtocols VALUES (3, 5, 1, '17'), (NULL, NULL, 1, '18'), ('x', 'y', 1, '19')");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 4);
    EXPECT_EQ(manufacturer_.TAVMfrNameID, 6);
    EXPECT_THAT(Entries(), IsEmpty());
}

struct IdTextRow {
    const char* name;
    const char* mfrId;
    std::int16_t found;
};

class ManufacturerIdText : public ManufacturerRecord, public testing::WithParamInterface<IdTextRow> {};

TEST_P(ManufacturerIdText, IsComparedAsANumber) {
    LoosenTables();
    Execute(std::string("INSERT INTO MfrProtocols VALUES (3, 5, 1, ") + GetParam().mfrId + ")");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), GetParam().found != 0 ? 3 : 4);
    EXPECT_EQ(manufacturer_.MfrProtocolFound, GetParam().found);
    EXPECT_EQ(manufacturer_.MfrNameFound, 0);
    EXPECT_THAT(Entries(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, ManufacturerIdText,
                         testing::Values(IdTextRow{"Plain", "'38'", 1}, IdTextRow{"LeadingZero", "'038'", 1},
                                         IdTextRow{"BlanksBehind", "'38  '", 1},
                                         IdTextRow{"NoNumber", "'abc'", 0},
                                         IdTextRow{"NumberAndMore", "'38x'", 0}, IdTextRow{"Null", "NULL", 0},
                                         IdTextRow{"Empty", "''", 0}, IdTextRow{"Hexadecimal", "'26'", 0}),
                         RowName());

struct ProtocolTextRow {
    const char* name;
    const char* protID;
    const char* filled;
};

class ManufacturerProtocolText : public ManufacturerRecord,
                                 public testing::WithParamInterface<ProtocolTextRow> {};

TEST_P(ManufacturerProtocolText, IsFilledAsItsNumericValue) {
    manufacturer_.ProtID = GetParam().protID;
    EXPECT_TRUE(manufacturer_.Insert());
    const std::string filled = GetParam().filled;
    EXPECT_EQ(
        Statements().back(),
        "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (1, 1, " +
            filled + ", '38') ");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|" + filled + "|38\n");
}

INSTANTIATE_TEST_SUITE_P(, ManufacturerProtocolText,
                         testing::Values(ProtocolTextRow{"Empty", "", "0"},
                                         ProtocolTextRow{"Number", "2", "2"},
                                         ProtocolTextRow{"Blank", " 2 ", "2"},
                                         ProtocolTextRow{"NumberAndMore", "1x", "1"}),
                         RowName());

TEST_F(ManufacturerRecord, OtherSchemaCodesWriteNothingAndGiveTrue) {
    for (const std::int16_t code : std::vector<std::int16_t>{0, 6, 7}) {
        Prepare(code);
        EXPECT_TRUE(manufacturer_.Insert()) << code;
        EXPECT_TRUE(manufacturer_.Delete()) << code;
    }
    EXPECT_THAT(Statements(), IsEmpty());
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(ManufacturerRecord, InitGivesTrueForOperationTwoOnlyAndKeepsObjectsAndCodeAlways) {
    for (const std::optional<std::int16_t>& operation : std::vector<std::optional<std::int16_t>>{{}, 1, 3}) {
        DbWorld world;
        clsManufacturer manufacturer(world.Events());
        FillManufacturer(manufacturer);
        EXPECT_FALSE(manufacturer.Init(world.Objects(), 5, operation));
        EXPECT_TRUE(manufacturer.Insert());
        EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|1|38\n");
    }
}

TEST_F(ManufacturerRecord, InitChangesNoField) {
    manufacturer_.OManID = "27";
    manufacturer_.TAVMfrNameID = 7;
    manufacturer_.MfrNameFound = 1;
    manufacturer_.MfrProtocolFound = 1;
    EXPECT_TRUE(manufacturer_.Init(world_.Objects(), 5, 2));
    EXPECT_EQ(manufacturer_.ManID, "26");
    EXPECT_EQ(manufacturer_.Name, "Acme");
    EXPECT_EQ(manufacturer_.Desc, "Acme Inc");
    EXPECT_EQ(manufacturer_.ProtID, "1");
    EXPECT_EQ(manufacturer_.OManID, "27");
    EXPECT_EQ(manufacturer_.TAVMfrNameID, 7);
    EXPECT_EQ(manufacturer_.MfrNameFound, 1);
    EXPECT_EQ(manufacturer_.MfrProtocolFound, 1);
    EXPECT_THAT(Statements(), IsEmpty());
}

TEST_F(OldManufacturerRecord, IsOneRowWithTheNumberOfItsIdAndItsNameWithoutAnySearch) {
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre("INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)"));
    EXPECT_THAT(BoundValues(), ElementsAre("DevMfrId=38", "MfrIdName='Acme'"));
    EXPECT_EQ(Rows("MfrIds"), "38|Acme\n");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(OldManufacturerRecord, ExistingRowIsNotUpdated) {
    Execute("INSERT INTO MfrIds VALUES (38, 'Before')");
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre("INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)"));
    EXPECT_EQ(Rows("MfrIds"), "38|Before\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-01")));
}

TEST_F(OldManufacturerRecord, ApostrophesAndQuestionMarksAreStoredUnchanged) {
    manufacturer_.Name = "O'Neil? ";
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(Rows("MfrIds"), "38|O'Neil? \n");
}

}  // namespace
}  // namespace ventlock::test
