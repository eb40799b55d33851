// What each statement that writes leaves and reports when a key or a reference of the database refuses it:
// somebody else was quicker between the search for a number and the statement that takes it.

#include "db/clsTavDB.h"
#include "support/DriverAnswers.h"
#include "support/RowName.h"
#include "unit/db/ActingEvents.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

struct KeyRow {
    const char* name;
    std::vector<const char*> before;   ///< the searches
    std::vector<const char*> between;  ///< searches and statements
    const char* step;
    Refusal refusal;
    std::vector<const char*> left;  ///< rows of the tables, in the order that the test names them
};

class ManufacturerKey : public ManufacturerRecord, public testing::WithParamInterface<KeyRow> {};

TEST_P(ManufacturerKey, EndsTheInsertAtItsStatement) {
    for (const char* sql : GetParam().before) Execute(sql);
    EXPECT_NE(manufacturer_.MfrProtocolID(), 0);
    for (const char* sql : GetParam().between) Execute(sql);
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry(GetParam().step, GetParam().refusal)));
    EXPECT_EQ(Rows("Manufacturers"), GetParam().left[0]);
    EXPECT_EQ(Rows("MfrProtocols"), GetParam().left[1]);
}

// What a known manufacturer has: number 4 and protocol 2.
constexpr const char* kM4 = "INSERT INTO Manufacturers VALUES (4, 'M4', 'D4')";
constexpr const char* kP2 = "INSERT INTO MfrProtocols VALUES (2, 4, 2, '38')";

INSTANTIATE_TEST_SUITE_P(, ManufacturerKey,
                         testing::Values(KeyRow{"NumberOfANewManufacturer",
                                                {},
                                                {"INSERT INTO Manufacturers VALUES (1, 'First', '')"},
                                                "MANins-02.1a",
                                                Refusal::TakenKey,
                                                {"1|First|\n", ""}},
                                         KeyRow{"NameOfAKnownManufacturerWithANewProtocol",
                                                {"CREATE UNIQUE INDEX OneName ON Manufacturers (Name)", kM4,
                                                 kP2},
                                                {"INSERT INTO Manufacturers VALUES (5, 'Acme', '')"},
                                                "MANins-02.1b",
                                                Refusal::TakenKey,
                                                {"4|M4|D4\n5|Acme|\n", "2|4|2|38\n"}},
                                         KeyRow{"NumberOfAProtocol",
                                                {kM4, kP2},
                                                {"INSERT INTO MfrProtocols VALUES (3, 4, 0, '38')"},
                                                "MANins-02.2",
                                                Refusal::TakenKey,
                                                {"4|Acme|Acme Inc\n", "2|4|2|38\n3|4|0|38\n"}},
                                         KeyRow{"ManufacturerAndProtocol",
                                                {kM4, kP2},
                                                {"INSERT INTO MfrProtocols VALUES (9, 4, 1, '38')"},
                                                "MANins-02.2",
                                                Refusal::TakenKey,
                                                {"4|Acme|Acme Inc\n", "2|4|2|38\n9|4|1|38\n"}},
                                         KeyRow{"ProtocolThatIsGone",
                                                {},
                                                {"DELETE FROM DeviceProtocols WHERE ProtocolId = 1"},
                                                "MANins-02.2",
                                                Refusal::UnknownReference,
                                                {"1|Acme|Acme Inc\n", ""}},
                                         KeyRow{"ManufacturerThatIsGone",
                                                {kM4, kP2},
                                                {"DELETE FROM MfrProtocols", "DELETE FROM Manufacturers"},
                                                "MANins-02.2",
                                                Refusal::UnknownReference,
                                                {"", ""}},
                                         KeyRow{"NameOfAKnownManufacturerWithItsProtocol",
                                                {"CREATE UNIQUE INDEX OneName ON Manufacturers (Name)", kM4,
                                                 "INSERT INTO MfrProtocols VALUES (2, 4, 1, '38')"},
                                                {"INSERT INTO Manufacturers VALUES (5, 'Acme', '')"},
                                                "MANins-02.3",
                                                Refusal::TakenKey,
                                                {"4|M4|D4\n5|Acme|\n", "2|4|1|38\n"}}),
                         RowName());

