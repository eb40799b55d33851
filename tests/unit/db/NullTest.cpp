// NULL in each column that is read.

#include "core/ItemList.h"
#include "db/clsTavDB.h"
#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A row beside which there is none, what the search for number 1's entry gives, and the log's entry.
struct NullRow {
    const char* name;
    const char* row;
    int number;         ///< that the search gives
    const char* entry;  ///< "" for none
};

void ExpectEntry(const std::vector<std::string>& entries, const std::string& entry) {
    if (entry.empty()) {
        EXPECT_THAT(entries, IsEmpty());
    } else {
        EXPECT_THAT(entries, ElementsAre(entry));
    }
}

class NullInMfrProtocols : public ManufacturerRecord, public testing::WithParamInterface<NullRow> {};

TEST_P(NullInMfrProtocols, MatchesNothingAndIsNoNumber) {
    LoosenTables();
    Execute(std::string("INSERT INTO MfrProtocols VALUES ") + GetParam().row);
    EXPECT_EQ(manufacturer_.MfrProtocolID(), GetParam().number);
    ExpectEntry(Entries(), GetParam().entry);
}

INSTANTIATE_TEST_SUITE_P(
    , NullInMfrProtocols,
    testing::Values(
        NullRow{"NumberOfTheMatch", "(NULL, 4, 1, '38')", 0, "MANmpid-01.1a: Invalid use of Null (94)"},
        NullRow{"NumberOfAnother", "(NULL, 4, 1, '17')", 1, ""},
        NullRow{"NameOfTheMatch", "(7, NULL, 1, '38')", 0, "MANmpid-01.1a: Invalid use of Null (94)"},
        NullRow{"NameOfTheManufacturer", "(7, NULL, 2, '38')", 0, "MANmpid-01.1b: Invalid use of Null (94)"},
        NullRow{"NameOfAnother", "(7, NULL, 1, '17')", 8, ""},
        NullRow{"Protocol", "(7, 4, NULL, '38')", 8, ""}, NullRow{"Manufacturer", "(7, 4, 1, NULL)", 8, ""},
        NullRow{"Everything", "(NULL, NULL, NULL, NULL)", 1, ""}),
    RowName());

class NullInDeviceTypes : public DeviceRecord, public testing::WithParamInterface<NullRow> {};

TEST_P(NullInDeviceTypes, MatchesNothingAndIsNoNumber) {
    LoosenTables();
    Execute(std::string("INSERT INTO DeviceTypes VALUES ") + GetParam().row);
    EXPECT_EQ(device_.TAVDevTypeID(), GetParam().number);
    ExpectEntry(Entries(), GetParam().entry);
}

INSTANTIATE_TEST_SUITE_P(, NullInDeviceTypes,
                         testing::Values(NullRow{"NumberOfTheMatch", "(NULL, 1, '10', '', '')", 0,
                                                 "DEVadtid-01.1: Invalid use of Null (94)"},
                                         NullRow{"NumberOfAnother", "(NULL, 2, '10', '', '')", 1, ""},
                                         NullRow{"Manufacturer", "(7, NULL, '10', '', '')", 8, ""},
                                         NullRow{"Type", "(7, 1, NULL, '', '')", 8, ""},
                                         NullRow{"Texts", "(7, 1, '10', NULL, NULL)", 7, ""},
                                         NullRow{"Everything", "(NULL, NULL, NULL, NULL, NULL)", 1, ""}),
                         RowName());

class NullInDeviceRevisions : public DeviceRecord, public testing::WithParamInterface<NullRow> {};

TEST_P(NullInDeviceRevisions, MatchesNothingAndIsNoNumber) {
    LoosenTables();
    Execute(std::string("INSERT INTO DeviceRevisions VALUES ") + GetParam().row);
    EXPECT_EQ(device_.TAVDevRevID(), GetParam().number);
    ExpectEntry(Entries(), GetParam().entry);
}

INSTANTIATE_TEST_SUITE_P(, NullInDeviceRevisions,
                         testing::Values(NullRow{"NumberOfTheMatch", "(NULL, 1, '1', 0, '', '')", 0,
                                                 "DEVadrid-01.1: Invalid use of Null (94)"},
                                         NullRow{"NumberOfAnother", "(NULL, 2, '1', 0, '', '')", 1, ""},
                                         NullRow{"Type", "(7, NULL, '1', 0, '', '')", 8, ""},
                                         NullRow{"Revision", "(7, 1, NULL, 0, '', '')", 8, ""},
                                         NullRow{"CategoryAndTexts", "(7, 1, '1', NULL, NULL, NULL)", 7, ""},
                                         NullRow{"Everything", "(NULL, NULL, NULL, NULL, NULL, NULL)", 1,
                                                 ""}),
                         RowName());

