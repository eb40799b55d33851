#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "db/clsTavDB.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kMajorRead =
    "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  ORDER BY "
    "MajorDevicecategoryId ";
constexpr const char* kMinorRead =
    "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  ORDER BY "
    "MinorDevicecategoryId ";
constexpr const char* kPairRead = "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ";
constexpr const char* kMajorRows = "SELECT * FROM MajorDeviceCategories ORDER BY MajorDeviceCategoryId";
constexpr const char* kPairRows = "SELECT * FROM DeviceCategories ORDER BY DeviceCategoryId";

/// The statement that makes a new major category.
std::string NewMajor(const std::string& id, const std::string& name) {
    return "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, Description) VALUES ('" +
           id + "', '" + name + "', '') ";
}

/// The statement that makes a new pair.
std::string NewPair(const std::string& id, const std::string& major, const std::string& minor) {
    return "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
           "MinorDeviceCategoryId) VALUES ('" +
           id + "', '" + major + "', '" + minor + "') ";
}

/// A facade that is ready on the current schema, over category tables that hold what a test puts there.
class Category : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(tavDB_.Init(world_.Objects(), 2));
        world_.Statements();
        world_.Events().yields = 0;
        world_.Execute("DELETE FROM DeviceCategories");
    }

    void MajorRows(const std::string& values) {
        world_.Execute("DELETE FROM MajorDeviceCategories");
        if (!values.empty()) world_.Execute("INSERT INTO MajorDeviceCategories VALUES " + values);
    }

    DbWorld world_;
    clsTavDB tavDB_{world_.Events()};
};

TEST_F(Category, AnEmptyNameIsZeroWithoutAStatement) {
    EXPECT_EQ(tavDB_.GetCategoryID("", 8), "0");
    EXPECT_EQ(tavDB_.GetCategoryID("", 9), "0");
    EXPECT_EQ(tavDB_.GetCategoryID("", 7), "0");
    EXPECT_THAT(world_.Statements(), IsEmpty());
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(Category, ANameInOtherLetterCaseFindsTheStoredRow) {
    MajorRows("(1, 'Valve', ''), (7, 'Level', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("VALVE", 8), "1");
    EXPECT_EQ(tavDB_.GetCategoryID("level", 8), "7");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMajorRead, kMajorRead));
    EXPECT_EQ(world_.Rows(kMajorRows), "1|Valve|\n7|Level|\n");
}

TEST_F(Category, LettersBeyondAsciiIgnoreTheirCaseToo) {
    MajorRows("(3, 'Ölstand', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("öLSTAND", 8), "3");
}

TEST_F(Category, TheWalkStopsAtTheMatchAndYieldsOncePerRowBeforeIt) {
    MajorRows("(1, 'Valve', ''), (2, 'Flow', ''), (7, 'Level', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "2");
    EXPECT_EQ(world_.Events().yields, 1);
    world_.Events().yields = 0;
    EXPECT_EQ(tavDB_.GetCategoryID("New", 8), "8");
    EXPECT_EQ(world_.Events().yields, 3);
}

TEST_F(Category, ANewNameGetsTheNumberAboveTheLargestThoughLowerOnesAreFree) {
    MajorRows("(1, 'Valve', 'Old'), (7, 'Level', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "8");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMajorRead, NewMajor("8", "Flow")));
    EXPECT_EQ(world_.Rows(kMajorRows), "1|Valve|Old\n7|Level|\n8|Flow|\n");
    EXPECT_EQ(tavDB_.GetCategoryID("FLOW", 8), "8");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMajorRead)) << "it is found from now on";
}

TEST_F(Category, ANewMinorNameGoesIntoTheMinorTable) {
    EXPECT_EQ(tavDB_.GetCategoryID("turbine", 9), "18");
    EXPECT_THAT(world_.Statements(),
                ElementsAre(kMinorRead,
                            "INSERT INTO MinorDeviceCategories        (MinorDeviceCategoryId, Name, "
                            "Description) VALUES ('18', 'turbine', '') "));
    EXPECT_EQ(world_.Rows("SELECT * FROM MinorDeviceCategories WHERE MinorDeviceCategoryId > 16"),
              "17|Multivariable|\n18|turbine|\n")
        << "the name as it was typed and no description";
}

TEST_F(Category, TheFirstOfAnEmptyTableIsOne) {
    MajorRows("");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "1");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMajorRead, NewMajor("1", "Flow")));
    EXPECT_EQ(world_.Rows(kMajorRows), "1|Flow|\n");
}