class DeviceKey : public DeviceRecord, public testing::WithParamInterface<KeyRow> {};

TEST_P(DeviceKey, EndsTheInsertAtItsStatement) {
    for (const char* sql : GetParam().before) Execute(sql);
    EXPECT_NE(device_.TAVDevRevID(), 0);
    for (const char* sql : GetParam().between) Execute(sql);
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry(GetParam().step, GetParam().refusal)));
    EXPECT_EQ(Rows("DeviceTypes"), GetParam().left[0]);
    EXPECT_EQ(Rows("DeviceRevisions"), GetParam().left[1]);
}

// What a known device has: type 4 and perhaps revision 6.
constexpr const char* kT4 = "INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')";
constexpr const char* kT9 = "INSERT INTO DeviceTypes VALUES (9, 2, '99', 'T9', '')";
constexpr const char* kR6 = "INSERT INTO DeviceRevisions VALUES (6, 4, '1', 0, 'R6', 'D6')";
constexpr const char* kNoCategory1 = "DELETE FROM DeviceCategories WHERE DeviceCategoryId = 1";

INSTANTIATE_TEST_SUITE_P(
    , DeviceKey,
    testing::Values(KeyRow{"NumberOfANewType",
                           {},
                           {"INSERT INTO DeviceTypes VALUES (1, 2, '99', 'First', '')"},
                           "DEVins-03.1",
                           Refusal::TakenKey,
                           {"1|2|99|First|\n", ""}},
                    KeyRow{"ManufacturersType",
                           {},
                           {"INSERT INTO DeviceTypes VALUES (9, 1, '10', 'First', '')"},
                           "DEVins-03.1",
                           Refusal::TakenKey,
                           {"9|1|10|First|\n", ""}},
                    KeyRow{"ManufacturerThatIsGone",
                           {},
                           {"DELETE FROM MfrProtocols WHERE MfrProtocolId = 1"},
                           "DEVins-03.1",
                           Refusal::UnknownReference,
                           {"", ""}},
                    KeyRow{"NumberOfANewTypesRevision",
                           {},
                           {kT9, "INSERT INTO DeviceRevisions VALUES (1, 9, '7', 0, 'First', '')"},
                           "DEVins-03.2",
                           Refusal::TakenKey,
                           {"1|1|10|Flow|Flow meter\n9|2|99|T9|\n", "1|9|7|0|First|\n"}},
                    KeyRow{"CategoryOfANewTypesRevision",
                           {},
                           {kNoCategory1},
                           "DEVins-03.2",
                           Refusal::UnknownReference,
                           {"1|1|10|Flow|Flow meter\n", ""}},
                    KeyRow{"NameOfAKnownType",
                           {"CREATE UNIQUE INDEX OneName ON DeviceTypes (Name)", kT4},
                           {"INSERT INTO DeviceTypes VALUES (9, 2, '99', 'Flow', '')"},
                           "DEVins-03.3",
                           Refusal::TakenKey,
                           {"4|1|10|T4|D4\n9|2|99|Flow|\n", ""}},
                    KeyRow{"NumberOfANewRevision",
                           {kT4},
                           {kT9, "INSERT INTO DeviceRevisions VALUES (1, 9, '7', 0, 'First', '')"},
                           "DEVins-03.4a",
                           Refusal::TakenKey,
                           {"4|1|10|Flow|Flow meter\n9|2|99|T9|\n", "1|9|7|0|First|\n"}},
                    KeyRow{"TypesRevision",
                           {kT4},
                           {"INSERT INTO DeviceRevisions VALUES (8, 4, '1', 0, 'First', '')"},
                           "DEVins-03.4a",
                           Refusal::TakenKey,
                           {"4|1|10|Flow|Flow meter\n", "8|4|1|0|First|\n"}},
                    KeyRow{"CategoryOfANewRevision",
                           {kT4},
                           {kNoCategory1},
                           "DEVins-03.4a",
                           Refusal::UnknownReference,
                           {"4|1|10|Flow|Flow meter\n", ""}},
                    KeyRow{"TypeThatIsGone",
                           {kT4},
                           {"DELETE FROM DeviceTypes"},
                           "DEVins-03.4a",
                           Refusal::UnknownReference,
                           {"", ""}},
                    KeyRow{"CategoryOfAKnownRevision",
                           {kT4, kR6},
                           {kNoCategory1},
                           "DEVins-03.4b",
                           Refusal::UnknownReference,
                           {"4|1|10|Flow|Flow meter\n", "6|4|1|0|R6|D6\n"}},
                    KeyRow{"NameOfAKnownRevision",
                           {"CREATE UNIQUE INDEX OneName ON DeviceRevisions (Name)", kT4, kR6},
                           {"INSERT INTO DeviceRevisions VALUES (8, 4, '2', 0, 'R1', '')"},
                           "DEVins-03.4b",
                           Refusal::TakenKey,
                           {"4|1|10|Flow|Flow meter\n", "6|4|1|0|R6|D6\n8|4|2|0|R1|\n"}}),
    RowName());