/// A facade over category tables without keys.
class NullCategory : public testing::Test {
 protected:
    NullCategory() {
        world_.Loosen({"DeviceRevisions", "DeviceCategories", "MajorDeviceCategories",
                       "MinorDeviceCategories", "DeviceTypes", "MfrProtocols", "DeviceProtocols"});
        EXPECT_TRUE(tavDB_.Init(world_.Objects(), 2));
    }

    DbWorld world_;
    clsTavDB tavDB_{world_.Events()};
    ItemList list_;
};

TEST_F(NullCategory, NamesAreEmptyItemsAndMatchNothing) {
    world_.Execute("UPDATE MajorDeviceCategories SET Name = NULL, Description = NULL");
    world_.Execute("UPDATE MinorDeviceCategories SET Name = NULL, Description = NULL");
    EXPECT_TRUE(tavDB_.LoadCategories(list_, 8));
    EXPECT_TRUE(tavDB_.LoadCategories(list_, 9));
    ASSERT_EQ(list_.Count(), 10 + 18);
    for (int i = 0; i < list_.Count(); ++i) EXPECT_EQ(list_.Text(i), "") << i;
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "10");
    EXPECT_EQ(tavDB_.GetCategoryID("Gauge", 9), "18");
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(NullCategory, NumberOfAMatchIsAnErrorAndOfAnotherIsPassedOver) {
    world_.Execute("UPDATE MajorDeviceCategories SET MajorDeviceCategoryId = NULL WHERE Name = 'Flow'");
    world_.Execute("UPDATE MinorDeviceCategories SET MinorDeviceCategoryId = NULL WHERE Name = 'Gauge'");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "");
    EXPECT_EQ(tavDB_.GetCategoryID("Gauge", 9), "");
    EXPECT_EQ(tavDB_.GetCategoryID("Torque", 8), "10");
    EXPECT_EQ(tavDB_.GetCategoryID("Turbine", 9), "18");
    const std::string entry = "DBgci-02.1: Invalid use of Null (94)";
    EXPECT_THAT(world_.Entries(), ElementsAre(entry, entry));
}

TEST_F(NullCategory, NumberEndsEachLoad) {
    world_.Execute("UPDATE MajorDeviceCategories SET MajorDeviceCategoryId = NULL WHERE Name = 'Flow'");
    world_.Execute("UPDATE MinorDeviceCategories SET MinorDeviceCategoryId = NULL WHERE Name = 'Gauge'");
    world_.Execute("UPDATE DeviceProtocols SET ProtocolId = NULL WHERE Name = 'Fieldbus'");
    EXPECT_FALSE(tavDB_.LoadCategories(list_, 8));
    EXPECT_FALSE(tavDB_.LoadCategories(list_, 9));
    EXPECT_FALSE(tavDB_.LoadProtocols(list_));
    EXPECT_THAT(world_.Entries(),
                ElementsAre("DBlc-00: Invalid use of Null (94)", "DBlc-00: Invalid use of Null (94)",
                            "DBlp-00: Invalid use of Null (94)"));
}

TEST_F(NullCategory, PartOfAPairMatchesNothing) {
    world_.Execute("DELETE FROM DeviceCategories");
    world_.Execute("INSERT INTO DeviceCategories VALUES (5, NULL, 2), (6, 1, NULL), (7, NULL, NULL)");
    EXPECT_EQ(tavDB_.GetDevCatID("1", "2"), "8");
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(NullCategory, NumberOfAPairIsAnErrorForTheMatchAndPassedOverElsewhere) {
    world_.Execute("UPDATE DeviceCategories SET DeviceCategoryId = NULL WHERE DeviceCategoryId = 2");
    EXPECT_EQ(tavDB_.GetDevCatID("1", "2"), "");
    EXPECT_EQ(tavDB_.GetDevCatID("2", "1"), "18");
    EXPECT_THAT(world_.Entries(), ElementsAre("DBgdci-01.1: Invalid use of Null (94)"));
}

}  // namespace
}  // namespace ventlock::test
