// What the device record leaves and reports when a search or a statement fails.

#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kChangeFlow4 =
    "UPDATE DeviceTypes    SET Name = 'Flow',        Description = 'Flow meter'  WHERE TavDevTypeId = 4 ";

struct SearchRow {
    const char* name;
    const char* row;
    const char* step;
    ErrorNumber number;
};

class DeviceTypeSearchFailure : public DeviceRecord, public testing::WithParamInterface<SearchRow> {};

TEST_P(DeviceTypeSearchFailure, KeepsNoNumberAndWritesNothing) {
    LoosenTables();
    MakeText("DeviceTypes", "TavDevTypeId");
    Execute(std::string("INSERT INTO DeviceTypes VALUES ") + GetParam().row);
    const std::string before = Rows("DeviceTypes");
    EXPECT_EQ(device_.TAVDevTypeID(), 0);
    EXPECT_EQ(device_.TAVDevRevID(), 0);
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchTypes, kSearchTypes, kSearchTypes));
    EXPECT_EQ(Rows("DeviceTypes"), before);
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    const std::string entry = EntryText(GetParam().step, GetParam().number);
    EXPECT_THAT(Entries(), ElementsAre(entry, entry, entry));
}

INSTANTIATE_TEST_SUITE_P(
    , DeviceTypeSearchFailure,
    testing::Values(
        SearchRow{"Largest", "(32767, 2, '10', '', '')", "DEVadtid-02", ErrorNumber::Overflow},
        SearchRow{"TooLarge", "(32768, 2, '10', '', '')", "DEVadtid-01.2", ErrorNumber::Overflow},
        SearchRow{"MatchTooLarge", "(32768, 1, '10', '', '')", "DEVadtid-01.1", ErrorNumber::Overflow},
        SearchRow{"MatchNull", "(NULL, 1, '10', '', '')", "DEVadtid-01.1", ErrorNumber::InvalidUseOfNull},
        SearchRow{"MatchNoNumber", "('x', 1, '10', '', '')", "DEVadtid-01.1", ErrorNumber::TypeMismatch}),
    RowName());

class DeviceRevisionSearchFailure : public DeviceRecord, public testing::WithParamInterface<SearchRow> {};

TEST_P(DeviceRevisionSearchFailure, KeepsNoNumberAndWritesNothingMore) {
    LoosenTables();
    MakeText("DeviceRevisions", "TavDevRevId");
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    Execute(std::string("INSERT INTO DeviceRevisions VALUES ") + GetParam().row);
    const std::string before = Rows("DeviceRevisions");
    EXPECT_EQ(device_.TAVDevRevID(), 0);
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchTypes, kSearchRevisions, kChangeFlow4, kSearchRevisions));
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), before);
    const std::string entry = EntryText(GetParam().step, GetParam().number);
    EXPECT_THAT(Entries(), ElementsAre(entry, entry));
}

INSTANTIATE_TEST_SUITE_P(
    , DeviceRevisionSearchFailure,
    testing::Values(
        SearchRow{"Largest", "(32767, 9, '1', 0, '', '')", "DEVadrid-02", ErrorNumber::Overflow},
        SearchRow{"TooLarge", "(32768, 9, '1', 0, '', '')", "DEVadrid-01.2", ErrorNumber::Overflow},
        SearchRow{"MatchTooLarge", "(32768, 4, '1', 0, '', '')", "DEVadrid-01.1", ErrorNumber::Overflow},
        SearchRow{"MatchNull", "(NULL, 4, '1', 0, '', '')", "DEVadrid-01.1", ErrorNumber::InvalidUseOfNull},
        SearchRow{"MatchNoNumber", "('x', 4, '1', 0, '', '')", "DEVadrid-01.1", ErrorNumber::TypeMismatch}),
    RowName());

TEST_F(DeviceRecord, FailedRevisionSearchLeavesTheNewType) {
    LoosenTables();
    Execute("INSERT INTO DeviceRevisions VALUES (32767, 9, '1', 0, '', '')");
    EXPECT_FALSE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "32767|9|1|0||\n");
    EXPECT_THAT(Entries(), ElementsAre(EntryText("DEVadrid-02", ErrorNumber::Overflow)));
}