TEST_F(OldManufacturerRecord, IdThatIsTakenEndsTheInsert) {
    Execute("INSERT INTO MfrIds VALUES (38, 'First')");
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("MANins-01", Refusal::TakenKey)));
    EXPECT_EQ(Rows("MfrIds"), "38|First\n");
}

TEST_F(OldDeviceRecord, TypeThatIsTakenEndsTheInsert) {
    Execute("INSERT INTO DevTypes VALUES (38, 10, 'First')");
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("DEVins-01", Refusal::TakenKey)));
    EXPECT_EQ(Rows("DevTypes"), "38|10|First\n");
    EXPECT_EQ(Rows("PDevices"), "");
}

TEST_F(OldDeviceRecord, ManufacturerThatIsGoneEndsTheInsert) {
    Execute("DELETE FROM MfrIds");
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("DEVins-01", Refusal::UnknownReference)));
    EXPECT_EQ(Rows("DevTypes"), "");
    EXPECT_EQ(Rows("PDevices"), "");
}

TEST_F(OldDeviceRecord, RevisionThatIsTakenLeavesTheNewType) {
    Execute("INSERT INTO DevTypes VALUES (38, 11, 'Other')");
    Execute("INSERT INTO PDevices VALUES ('00000026000A0001', 38, 11, 'First', 1, 1, 5)");
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("DEVins-02", Refusal::TakenKey)));
    EXPECT_EQ(Rows("DevTypes"), "38|10|Flow\n38|11|Other\n");
    EXPECT_EQ(Rows("PDevices"), "00000026000A0001|38|11|First|1|1|5\n");
}

TEST_F(OldDeviceRecord, RevisionThatRefersToNothingLeavesTheNewType) {
    Execute("DROP TABLE PDevices");
    Execute(
        "CREATE TABLE PDevices (UDevRevId VARCHAR(24), DevMfrId BIGINT, DevType BIGINT, DevName VARCHAR(64), "
        "DevRev INTEGER, DevDDLRev BIGINT, DevProtocolRev BIGINT, "
        "FOREIGN KEY (DevRev) REFERENCES DeviceProtocols (ProtocolId))");
    device_.DevRev = "07";
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("DEVins-02", Refusal::UnknownReference)));
    EXPECT_EQ(Rows("DevTypes"), "38|10|Flow\n");
    EXPECT_EQ(Rows("PDevices"), "");
}

/// Somebody else writes while the facade walks the rows that it has read.
class CategoryKey : public testing::Test {
 protected:
    CategoryKey() {
        EXPECT_TRUE(tavDB_.Init(world_.Objects(), 2));
        events_.actsAt = events_.yields + 1;
    }

    void Meanwhile(const std::string& sql) {
        events_.action = [this, sql] { world_.Execute(sql); };
    }

    DbWorld world_;
    ActingEvents events_;
    clsTavDB tavDB_{events_};
};

TEST_F(CategoryKey, NumberOfAMajorCategoryThatIsTakenGivesNone) {
    Meanwhile("INSERT INTO MajorDeviceCategories VALUES (10, 'First', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Torque", 8), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(RefusedEntry("DBgci-03", Refusal::TakenKey)));
    EXPECT_EQ(world_.Rows("SELECT * FROM MajorDeviceCategories WHERE MajorDeviceCategoryId > 9"),
              "10|First|\n");
}

