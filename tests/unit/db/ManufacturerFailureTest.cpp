// What the manufacturer record leaves and reports when a search or a statement fails.

#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SearchRow {
    const char* name;
    const char* row;
    const char* step;
    ErrorNumber number;
};

class ManufacturerSearchFailure : public ManufacturerRecord, public testing::WithParamInterface<SearchRow> {};

TEST_P(ManufacturerSearchFailure, KeepsNoNumberAndWritesNothing) {
    LoosenTables();
    MakeText("MfrProtocols", "MfrProtocolId");
    MakeText("MfrProtocols", "TavMfrNameId");
    Execute(std::string("INSERT INTO MfrProtocols VALUES ") + GetParam().row);
    const std::string before = Rows("MfrProtocols");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 0);
    EXPECT_FALSE(manufacturer_.HasMfrProtocolID());
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols, kSearchProtocols));
    EXPECT_EQ(Rows("MfrProtocols"), before);
    EXPECT_EQ(Rows("Manufacturers"), "");
    const std::string entry = EntryText(GetParam().step, GetParam().number);
    EXPECT_THAT(Entries(), ElementsAre(entry, entry));
}

INSTANTIATE_TEST_SUITE_P(
    , ManufacturerSearchFailure,
    testing::Values(
        SearchRow{"LargestNumber", "(32767, 4, 1, '17')", "MANmpid-02", ErrorNumber::Overflow},
        SearchRow{"LargestName", "(3, 32767, 1, '17')", "MANmpid-02", ErrorNumber::Overflow},
        SearchRow{"NumberTooLarge", "(32768, 4, 1, '17')", "MANmpid-01.1c", ErrorNumber::Overflow},
        SearchRow{"NameTooLarge", "(3, 32768, 1, '17')", "MANmpid-01.1b", ErrorNumber::Overflow},
        SearchRow{"OwnNameTooLarge", "(3, 32768, 2, '38')", "MANmpid-01.1b", ErrorNumber::Overflow},
        SearchRow{"OwnNameNull", "(3, NULL, 2, '38')", "MANmpid-01.1b", ErrorNumber::InvalidUseOfNull},
        SearchRow{"OwnNameNoNumber", "(3, 'x', 2, '38')", "MANmpid-01.1b", ErrorNumber::TypeMismatch},
        SearchRow{"MatchTooLarge", "(32768, 4, 1, '38')", "MANmpid-01.1a", ErrorNumber::Overflow},
        SearchRow{"MatchNull", "(NULL, 4, 1, '38')", "MANmpid-01.1a", ErrorNumber::InvalidUseOfNull},
        SearchRow{"MatchNoNumber", "('x', 4, 1, '38')", "MANmpid-01.1a", ErrorNumber::TypeMismatch},
        SearchRow{"MatchNameTooLarge", "(3, 32768, 1, '38')", "MANmpid-01.1a", ErrorNumber::Overflow},
        SearchRow{"MatchNameNull", "(3, NULL, 1, '38')", "MANmpid-01.1a", ErrorNumber::InvalidUseOfNull}),
    RowName());

TEST_F(ManufacturerRecord, NumberSearchedAgainAfterAFailureIsKept) {
    LoosenTables();
    Execute("INSERT INTO MfrProtocols VALUES (32767, 4, 1, '17')");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 0);
    Execute("UPDATE MfrProtocols SET MfrProtocolId = 32766");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 32767);
    EXPECT_EQ(manufacturer_.TAVMfrNameID, 5);
    EXPECT_TRUE(manufacturer_.HasMfrProtocolID());
}

TEST_F(ManufacturerRecord, MissingTableOrColumnFailsTheSearch) {
    Execute("ALTER TABLE MfrProtocols RENAME TO Elsewhere");
    EXPECT_FALSE(manufacturer_.Insert());
    Execute("CREATE TABLE MfrProtocols (MfrProtocolId INTEGER)");
    Execute("INSERT INTO MfrProtocols VALUES (1)");
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols, kSearchProtocols));
    EXPECT_EQ(Rows("Manufacturers"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANmpid-01"),
                                       "MANmpid-01.1: Item not found in this collection. MfrId (3265)"));
}

TEST_F(ManufacturerRecord, RefusedManufacturerEndsTheInsertBeforeItsProtocol) {
    manufacturer_.Name = std::string(65, 'A');
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols,
                                          "INSERT INTO Manufacturers        (TavMfrNameId, Name, "
                                          "Description) VALUES (1, '" +
                                              std::string(65, 'A') + "', 'Acme Inc') "));
    EXPECT_EQ(Rows("Manufacturers"), "");
    EXPECT_EQ(Rows("MfrProtocols"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-02.1a")));
}

TEST_F(ManufacturerRecord, RefusedChangeOfAKnownOneEndsTheInsertBeforeItsNewProtocol) {
    Execute("INSERT INTO Manufacturers VALUES (4, 'M4', 'D4')");
    Execute("INSERT INTO MfrProtocols VALUES (2, 4, 2, '38')");
    manufacturer_.Name = std::string(65, 'A');
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_EQ(Statements().size(), 2U);
    EXPECT_EQ(Rows("Manufacturers"), "4|M4|D4\n");
    EXPECT_EQ(Rows("MfrProtocols"), "2|4|2|38\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-02.1b")));
}

TEST_F(ManufacturerRecord, RefusedProtocolLeavesTheNewManufacturer) {
    manufacturer_.ProtID = "9";  // no such protocol
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_EQ(
        Statements().back(),
        "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (1, 1, "
        "9, '38') ");
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-02.2")));
}

TEST_F(ManufacturerRecord, RefusedChangeLeavesTheOldName) {
    Execute("INSERT INTO Manufacturers VALUES (4, 'M4', 'D4')");
    Execute("INSERT INTO MfrProtocols VALUES (2, 4, 1, '38')");
    manufacturer_.Name = std::string(65, 'A');
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_EQ(Rows("Manufacturers"), "4|M4|D4\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-02.3")));
}

TEST_F(ManufacturerRecord, ChangeOfARowThatIsGoneIsSuccess) {
    LoosenTables();
    Execute("INSERT INTO MfrProtocols VALUES (2, 4, 1, '38')");
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(Rows("Manufacturers"), "");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(ManufacturerRecord, WithoutConnectionEveryCallFailsWithNinetyOne) {
    EXPECT_FALSE(world_.Connect("no such source"));
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 0);
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_FALSE(manufacturer_.Delete());
    Prepare(kOldSchema);
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_FALSE(manufacturer_.Delete());
    constexpr auto kNumber = ErrorNumber::ObjectVariableNotSet;
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("CONNconn-02"), EntryText("MANmpid-01", kNumber),
                                       EntryText("MANmpid-01", kNumber), EntryText("DEVdel-02", kNumber),
                                       EntryText("MANins-01", kNumber), EntryText("DEVdel-01", kNumber)));
}

TEST_F(ManufacturerRecord, ConnectionLostAfterTheSearchFailsTheStatement) {
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    EXPECT_FALSE(world_.Connect("no such source"));
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("CONNconn-02"),
                                       EntryText("MANins-02.1a", ErrorNumber::ObjectVariableNotSet)));
}

TEST_F(ManufacturerRecord, BeforeItsInitNothingIsWrittenAndNothingCanBeReported) {
    clsManufacturer bare(world_.Events());
    EXPECT_EQ(bare.MfrProtocolID(), 0);
    EXPECT_FALSE(bare.HasMfrProtocolID());
    EXPECT_TRUE(bare.Insert());
    EXPECT_THAT(Statements(), IsEmpty());
    EXPECT_THAT(Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
