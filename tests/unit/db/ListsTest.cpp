#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "core/ItemList.h"
#include "db/DatabaseOf.h"
#include "db/ReferenceLists.h"
#include "db/clsTavDB.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kProtocolsRead = "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ";
constexpr const char* kMajorRead =
    "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  ORDER BY "
    "MajorDevicecategoryId ";
constexpr const char* kMinorRead =
    "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  ORDER BY "
    "MinorDevicecategoryId ";

/// "data=text\n" an item.
std::string Items(const IList& list) {
    std::string items;
    for (int i = 0; i < list.Count(); ++i)
        items += std::to_string(list.ItemData(i)) + "=" + list.Text(i) + "\n";
    return items;
}

/// A facade that is ready on the current schema; nothing of its start is among statements and yields.
class Lists : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(tavDB_.Init(world_.Objects(), 2));
        world_.Statements();
        world_.Events().yields = 0;
    }

    DbWorld world_;
    clsTavDB tavDB_{world_.Events()};
    ItemList list_;
};

TEST_F(Lists, MajorCategoriesStandInIdOrderWithTheirIds) {
    EXPECT_TRUE(tavDB_.LoadCategories(list_, 8));
    EXPECT_EQ(Items(list_),
              "0=Not classified\n1=Pressure\n2=Temperature\n3=Flow\n4=Level\n5=Valve\n6=Analytical\n"
              "7=Positioning\n8=Weighing\n9=Input and output\n");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMajorRead));
    EXPECT_EQ(world_.Events().yields, 10) << "once per row";
}

TEST_F(Lists, MinorCategoriesStandInIdOrderWithTheirIds) {
    world_.Execute("DELETE FROM DeviceCategories");
    world_.Execute("DELETE FROM MinorDeviceCategories");
    world_.Execute(
        "INSERT INTO MinorDeviceCategories VALUES (40000, 'Late', ''), (7, 'Coriolis', ''), "
        "(2, 'Zoned', '')");
    EXPECT_TRUE(tavDB_.LoadCategories(list_, 9));
    EXPECT_EQ(Items(list_), "2=Zoned\n7=Coriolis\n40000=Late\n");
    EXPECT_THAT(world_.Statements(), ElementsAre(kMinorRead));
    EXPECT_EQ(world_.Events().yields, 3);
}

TEST_F(Lists, ProtocolsStandInIdOrderWithTheirIds) {
    world_.Execute("INSERT INTO DeviceProtocols VALUES (70000, 'Own', ''), (5, 'Other', '')");
    EXPECT_TRUE(tavDB_.LoadProtocols(list_));
    EXPECT_EQ(Items(list_), "0=HART\n1=Fieldbus\n2=Conventional\n5=Other\n70000=Own\n");
    EXPECT_THAT(world_.Statements(), ElementsAre(kProtocolsRead));
    EXPECT_EQ(world_.Events().yields, 5);
}

TEST_F(Lists, LoadingAppendsToWhatIsThere) {
    list_.Add({{"Before", 99}});
    EXPECT_TRUE(tavDB_.LoadProtocols(list_));
    EXPECT_TRUE(tavDB_.LoadProtocols(list_));
    EXPECT_EQ(Items(list_),
              "99=Before\n0=HART\n1=Fieldbus\n2=Conventional\n0=HART\n1=Fieldbus\n2=Conventional\n");
    world_.Execute("DELETE FROM DeviceCategories");
    world_.Execute("DELETE FROM MajorDeviceCategories WHERE MajorDeviceCategoryId <> 3");
    EXPECT_TRUE(tavDB_.LoadCategories(list_, 8));
    EXPECT_EQ(Items(list_),
              "99=Before\n0=HART\n1=Fieldbus\n2=Conventional\n0=HART\n1=Fieldbus\n2=Conventional\n3=Flow\n");
}

TEST_F(Lists, CategoriesOfAnyOtherKindAreAnErrorWithoutAStatement) {
    EXPECT_FALSE(tavDB_.LoadCategories(list_, 7));
    EXPECT_FALSE(tavDB_.LoadCategories(list_, 10));
    EXPECT_FALSE(tavDB_.LoadCategories(list_, 0));
    EXPECT_EQ(list_.Count(), 0);
    EXPECT_THAT(world_.Statements(), IsEmpty());
    const std::string entry = "DBlc-00: Invalid procedure call or argument (5)";
    EXPECT_THAT(world_.Entries(), ElementsAre(entry, entry, entry));
}