TEST_F(CategoryKey, NumberOfAMinorCategoryThatIsTakenGivesNone) {
    Meanwhile("INSERT INTO MinorDeviceCategories VALUES (18, 'First', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Turbine", 9), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(RefusedEntry("DBgci-03", Refusal::TakenKey)));
    EXPECT_EQ(world_.Rows("SELECT * FROM MinorDeviceCategories WHERE MinorDeviceCategoryId > 17"),
              "18|First|\n");
}

TEST_F(CategoryKey, NumberOfAPairThatIsTakenGivesNone) {
    Meanwhile("INSERT INTO DeviceCategories VALUES (18, 2, 1)");
    EXPECT_EQ(tavDB_.GetDevCatID("1", "4"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(RefusedEntry("DBgdci-03", Refusal::TakenKey)));
    EXPECT_EQ(world_.Rows("SELECT * FROM DeviceCategories WHERE DeviceCategoryId > 17"), "18|2|1\n");
}

TEST_F(CategoryKey, PairThatIsTakenGivesNone) {
    Meanwhile("INSERT INTO DeviceCategories VALUES (30, 1, 4)");
    EXPECT_EQ(tavDB_.GetDevCatID("1", "4"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(RefusedEntry("DBgdci-03", Refusal::TakenKey)));
    EXPECT_EQ(world_.Rows("SELECT * FROM DeviceCategories WHERE DeviceCategoryId > 17"), "30|1|4\n");
}

TEST_F(CategoryKey, PairOfACategoryThatIsGoneGivesNone) {
    Meanwhile("DELETE FROM MajorDeviceCategories WHERE MajorDeviceCategoryId = 9");
    EXPECT_EQ(tavDB_.GetDevCatID("9", "4"), "");
    Meanwhile("SELECT 1");
    EXPECT_EQ(tavDB_.GetDevCatID("1", "99"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(RefusedEntry("DBgdci-03", Refusal::UnknownReference),
                                              RefusedEntry("DBgdci-03", Refusal::UnknownReference)));
    EXPECT_EQ(world_.Rows("SELECT * FROM DeviceCategories WHERE DeviceCategoryId > 17"), "");
}

TEST_F(DeviceRecord, RowsThatAreReferredToAreNotDeleted) {
    Execute("INSERT INTO DeviceTypes VALUES (1, 1, '10', 'T1', ''), (2, 1, '11', 'T2', '')");
    Execute("INSERT INTO DeviceRevisions VALUES (2, 1, '1', 0, 'R2', '')");
    EXPECT_FALSE(manufacturer_.Delete());
    EXPECT_FALSE(device_.Delete());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("DEVdel-02", Refusal::ReferredRow),
                                       RefusedEntry("DEVdel-04", Refusal::ReferredRow)));
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|1|2|38\n");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|T1|\n2|1|11|T2|\n");
}

TEST_F(ManufacturerRecord, TextsAreRefusedInEachDriversOwnWords) {
    manufacturer_.Name = "O'Neil";
    EXPECT_FALSE(manufacturer_.Insert());
    manufacturer_.Name = std::string(65, 'A');
    EXPECT_FALSE(manufacturer_.Insert());
    manufacturer_.Name = "A?";
    manufacturer_.MfrNameFound = 1;
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("MANins-02.1a", Refusal::Apostrophe),
                                       RefusedEntry("MANins-02.1a", Refusal::LongText),
                                       RefusedEntry("MANins-02.1b", Refusal::BareMarker)));
    EXPECT_EQ(Rows("Manufacturers"), "");
    EXPECT_EQ(Rows("MfrProtocols"), "");
}

TEST_F(ManufacturerRecord, MissingTableIsToldInEachDriversOwnWords) {
    world_.Database().DropTable("MfrProtocols");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 0);
    EXPECT_THAT(Entries(), ElementsAre(RefusedEntry("MANmpid-01", Refusal::MissingTable)));
}

}  // namespace
}  // namespace ventlock::test