TEST_F(Category, NegativeNumbersDoNotCountForTheLargest) {
    MajorRows("(-5, 'Valve', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "1");
}

TEST_F(Category, PastTheLargestNumberNothingIsInserted) {
    MajorRows("(32767, 'Valve', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMajorRead));
    EXPECT_EQ(world_.Rows(kMajorRows), "32767|Valve|\n");
    EXPECT_THAT(world_.Entries(), ElementsAre("DBgci-03: Overflow (6)"));
}

TEST_F(Category, ANumberTooLargeToKeepEndsTheSearch) {
    MajorRows("(32768, 'Valve', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "");
    EXPECT_THAT(world_.Entries(), ElementsAre("DBgci-02.2: Overflow (6)"));
    EXPECT_EQ(tavDB_.GetCategoryID("Valve", 8), "32768") << "a match needs no number";
    EXPECT_EQ(world_.Rows(kMajorRows), "32768|Valve|\n");
}

TEST_F(Category, ANameWithAnApostropheIsSearchedAndItsInsertFails) {
    MajorRows("(4, 'O''Neil', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("o'neil", 8), "4");
    EXPECT_THAT(world_.Entries(), IsEmpty());
    world_.Statements();
    EXPECT_EQ(tavDB_.GetCategoryID("O'Hara", 8), "");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMajorRead, NewMajor("5", "O'Hara")));
    EXPECT_EQ(world_.Rows(kMajorRows), "4|O'Neil|\n");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("DBgci-03")));
}

TEST_F(Category, AQuestionMarkInANameTakesTheDescription) {
    MajorRows("(7, 'Level', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Valve?", 8), "8");
    EXPECT_THAT(world_.Statements(),
                ElementsAre(kMajorRead,
                            "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, "
                            "Description) VALUES ('8', 'Valve', '?') "));
    EXPECT_EQ(world_.Rows(kMajorRows), "7|Level|\n8|Valve|?\n");
}

TEST_F(Category, ANameThatTheDatabaseRefusesIsNothing) {
    MajorRows("");
    EXPECT_EQ(tavDB_.GetCategoryID(std::string(65, 'x'), 8), "");
    EXPECT_EQ(world_.Rows(kMajorRows), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("DBgci-03")));
}

TEST_F(Category, ANullNameMatchesNothing) {
    MajorRows("(3, NULL, '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "4");
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(Category, ANullNumberOfAMatchIsAnError) {
    world_.Loosen({"DeviceRevisions", "DeviceCategories", "MajorDeviceCategories"});
    MajorRows("(NULL, 'Flow', '')");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "");
    EXPECT_EQ(tavDB_.GetCategoryID("Other", 8), "1") << "on the way it is passed over";
    EXPECT_THAT(world_.Entries(), ElementsAre("DBgci-02.1: Invalid use of Null (94)"));
}

TEST_F(Category, ANameOfAnyOtherKindIsAnErrorWithoutAStatement) {
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 7), "");
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 10), "");
    EXPECT_THAT(world_.Statements(), IsEmpty());
    const std::string entry = "DBgci-01: Invalid procedure call or argument (5)";
    EXPECT_THAT(world_.Entries(), ElementsAre(entry, entry));
}

TEST_F(Category, APairWithAnEmptyPartIsZeroWithoutAStatement) {
    EXPECT_EQ(tavDB_.GetDevCatID("", ""), "0");
    EXPECT_EQ(tavDB_.GetDevCatID("7", ""), "0");
    EXPECT_EQ(tavDB_.GetDevCatID("", "2"), "0");
    EXPECT_THAT(world_.Statements(), IsEmpty());
}

TEST_F(Category, NothingChosenIsARealPair) {
    EXPECT_EQ(tavDB_.GetDevCatID("0", "0"), "1");
    EXPECT_THAT(world_.Statements(), ElementsAre(kPairRead, NewPair("1", "0", "0")));
    EXPECT_EQ(world_.Rows(kPairRows), "1|0|0\n");
    EXPECT_EQ(tavDB_.GetDevCatID("0", "0"), "1");
    EXPECT_THAT(world_.Statements(), ElementsAre(kPairRead)) << "the second time it is only looked up";
    EXPECT_EQ(world_.Rows(kPairRows), "1|0|0\n");
}

TEST_F(Category, ANewPairGetsTheNumberAboveTheLargest) {
    world_.Execute("INSERT INTO DeviceCategories VALUES (2, 7, 1), (9, 2, 7)");
    EXPECT_EQ(tavDB_.GetDevCatID("7", "2"), "10");
    EXPECT_THAT(world_.Statements(), ElementsAre(kPairRead, NewPair("10", "7", "2")));
    EXPECT_EQ(world_.Rows(kPairRows), "2|7|1\n9|2|7\n10|7|2\n");
    EXPECT_EQ(world_.Events().yields, 2) << "once per row";
}

TEST_F(Category, APairIsFoundByItsNumbers) {
    world_.Execute("INSERT INTO DeviceCategories VALUES (4, 7, 1), (12, 7, 2), (13, 2, 7)");
    EXPECT_EQ(tavDB_.GetDevCatID("7", "2"), "12");
    EXPECT_EQ(tavDB_.GetDevCatID(" 07", "2.0"), "12");
    EXPECT_THAT(world_.Statements(), ElementsAre(kPairRead, kPairRead));
}

