#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"

namespace ventlock::test {
namespace {

using ::testing::Each;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(Clear, LeavesPathsMinorCategoryAndVersions) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->Select(3);
    window.Controls().cboMinorCategory->Select(4);
    const EntryForm before = window.Controls().Read();
    ASSERT_THAT(UsableWrites(window), SizeIs(6));
    window.mnuClear_Click();
    const EntryForm form = window.Controls().Read();
    for (std::size_t box = 0; box < kManufacturerIdBox; ++box)
        EXPECT_EQ(form.txtMain[box], before.txtMain[box]) << box;
    for (std::size_t box = kManufacturerIdBox; box < kTextBoxCount; ++box)
        EXPECT_EQ(form.txtMain[box], "") << box;
    EXPECT_EQ(form.cboDevRev, "01");
    EXPECT_EQ(form.cboDDRev, "01");
    EXPECT_EQ(form.cboHARTRev, "05");
    EXPECT_EQ(form.cboDeviceProtocol.index, -1);
    EXPECT_EQ(form.cboDeviceCategory.index, -1);
    EXPECT_EQ(form.cboDeviceCategory.text, "");
    EXPECT_EQ(form.cboMinorCategory.index, 4);
    EXPECT_TRUE(form.lstTAVVersionSupport[0].isSelected);
    EXPECT_TRUE(form.lstTAVVersionSupport[1].isSelected);
    EXPECT_THAT(UsableWrites(window), IsEmpty());
    EXPECT_EQ(window.Records().TavDB().Manufacturer().ProtID, "2");
}

TEST(Clear, LetsTheNextChangePutTheCategoriesOnTheirFirstItem) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboMinorCategory->Select(4);
    window.mnuClear_Click();
    window.Controls().txtMain[kManufacturerIdBox]->SetText("1");
    const EntryForm form = window.Controls().Read();
    EXPECT_EQ(form.cboDeviceCategory.index, 0);
    EXPECT_EQ(form.cboMinorCategory.index, 0);
    EXPECT_FALSE(window.Controls().cboDeviceCategory->Box().IsThisEnabled());
    EXPECT_FALSE(window.Controls().cboMinorCategory->Box().IsThisEnabled());
}

TEST(Clear, EmptiesTheRevisionNameAlsoWhenItIsDisabled) {
    GuiWorld world(DeviceSchema::Old);
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kRevisionNameBox]->SetText("typed before");
    ASSERT_FALSE(window.Controls().txtMain[kRevisionNameBox]->Box().IsThisEnabled());
    window.mnuClear_Click();
    EXPECT_EQ(window.Controls().txtMain[kRevisionNameBox]->Text(), "");
}

TEST(Clear, OnTheOldSchemaLeavesProtocolAndCategories) {
    GuiWorld world;
    world.PutEntry();
    SqliteDatabase old(DeviceSchema::Old);
    frmMain& window = world.Start();
    window.Controls().txtMain[kDataSourceBox]->SetText(old.Dsn());
    window.cmdSwitchDSN_Click();
    window.mnuClear_Click();
    EXPECT_EQ(window.Controls().cboDeviceProtocol->Index(), 2);
    EXPECT_EQ(window.Controls().cboDeviceCategory->Text(), "Pressure");
    EXPECT_EQ(window.Controls().txtMain[kManufacturerIdBox]->Text(), "");
}

TEST(Clear, LetsTheStoredProtocolComeBackAtTheNextStart) {
    GuiWorld world;
    world.PutEntry();
    world.Start().mnuClear_Click();
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ProtID"), "2");
    frmMain& window = world.Start();
    EXPECT_EQ(window.Controls().cboDeviceProtocol->Index(), 2);
    EXPECT_EQ(window.Controls().txtMain[kManufacturerIdBox]->Text(), "");
}

TEST(Clear, AsksAndTellsNothing) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    world.Statements();
    Choose(window, *window.Menu().mnuClear);
    EXPECT_EQ(window.Controls().txtMain[kDeviceNameBox]->Text(), "");
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
    EXPECT_THAT(world.Statements(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
