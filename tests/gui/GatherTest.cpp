#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kInsertMajor =
    "INSERT INTO MajorDeviceCategories        (MajorDeviceCategoryId, Name, Description) VALUES ('10', "
    "'Brand "
    "new', '') ";

TEST(Gather, LeavesTheFieldsAsTheyWereTyped) {
    GuiWorld world;
    frmMain& window = world.Start();
    MainControls& controls = window.Controls();
    for (std::size_t box = kManufacturerIdBox; box < kTextBoxCount; ++box)
        controls.txtMain[box]->SetText(" typed ");
    controls.txtMain[kDllBox]->SetText("");
    controls.txtMain[kTemplateBox]->SetText("");
    controls.cboDevRev->SetText(" 0a ");
    const EntryForm before = controls.Read();
    EXPECT_TRUE(window.GatherEntry());
    const EntryForm after = controls.Read();
    EXPECT_EQ(after.txtMain, before.txtMain) << "no \".dll\" is shown";
    EXPECT_EQ(after.cboDevRev, " 0a ");
    EXPECT_EQ(window.Records().DDInstall().DeviceDLL, ".dll");
    EXPECT_EQ(window.Records().PyxConfig().DeviceDLL, ".dll");
    EXPECT_EQ(window.Records().DDInstall().Template, ".mrg");
    EXPECT_EQ(window.Records().TavDB().Device().DevRev, "0a") << "trimmed, not upper-cased";
}

TEST(Gather, TakesEveryFieldToItsRecord) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    MainControls& controls = window.Controls();
    for (std::size_t box = kDDInstallPathBox; box < kTextBoxCount; ++box)
        controls.txtMain[box]->SetText(" " + std::to_string(box) + " ");
    controls.cboDevRev->SetText(" 0B ");
    controls.cboDDRev->SetText(" 0C ");
    controls.cboHARTRev->SetText(" 0D ");
    EXPECT_TRUE(window.GatherEntry());
    EntryRecords& records = window.Records();
    const clsManufacturer& manufacturer = records.TavDB().Manufacturer();
    const clsDevice& device = records.TavDB().Device();
    EXPECT_EQ(records.DDInstall().IniPath, " 1 ") << "paths keep their blanks";
    EXPECT_EQ(records.PyxConfig().IniPath, " 2 ");
    EXPECT_EQ(manufacturer.ManID, "3");
    EXPECT_EQ(device.ManID, "3");
    EXPECT_EQ(manufacturer.Name, "4");
    EXPECT_EQ(manufacturer.Desc, "5");
    EXPECT_EQ(device.DevID, "6");
    EXPECT_EQ(device.DevName, "7");
    EXPECT_EQ(device.DevDesc, "8");
    EXPECT_EQ(records.DDInstall().DeviceDLL, "9.dll");
    EXPECT_EQ(records.PyxConfig().DeviceDLL, "9.dll");
    EXPECT_EQ(records.DDInstall().Template, "10.mrg");
    EXPECT_EQ(device.RevName, "11");
    EXPECT_EQ(device.RevDesc, "12");
    EXPECT_EQ(records.DDInstall().DeviceHelp, "13.hlp");
    EXPECT_EQ(records.PyxConfig().DeviceHelp, "13.hlp");
    EXPECT_EQ(records.DDInstall().BlockHelp, "14.hlp");
    EXPECT_EQ(records.PyxConfig().BlockHelp, "14.hlp");
    EXPECT_EQ(device.DevRev, "0B");
    EXPECT_EQ(device.DDRev, "0C");
    EXPECT_EQ(device.ProtRev, "0D");
}

TEST(Gather, TakesTheChosenProtocolsIdAndKeepsItWithoutAChoice) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    const clsManufacturer& manufacturer = window.Records().TavDB().Manufacturer();
    window.Controls().cboDeviceProtocol->Select(0);
    window.GatherEntry();
    EXPECT_EQ(manufacturer.ProtID, "0");
    window.Controls().cboDeviceProtocol->Select(-1);
    window.GatherEntry();
    EXPECT_EQ(manufacturer.ProtID, "0") << "kept";
}

TEST(Gather, TakesAPickedCategoryByItsIdWithoutAStatement) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->Select(4);
    window.Controls().cboMinorCategory->Select(10);
    world.Statements();
    window.GatherEntry();
    const clsDevice& device = window.Records().TavDB().Device();
    EXPECT_EQ(device.MajCatID, "4");
    EXPECT_EQ(device.MinCatID, "10");
    EXPECT_EQ(device.CatID, "11") << "of the pair 4, 10";
    EXPECT_THAT(world.Statements(),
                ElementsAre("SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId "));
}

TEST(Gather, FindsATypedCategoryWhateverItsLetterCase) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->SetText(" PRESSURE ");
    window.Controls().cboMinorCategory->SetText("differential");
    window.GatherEntry();
    EXPECT_EQ(window.Records().TavDB().Device().MajCatID, "1");
    EXPECT_EQ(window.Records().TavDB().Device().MinCatID, "2");
    EXPECT_EQ(window.Records().TavDB().Device().CatID, "2");
}