TEST_F(DeviceRecord, MissingTablesFailTheSearches) {
    Execute("ALTER TABLE DeviceRevisions RENAME TO Elsewhere");
    EXPECT_EQ(device_.TAVDevRevID(), 0);
    Execute("ALTER TABLE DeviceTypes RENAME TO ElsewhereToo");
    device_.ForgetNumbers();
    EXPECT_EQ(device_.TAVDevTypeID(), 0);
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVadrid-01"), DatabaseEntry("DEVadtid-01")));
}

TEST_F(DeviceRecord, RefusedTypeEndsTheInsertBeforeTheRevision) {
    device_.DevName = std::string(65, 'F');
    EXPECT_FALSE(device_.Insert());
    EXPECT_EQ(Statements().size(), 2U) << "the type's search and its insert";
    EXPECT_EQ(Rows("DeviceTypes"), "");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-03.1")));
}

TEST_F(DeviceRecord, RefusedRevisionLeavesTheNewType) {
    device_.CatID = "99";  // no such category
    EXPECT_FALSE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-03.2")));
}

TEST_F(DeviceRecord, RefusedChangeOfTheTypeEndsTheInsertBeforeTheRevision) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    device_.DevName = std::string(65, 'F');
    EXPECT_FALSE(device_.Insert());
    EXPECT_EQ(Statements().size(), 2U) << "the type's search and its change";
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|T4|D4\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-03.3")));
}

TEST_F(DeviceRecord, RefusedNewRevisionLeavesTheChangedType) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    device_.CatID = "99";
    EXPECT_FALSE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-03.4a")));
}

TEST_F(DeviceRecord, RefusedChangeOfTheRevisionLeavesTheChangedType) {
    Execute("INSERT INTO DeviceTypes VALUES (4, 1, '10', 'T4', 'D4')");
    Execute("INSERT INTO DeviceRevisions VALUES (6, 4, '1', 0, 'R6', 'D6')");
    device_.CatID = "99";
    EXPECT_FALSE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "4|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "6|4|1|0|R6|D6\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-03.4b")));
}

TEST_F(DeviceRecord, WithoutConnectionEveryCallFailsWithNinetyOne) {
    EXPECT_FALSE(world_.Connect("no such source"));
    EXPECT_EQ(device_.TAVDevTypeID(), 0);
    EXPECT_EQ(device_.TAVDevRevID(), 0);
    EXPECT_FALSE(device_.Insert());
    EXPECT_FALSE(device_.Delete());
    Prepare(kOldSchema);
    EXPECT_FALSE(device_.Insert());
    EXPECT_FALSE(device_.Delete());
    constexpr auto kNumber = ErrorNumber::ObjectVariableNotSet;
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("CONNconn-02"), EntryText("DEVadtid-01", kNumber),
                                       EntryText("DEVadtid-01", kNumber), EntryText("DEVadtid-01", kNumber),
                                       EntryText("DEVdel-03", kNumber), EntryText("DEVins-01", kNumber),
                                       EntryText("DEVdel-01", kNumber)));
}

TEST_F(DeviceRecord, ConnectionLostAfterTheSearchesFailsTheStatement) {
    EXPECT_EQ(device_.TAVDevRevID(), 1);
    EXPECT_FALSE(world_.Connect("no such source"));
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("CONNconn-02"),
                                       EntryText("DEVins-03.1", ErrorNumber::ObjectVariableNotSet)));
}

TEST_F(DeviceRecord, BeforeItsInitNothingIsWrittenAndNothingCanBeReported) {
    clsDevice bare(world_.Events());
    EXPECT_EQ(bare.TAVDevRevID(), 0);
    EXPECT_TRUE(bare.Insert());
    EXPECT_THAT(Statements(), IsEmpty());
    EXPECT_THAT(Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
