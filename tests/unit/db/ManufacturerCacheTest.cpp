// The manufacturer's number is searched once in the life of a record.

#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNewAcme =
    "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'Acme', 'Acme Inc') ";
constexpr const char* kNewProtocol =
    "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (1, 1, 1, "
    "'38') ";

TEST_F(ManufacturerRecord, SecondReadOfTheNumberRunsNoStatement) {
    EXPECT_FALSE(manufacturer_.HasMfrProtocolID());
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    EXPECT_TRUE(manufacturer_.HasMfrProtocolID());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols));
    Execute("INSERT INTO Manufacturers VALUES (7, 'M7', 'D7')");
    Execute("INSERT INTO MfrProtocols VALUES (7, 7, 1, '17')");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 1);
    EXPECT_THAT(Statements(), IsEmpty());
}

TEST_F(ManufacturerRecord, ForgottenNumberIsSearchedAgain) {
    EXPECT_TRUE(manufacturer_.Insert());
    manufacturer_.ManID = "27";
    manufacturer_.ForgetNumbers();
    EXPECT_FALSE(manufacturer_.HasMfrProtocolID());
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n2|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|2|1|39\n");
}

TEST_F(ManufacturerRecord, SecondInsertOfANewOneRepeatsBothInsertsWithTheSameNumbers) {
    LoosenTables();
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols, kNewAcme, kNewProtocol));
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kNewAcme, kNewProtocol));
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n1|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n1|1|1|38\n");
}

TEST_F(ManufacturerRecord, SecondInsertWithAnotherIdUsesTheFirstOnesNumbers) {
    LoosenTables();
    EXPECT_TRUE(manufacturer_.Insert());
    Statements();
    manufacturer_.ManID = "27";
    manufacturer_.Name = "New";
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre("INSERT INTO Manufacturers        (TavMfrNameId, Name, "
                                          "Description) VALUES (1, 'New', 'Acme Inc') ",
                                          "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, "
                                          "ProtocolId, MfrId) VALUES (1, 1, 1, '39') "));
    EXPECT_EQ(Rows("MfrProtocols", "4"), "1|1|1|38\n1|1|1|39\n");
}

TEST_F(ManufacturerRecord, SecondInsertWithAnotherIdRenamesAKnownFirstOne) {
    Execute("INSERT INTO Manufacturers VALUES (4, 'M4', 'D4')");
    Execute("INSERT INTO MfrProtocols VALUES (2, 4, 1, '38')");
    EXPECT_TRUE(manufacturer_.Insert());
    Statements();
    manufacturer_.ManID = "27";
    manufacturer_.ProtID = "2";
    manufacturer_.Name = "New";
    EXPECT_TRUE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre("update Manufacturers    set Name = 'New',        Description = "
                                          "'Acme Inc'  where TAVMfrNameID = 4 "));
    EXPECT_EQ(Rows("Manufacturers"), "4|New|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "2|4|1|38\n");
}

TEST_F(ManufacturerRecord, SecondInsertOfANewOneFailsAtThePrimaryKey) {
    EXPECT_TRUE(manufacturer_.Insert());
    Statements();
    manufacturer_.ManID = "27";
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kNewAcme));
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-02.1a")));
}

TEST_F(ManufacturerRecord, FreshRecordSearchesAfreshAndGetsTheNextNumbers) {
    EXPECT_TRUE(manufacturer_.Insert());
    Statements();
    clsManufacturer fresh(world_.Events());
    FillManufacturer(fresh);
    fresh.ManID = "27";
    EXPECT_TRUE(fresh.Init(world_.Objects(), kCurrentSchema, 2));
    EXPECT_TRUE(fresh.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols,
                                          "INSERT INTO Manufacturers        (TavMfrNameId, Name, "
                                          "Description) VALUES (2, 'Acme', 'Acme Inc') ",
                                          "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, "
                                          "ProtocolId, MfrId) VALUES (2, 2, 1, '39') "));
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|2|1|39\n");
}

}  // namespace
}  // namespace ventlock::test