TEST(Gather, StoresANewTypedCategory) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->SetText("Brand new");
    world.Statements();
    window.GatherEntry();
    EXPECT_THAT(world.Statements(), Contains(kInsertMajor));
    EXPECT_EQ(window.Records().TavDB().Device().MajCatID, "10");
    EXPECT_EQ(world.Database().Rows("SELECT * FROM MajorDeviceCategories WHERE MajorDeviceCategoryId > 9"),
              "10|Brand new|\n");
}

TEST(Gather, TakesAnEmptyCategoryAsZero) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->SetText("  ");
    window.Controls().cboMinorCategory->SetText("");
    window.GatherEntry();
    EXPECT_EQ(window.Records().TavDB().Device().MajCatID, "0");
    EXPECT_EQ(window.Records().TavDB().Device().MinCatID, "0");
    EXPECT_EQ(window.Records().TavDB().Device().CatID, "0");
}

TEST(Gather, GoesOnWhenACategoryCannotBeLookedUp) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().cboDeviceCategory->SetText("Brand new");
    window.Controls().txtMain[kRevisionDescriptionBox]->SetText("typed");
    world.failure.FailAt(kInsertMajor, 1, RunTimeError(ErrorNumber::OdbcCallFailed));
    EXPECT_TRUE(window.GatherEntry());
    const clsDevice& device = window.Records().TavDB().Device();
    EXPECT_EQ(device.MajCatID, "");
    EXPECT_EQ(device.CatID, "0") << "of an empty identifier";
    EXPECT_EQ(device.RevDesc, "typed");
    EXPECT_EQ(window.Records().TavDB().LastTAVVersions, "5.0, 6.0");
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("DBgci-03", ErrorNumber::OdbcCallFailed)));
}

TEST(Gather, JoinsTheSelectedVersionsInTheListsOrder) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    VersionField& versions = *window.Controls().lstTAVVersionSupport;
    versions.Box().DeselectAll();
    versions.Select(2);
    versions.Select(0);
    window.GatherEntry();
    EXPECT_EQ(window.Records().DDInstall().TAVVersionSupport, "5.0, 7.0");
    EXPECT_EQ(window.Records().TavDB().LastTAVVersions, "5.0, 7.0");
    versions.Box().DeselectAll();
    window.GatherEntry();
    EXPECT_EQ(window.Records().DDInstall().TAVVersionSupport, "");
    EXPECT_EQ(window.Records().TavDB().LastTAVVersions, "");
}

TEST(Gather, JoinsASelectedVersionWithoutATextToo) {
    GuiWorld world;
    WriteBytes(world.ProgramFile("ventlock.ini"), "[TAVVersionSupport]\r\nTAVVersionSupport=5.0,,6.0\r\n");
    frmMain& window = world.Start();
    for (int i = 0; i < 3; ++i) window.Controls().lstTAVVersionSupport->Select(i);
    window.GatherEntry();
    EXPECT_EQ(window.Records().DDInstall().TAVVersionSupport, "5.0, , 6.0");
}

TEST(Gather, OnTheOldSchemaKeepsWhatItHasNoColumnsFor) {
    GuiWorld world(DeviceSchema::Old);
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("typed");
    window.Controls().cboMinorCategory->SetText("typed");
    world.Statements();
    window.GatherEntry();
    const clsManufacturer& manufacturer = window.Records().TavDB().Manufacturer();
    const clsDevice& device = window.Records().TavDB().Device();
    EXPECT_EQ(manufacturer.Name, "typed");
    EXPECT_EQ(manufacturer.Desc, "Acme Inc");
    EXPECT_EQ(manufacturer.ProtID, "2");
    EXPECT_EQ(device.DevDesc, "Flow meter");
    EXPECT_EQ(device.RevName, "R1");
    EXPECT_EQ(device.RevDesc, "First");
    EXPECT_EQ(device.MajCatID, "1");
    EXPECT_EQ(device.MinCatID, "1");
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(Gather, OfAnEmptyEntryBringsBackExtensionsThatCountAsFilled) {
    GuiWorld world;
    world.Start();
    world.CloseAndForget();
    frmMain& window = world.Start();
    MainControls& controls = window.Controls();
    EXPECT_EQ(controls.txtMain[kDllBox]->Text(), ".dll");
    EXPECT_EQ(controls.txtMain[kTemplateBox]->Text(), ".mrg");
    EXPECT_EQ(controls.txtMain[kDeviceHelpBox]->Text(), "");
    EXPECT_EQ(controls.txtMain[kBlockHelpBox]->Text(), "");
    controls.txtMain[kManufacturerIdBox]->SetText("26");
    controls.txtMain[kManufacturerNameBox]->SetText("Acme");
    controls.txtMain[kDeviceIdBox]->SetText("7");
    controls.txtMain[kDeviceNameBox]->SetText("Flow");
    ASSERT_THAT(UsableWrites(window), Contains("mnuWriteINI"));
    window.mnuWriteINI_Click();
    EXPECT_THAT(ReadBytes(world.PyxPath()), HasSubstr("\r\nDeviceDLL=000026\\0007\\.dll\r\n"));
}

}  // namespace
}  // namespace ventlock::test
