// What the end of the window leaves in the settings.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/GuiWorld.h"
#include "gui/Input.h"

namespace ventlock::test {
namespace {

TEST(ExitSaves, TheSelectedVersionsAndLeavesTheOwnIniFileAlone) {
    GuiWorld world;
    world.PutEntry();
    world.Put("TAVVersions", "6.0");
    const std::string ownIni = ReadBytes(world.ProgramFile("ventlock.ini"));
    world.Start().Controls().lstTAVVersionSupport->Select(0);
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("TAVVersions"), "5.0, 6.0");
    EXPECT_EQ(ReadBytes(world.ProgramFile("ventlock.ini")), ownIni);
}

/// Values that only the current schema has fields for.
void ExpectCurrentSchemaValuesKept(GuiWorld& world) {
    world.PutEntry();
    frmMain& window = world.Start();
    for (const std::size_t box :
         {kManufacturerDescriptionBox, kDeviceDescriptionBox, kRevisionNameBox, kRevisionDescriptionBox}) {
        EXPECT_EQ(window.Controls().txtMain[box]->Text(), "") << "not shown";
    }
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Best");
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManName"), "Best");
    EXPECT_EQ(world.Stored("ManDesc"), "Acme Inc");
    EXPECT_EQ(world.Stored("DevDesc"), "Flow meter");
    EXPECT_EQ(world.Stored("DevRevName"), "R1");
    EXPECT_EQ(world.Stored("DevRevDesc"), "First");
    EXPECT_EQ(world.Stored("ProtID"), "2");
    EXPECT_EQ(world.Stored("DevCatID"), "1");
    EXPECT_EQ(world.Stored("DevMinCatID"), "1");
}

TEST(ExitSaves, WhatTheOldSchemaHasNoFieldsForAsItWas) {
    GuiWorld world(DeviceSchema::Old);
    ExpectCurrentSchemaValuesKept(world);
}

TEST(ExitSaves, WhatOnlyADatabaseHasFieldsForAsItWasWithoutOne) {
    GuiWorld world(GuiWorld::NoDatabase{});
    ExpectCurrentSchemaValuesKept(world);
}

TEST(ExitSaves, APositionBeyondTheStoredRangeAsTheFarthestOne) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    WaitUntil("the window to be active", [&] { return window.IsActive(); });
    window.Move(2300, 100);
    WaitUntil("the move", [&] { return window.GetPosition() == wxPoint(2300, 100); });
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Best");
    window.Close();
    EXPECT_EQ(world.Stored("WindowLeft"), "32767");
    EXPECT_EQ(world.Stored("WindowTop"), "1500");
    EXPECT_EQ(world.Stored("ManName"), "Best");
}

TEST(ExitSaves, TheFirstCategoriesUnlessTheProtocolIsTheThird) {
    GuiWorld world;
    world.PutEntry();
    world.Put("DevCatID", "3");
    world.Put("DevMinCatID", "6");
    world.Put("ProtID", "0");
    world.Database().Execute("DELETE FROM DeviceCategories");
    world.Database().Execute("DELETE FROM MajorDeviceCategories WHERE MajorDeviceCategoryId < 2");
    world.Database().Execute("DELETE FROM MinorDeviceCategories WHERE MinorDeviceCategoryId < 4");
    world.Start();
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("DevCatID"), "2");
    EXPECT_EQ(world.Stored("DevMinCatID"), "4");
    EXPECT_EQ(world.Stored("ProtID"), "0");
}

TEST(ExitSaves, TheChosenCategoriesOfTheThirdProtocol) {
    GuiWorld world;
    world.PutEntry();
    world.Put("DevCatID", "3");
    world.Put("DevMinCatID", "6");
    world.Start();
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("DevCatID"), "3");
    EXPECT_EQ(world.Stored("DevMinCatID"), "6");
}

}  // namespace
}  // namespace ventlock::test
