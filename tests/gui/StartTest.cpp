#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/GuiWorld.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Start, OnTheCurrentSchemaRunsExactlySevenSnapshots) {
    GuiWorld world;
    world.Start();
    EXPECT_THAT(
        world.Statements(),
        ElementsAre(
            "SELECT *   FROM __version  ORDER BY Major, Minor ",
            "SELECT *   FROM __version  ORDER BY Major, Minor ", "SELECT *   FROM Manufacturers ",
            "SELECT *   FROM DeviceTypes ", "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ",
            "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  "
            "ORDER BY MajorDevicecategoryId ",
            "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  "
            "ORDER BY MinorDevicecategoryId "));
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(Start, OnTheOldSchemaRunsExactlyFourSnapshots) {
    GuiWorld world(DeviceSchema::Old);
    world.Start();
    EXPECT_THAT(world.Statements(), ElementsAre("SELECT *   FROM __version  ORDER BY Major, Minor ",
                                                "SELECT *   FROM __version  ORDER BY Major, Minor ",
                                                "SELECT *   FROM MfrIds ", "SELECT *   FROM DevTypes "));
}

TEST(Start, ShowsTheStoredEntry) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    const EntryForm form = window.Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerIdBox], "26");
    EXPECT_EQ(form.txtMain[kRevisionNameBox], "R1");
    EXPECT_EQ(form.cboDeviceProtocol.index, 2);
    EXPECT_EQ(form.cboDeviceCategory.itemData, 1);
    EXPECT_EQ(form.cboDDRev, "02");
    ASSERT_EQ(form.lstTAVVersionSupport.size(), 3u);
    EXPECT_TRUE(form.lstTAVVersionSupport[1].isSelected);
    EXPECT_FALSE(form.lstTAVVersionSupport[2].isSelected);
}

}  // namespace
}  // namespace ventlock::test