TEST_F(Lists, ANullNameIsAnEmptyItem) {
    world_.Execute("UPDATE DeviceProtocols SET Name = NULL WHERE ProtocolId = 1");
    EXPECT_TRUE(tavDB_.LoadProtocols(list_));
    EXPECT_EQ(Items(list_), "0=HART\n1=\n2=Conventional\n");
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(Lists, AnIdThatIsNoNumberEndsTheLoad) {
    world_.Loosen({"DeviceRevisions", "DeviceCategories", "MajorDeviceCategories", "DeviceTypes",
                   "MfrProtocols", "DeviceProtocols"});
    world_.Database().MakeText("DeviceProtocols", "ProtocolId");
    world_.Database().MakeText("MajorDeviceCategories", "MajorDeviceCategoryId");
    world_.Execute("UPDATE DeviceProtocols SET ProtocolId = NULL WHERE Name = 'Fieldbus'");
    EXPECT_FALSE(tavDB_.LoadProtocols(list_));
    world_.Execute("UPDATE MajorDeviceCategories SET MajorDeviceCategoryId = 'x' WHERE Name = 'Flow'");
    ItemList categories;
    EXPECT_FALSE(tavDB_.LoadCategories(categories, 8));
    ASSERT_EQ(categories.Count(), 10) << "the rows before it, and its text";
    EXPECT_EQ(categories.Text(9), "Flow");
    EXPECT_EQ(categories.ItemData(8), 9);
    EXPECT_EQ(categories.ItemData(9), 0);
    world_.Execute("UPDATE DeviceProtocols SET ProtocolId = 2147483648 WHERE ProtocolId IS NULL");
    EXPECT_FALSE(tavDB_.LoadProtocols(list_));
    EXPECT_THAT(world_.Entries(), ElementsAre("DBlp-00: Invalid use of Null (94)",
                                              "DBlc-00: Type mismatch (13)", "DBlp-00: Overflow (6)"));
}

TEST_F(Lists, WithoutAConnectionNothingIsLoaded) {
    ASSERT_FALSE(world_.Connect("nowhere"));
    EXPECT_FALSE(tavDB_.LoadProtocols(list_));
    EXPECT_FALSE(tavDB_.LoadCategories(list_, 9));
    EXPECT_EQ(list_.Count(), 0);
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("CONNconn-02"),
                                              EntryText("DBlp-00", ErrorNumber::ObjectVariableNotSet),
                                              EntryText("DBlc-00", ErrorNumber::ObjectVariableNotSet)));
}

TEST_F(Lists, TheFirstLoadThatFailsLeavesTheListsAfterItEmpty) {
    world_.Database().DropTable("MajorDeviceCategories");
    ItemList major;
    ItemList minor;
    EXPECT_FALSE(LoadReferenceLists(tavDB_, list_, major, minor));
    EXPECT_EQ(Items(list_), "0=HART\n1=Fieldbus\n2=Conventional\n");
    EXPECT_EQ(major.Count(), 0);
    EXPECT_EQ(minor.Count(), 0);
    EXPECT_THAT(world_.Statements(), ElementsAre(kProtocolsRead, kMajorRead));
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("DBlc-00")));
}

TEST_F(Lists, AFailingProtocolLoadRunsNoOther) {
    world_.Database().DropTable("DeviceProtocols");
    ItemList major;
    ItemList minor;
    EXPECT_FALSE(LoadReferenceLists(tavDB_, list_, major, minor));
    EXPECT_THAT(world_.Statements(), ElementsAre(kProtocolsRead));
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("DBlp-00")));
}

TEST_F(Lists, AllThreeAreFilledInTheirOrder) {
    ItemList major;
    ItemList minor;
    EXPECT_TRUE(LoadReferenceLists(tavDB_, list_, major, minor));
    EXPECT_EQ(Items(list_), "0=HART\n1=Fieldbus\n2=Conventional\n");
    EXPECT_EQ(major.Count(), 10);
    EXPECT_EQ(major.Text(5), "Valve");
    EXPECT_EQ(minor.Count(), 18);
    EXPECT_EQ(minor.Text(5), "Resistance thermometer");
    EXPECT_THAT(world_.Statements(), ElementsAre(kProtocolsRead, kMajorRead, kMinorRead));
}

TEST_F(Lists, ASecondSnapshotCanBeOpenedWhileTheFirstIsWalked) {
    const auto outer = OpenSnapshot(&world_.Objects(), "SELECT *   FROM DeviceProtocols ");
    EXPECT_EQ(outer->RecordCount(), 3U);
    std::string walked;
    for (; !outer->AtEnd(); outer->MoveNext()) {
        const auto inner = OpenSnapshot(&world_.Objects(), "SELECT *   FROM MajorDeviceCategories ");
        EXPECT_EQ(inner->RecordCount(), 10U);
        walked += outer->Column("Name").Text() + "/" + inner->Column("Name").Text() + "\n";
    }
    EXPECT_EQ(walked, "HART/Not classified\nFieldbus/Not classified\nConventional/Not classified\n");
    EXPECT_EQ(outer->RecordCount(), 3U);
}

}  // namespace
}  // namespace ventlock::test