TEST_F(Category, APairStoredAsTextIsFoundAndItsOwnTextGivenTrimmed) {
    world_.Execute("DROP TABLE DeviceRevisions");
    world_.Execute("DROP TABLE DeviceCategories");
    world_.Execute(
        "CREATE TABLE DeviceCategories (DeviceCategoryId TEXT, MajorDeviceCategoryId TEXT, "
        "MinorDeviceCategoryId TEXT)");
    world_.Execute(
        "INSERT INTO DeviceCategories VALUES ('3', 'x', '2'), ('4', NULL, '2'), "
        "(' 012 ', ' 7', '02 ')");
    EXPECT_EQ(tavDB_.GetDevCatID("7", "2"), "012");
    EXPECT_THAT(world_.Statements(), ElementsAre(kPairRead));
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(Category, ANullNumberOfAMatchingPairIsAnError) {
    world_.Loosen({"DeviceRevisions", "DeviceCategories"});
    world_.Execute("INSERT INTO DeviceCategories VALUES (NULL, 7, 2)");
    EXPECT_EQ(tavDB_.GetDevCatID("7", "2"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre("DBgdci-01.1: Invalid use of Null (94)"));
}

TEST_F(Category, PastTheLargestPairNothingIsInserted) {
    world_.Execute("INSERT INTO DeviceCategories VALUES (32767, 1, 1)");
    EXPECT_EQ(tavDB_.GetDevCatID("7", "2"), "");
    world_.Execute("UPDATE DeviceCategories SET DeviceCategoryId = 32768");
    EXPECT_EQ(tavDB_.GetDevCatID("7", "2"), "");
    EXPECT_THAT(world_.Statements(), ElementsAre(kPairRead, kPairRead));
    EXPECT_EQ(world_.Rows(kPairRows), "32768|1|1\n");
    EXPECT_THAT(world_.Entries(), ElementsAre("DBgdci-03: Overflow (6)", "DBgdci-01.2: Overflow (6)"));
}

TEST_F(Category, APairOfAnUnknownCategoryIsRefusedByTheDatabase) {
    EXPECT_EQ(tavDB_.GetDevCatID("99", "2"), "");
    EXPECT_THAT(world_.Statements(), ElementsAre(kPairRead, NewPair("1", "99", "2")));
    EXPECT_EQ(world_.Rows(kPairRows), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("DBgdci-03")));
}

TEST_F(Category, WithoutAnInitialisedFacadeOnlyEmptyNamesHaveAResult) {
    clsTavDB fresh(world_.Events());
    EXPECT_EQ(fresh.GetCategoryID("", 8), "0");
    EXPECT_EQ(fresh.GetCategoryID("Flow", 8), "");
    EXPECT_EQ(fresh.GetCategoryID("Gauge", 9), "");
    EXPECT_EQ(fresh.GetDevCatID("", "1"), "0");
    EXPECT_EQ(fresh.GetDevCatID("1", "1"), "");
    EXPECT_THAT(world_.Statements(), IsEmpty());
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(Category, WithoutAConnectionTheResultIsEmptyAndLogged) {
    ASSERT_FALSE(world_.Connect("nowhere"));
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), "");
    EXPECT_EQ(tavDB_.GetDevCatID("1", "1"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("CONNconn-02"),
                                              EntryText("DBgci-02", ErrorNumber::ObjectVariableNotSet),
                                              EntryText("DBgdci-01", ErrorNumber::ObjectVariableNotSet)));
}

TEST_F(Category, NewRowsStayWhenTheLaterUpdateFails) {
    EXPECT_EQ(tavDB_.GetCategoryID("Torque", 8), "10");
    EXPECT_EQ(tavDB_.GetDevCatID("10", "2"), "1");
    tavDB_.Manufacturer().ManID = "26";
    tavDB_.Manufacturer().Name = "O'Neil";
    EXPECT_FALSE(tavDB_.Update());
    EXPECT_EQ(world_.Rows("SELECT * FROM MajorDeviceCategories WHERE MajorDeviceCategoryId > 8"),
              "9|Input and output|\n10|Torque|\n");
    EXPECT_EQ(world_.Rows(kPairRows), "1|10|2\n");
    EXPECT_EQ(world_.Rows("SELECT * FROM Manufacturers"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("MANins-02.1a")));
}

TEST(CategoryOfTheOldSchema, IsFoundAndMadeThereToo) {
    DbWorld world(DeviceSchema::Old);
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(tavDB.GetCategoryID("flow", 8), "3");
    EXPECT_EQ(tavDB.GetCategoryID("Torque", 8), "10");
    EXPECT_EQ(tavDB.GetDevCatID("3", "6"), "6");
}

}  // namespace
}  // namespace ventlock::test
