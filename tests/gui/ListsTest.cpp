#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gui/GuiWorld.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> Items(const ListField& list) {
    std::vector<std::string> items;
    for (int i = 0; i < list.Count(); ++i) items.push_back(list.Text(i));
    return items;
}

std::vector<const ListField*> RevisionLists(const MainControls& controls) {
    return {controls.cboDevRev.get(), controls.cboDDRev.get(), controls.cboHARTRev.get()};
}

TEST(RevisionLists, HoldTheRevisionsFrom00To14) {
    GuiWorld world(GuiWorld::NoDatabase{});
    frmMain& window = world.Make();
    EXPECT_TRUE(window.FillLists());
    for (const ListField* list : RevisionLists(window.Controls())) {
        EXPECT_THAT(Items(*list),
                    ElementsAre("00", "01", "02", "03", "04", "05", "06", "07", "08", "09", "0A", "0B", "0C",
                                "0D", "0E", "0F", "10", "11", "12", "13", "14"));
    }
}

TEST(RevisionLists, CountHexadecimallyInTheToolkitToo) {
    GuiWorld world(GuiWorld::NoDatabase{});
    frmMain& window = world.Make();
    window.FillLists();
    for (const ListField* list : RevisionLists(window.Controls())) {
        ASSERT_EQ(list->Box().GetCount(), 21u);
        EXPECT_EQ(list->Box().GetString(10), "0A");
        EXPECT_EQ(list->Box().GetString(16), "10");
    }
}

TEST(RevisionLists, Select01And01And05AtFirst) {
    GuiWorld world(GuiWorld::NoDatabase{});
    frmMain& window = world.Make();
    window.FillLists();
    const MainControls& controls = window.Controls();
    EXPECT_EQ(controls.cboDevRev->Text(), "01");
    EXPECT_EQ(controls.cboDevRev->Index(), 1);
    EXPECT_EQ(controls.cboDevRev->Combo().GetValue(), "01");
    EXPECT_EQ(controls.cboDDRev->Text(), "01");
    EXPECT_EQ(controls.cboDDRev->Index(), 1);
    EXPECT_EQ(controls.cboDDRev->Combo().GetValue(), "01");
    EXPECT_EQ(controls.cboHARTRev->Text(), "05");
    EXPECT_EQ(controls.cboHARTRev->Index(), 5);
    EXPECT_EQ(controls.cboHARTRev->Combo().GetValue(), "05");
}

void ExpectNoDatabaseLists(const MainControls& controls) {
    EXPECT_EQ(controls.cboDeviceProtocol->Count(), 0);
    EXPECT_EQ(controls.cboDeviceCategory->Count(), 0);
    EXPECT_EQ(controls.cboMinorCategory->Count(), 0);
}

TEST(DatabaseLists, AreEmptyWithoutAConnection) {
    GuiWorld world(GuiWorld::NoDatabase{});
    frmMain& window = world.Make();
    EXPECT_TRUE(window.FillLists());
    ExpectNoDatabaseLists(window.Controls());
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(DatabaseLists, AreEmptyOnTheOldSchema) {
    GuiWorld world(DeviceSchema::Old);
    frmMain& window = world.Start();
    ASSERT_TRUE(window.IsConnected());
    ExpectNoDatabaseLists(window.Controls());
    world.Statements();
    EXPECT_TRUE(window.FillLists());
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(DatabaseLists, HoldTheRowsInTheOrderOfTheirIds) {
    GuiWorld world;
    world.Database().Execute("INSERT INTO DeviceProtocols VALUES (11, 'Analog', ''), (10, 'Wireless', '')");
    frmMain& window = world.Start();
    EXPECT_THAT(Items(*window.Controls().cboDeviceProtocol),
                ElementsAre("HART", "Fieldbus", "Conventional", "Wireless", "Analog"));
    EXPECT_THAT(Items(*window.Controls().cboDeviceCategory),
                ElementsAre("Not classified", "Pressure", "Temperature", "Flow", "Level", "Valve",
                            "Analytical", "Positioning", "Weighing", "Input and output"));
    EXPECT_EQ(window.Controls().cboMinorCategory->Count(), 18);
}

TEST(DatabaseLists, CarryTheIdsOfTheRows) {
    GuiWorld world;
    world.Database().Execute("INSERT INTO DeviceProtocols VALUES (11, 'Analog', '')");
    frmMain& window = world.Start();
    EXPECT_EQ(window.Controls().cboDeviceProtocol->ItemData(3), 11);
    EXPECT_EQ(window.Controls().cboDeviceCategory->ItemData(9), 9);
    EXPECT_EQ(window.Controls().cboMinorCategory->ItemData(17), 17);
}

/// The lists are empty again and the statement that fills one of them is refused.
class FailingDatabaseLists : public testing::Test {
 protected:
    bool FillListsWithout(const std::string& statement) {
        frmMain& window = world_.Start();
        for (ListField* list : std::initializer_list<ListField*>{Controls().cboDeviceProtocol.get(),
                                                                 Controls().cboDeviceCategory.get(),
                                                                 Controls().cboMinorCategory.get()})
            list->Clear();
        world_.failure.FailAt(statement, 1, RunTimeError(ErrorNumber::OdbcCallFailed));
        return window.FillLists();
    }

    MainControls& Controls() { return world_.Window().Controls(); }

    GuiWorld world_;
};

TEST_F(FailingDatabaseLists, OfTheProtocolsLeaveAllThreeEmpty) {
    EXPECT_FALSE(FillListsWithout("SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId "));
    EXPECT_EQ(Controls().cboDeviceProtocol->Count(), 0);
    EXPECT_EQ(Controls().cboDeviceCategory->Count(), 0);
    EXPECT_EQ(Controls().cboMinorCategory->Count(), 0);
}

TEST_F(FailingDatabaseLists, OfTheMajorCategoriesLeaveTheProtocols) {
    EXPECT_FALSE(FillListsWithout(
        "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  "
        "ORDER BY MajorDevicecategoryId "));
    EXPECT_EQ(Controls().cboDeviceProtocol->Count(), 3);
    EXPECT_EQ(Controls().cboDeviceCategory->Count(), 0);
    EXPECT_EQ(Controls().cboMinorCategory->Count(), 0);
}

TEST_F(FailingDatabaseLists, OfTheMinorCategoriesLeaveTheOtherTwo) {
    EXPECT_FALSE(FillListsWithout(
        "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  "
        "ORDER BY MinorDevicecategoryId "));
    EXPECT_EQ(Controls().cboDeviceProtocol->Count(), 3);
    EXPECT_EQ(Controls().cboDeviceCategory->Count(), 10);
    EXPECT_EQ(Controls().cboMinorCategory->Count(), 0);
}

}  // namespace
}  // namespace ventlock::test
