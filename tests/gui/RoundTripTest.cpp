#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/modLocalization.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/Shown.h"
#include "gui/StartAt.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The texts of the versions that are selected.
std::vector<std::string> Selected(frmMain& window) {
    std::vector<std::string> texts;
    for (const OfferedVersion& version : window.Controls().lstTAVVersionSupport->Versions())
        if (version.isSelected) texts.push_back(version.text);
    return texts;
}

TEST(LoadFormText, ShowsEveryStoredFieldOnTheCurrentSchema) {
    GuiWorld world;
    world.PutEntry();
    const EntryForm form = world.Start().Controls().Read();
    EXPECT_EQ(form.txtMain[kDataSourceBox], world.Database().Dsn());
    EXPECT_EQ(form.txtMain[kDDInstallPathBox], world.DDInstallPath());
    EXPECT_EQ(form.txtMain[kIniPathBox], world.PyxPath());
    EXPECT_EQ(form.txtMain[kManufacturerIdBox], "26");
    EXPECT_EQ(form.txtMain[kManufacturerNameBox], "Acme");
    EXPECT_EQ(form.txtMain[kManufacturerDescriptionBox], "Acme Inc");
    EXPECT_EQ(form.txtMain[kDeviceIdBox], "0A");
    EXPECT_EQ(form.txtMain[kDeviceNameBox], "Flow");
    EXPECT_EQ(form.txtMain[kDeviceDescriptionBox], "Flow meter");
    EXPECT_EQ(form.txtMain[kDllBox], "Dev.dll");
    EXPECT_EQ(form.txtMain[kTemplateBox], "Dev.mrg");
    EXPECT_EQ(form.txtMain[kRevisionNameBox], "R1");
    EXPECT_EQ(form.txtMain[kRevisionDescriptionBox], "First");
    EXPECT_EQ(form.txtMain[kDeviceHelpBox], "Dev.hlp");
    EXPECT_EQ(form.txtMain[kBlockHelpBox], "Blk.hlp");
    EXPECT_EQ(form.cboDevRev, "01");
    EXPECT_EQ(form.cboDDRev, "02");
    EXPECT_EQ(form.cboHARTRev, "05");
    EXPECT_EQ(form.cboDeviceProtocol.text, "Conventional");
    EXPECT_EQ(form.cboDeviceCategory.text, "Pressure");
    EXPECT_EQ(form.cboMinorCategory.text, "Gauge");
    EXPECT_THAT(Items(*world.Window().Controls().lstTAVVersionSupport), ElementsAre("5.0", "6.0", "7.0"));
    EXPECT_THAT(Selected(world.Window()), ElementsAre("5.0", "6.0"));
}

TEST(LoadFormText, OnTheOldSchemaDoesNotShowWhatItHasNoColumnsForAndExitKeepsIt) {
    GuiWorld world(DeviceSchema::Old);
    world.PutEntry();
    const EntryForm form = world.Start().Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerNameBox], "Acme");
    EXPECT_EQ(form.txtMain[kManufacturerDescriptionBox], "");
    EXPECT_EQ(form.txtMain[kDeviceDescriptionBox], "");
    EXPECT_EQ(form.txtMain[kRevisionNameBox], "");
    EXPECT_EQ(form.txtMain[kRevisionDescriptionBox], "");
    EXPECT_EQ(form.cboDeviceProtocol.itemCount, 0);
    EXPECT_EQ(form.cboDeviceCategory.text, "");
    EXPECT_EQ(form.cboMinorCategory.text, "");
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManDesc"), "Acme Inc");
    EXPECT_EQ(world.Stored("DevDesc"), "Flow meter");
    EXPECT_EQ(world.Stored("DevRevName"), "R1");
    EXPECT_EQ(world.Stored("DevRevDesc"), "First");
    EXPECT_EQ(world.Stored("ProtID"), "2");
    EXPECT_EQ(world.Stored("DevCatID"), "1");
    EXPECT_EQ(world.Stored("DevMinCatID"), "1");
}

TEST(LoadFormText, ShowsRevisionsThatAreNotInTheirLists) {
    GuiWorld world;
    world.PutEntry();
    world.Put("DevRev", "1F");
    world.Put("DDRev", "99");
    world.Put("ProtRev", "x");
    const EntryForm form = world.Start().Controls().Read();
    EXPECT_EQ(form.cboDevRev, "1F");
    EXPECT_EQ(form.cboDDRev, "99");
    EXPECT_EQ(form.cboHARTRev, "x");
}

TEST(LoadFormText, ChoosesTheProtocolByItsIdNotByItsPosition) {
    GuiWorld world;
    world.Database().Execute("INSERT INTO DeviceProtocols VALUES (-5, 'Before', '')");
    world.PutEntry();
    const ListChoice protocol = world.Start().Controls().cboDeviceProtocol->Choice();
    EXPECT_EQ(protocol.index, 3);
    EXPECT_EQ(protocol.text, "Conventional");
}

TEST(LoadFormText, WithTheSecondProtocolEmptiesTheRevisionName) {
    GuiWorld world;
    world.PutEntry();
    world.Put("ProtID", "1");
    frmMain& window = world.Start();
    EXPECT_EQ(window.Controls().cboDeviceProtocol->Index(), 1);
    EXPECT_EQ(window.Controls().txtMain[kRevisionNameBox]->Text(), "");
    EXPECT_FALSE(window.Controls().txtMain[kRevisionNameBox]->Box().IsThisEnabled());
}

TEST(LoadFormText, ChoosesNothingForAnUnknownProtocol) {
    GuiWorld world;
    world.PutEntry();
    world.Put("ProtID", "7");
    EXPECT_EQ(world.Start().Controls().cboDeviceProtocol->Index(), -1);
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(LoadFormText, ChoosesNothingForUnknownCategories) {
    GuiWorld world;
    world.PutEntry();
    world.Put("DevCatID", "77");
    world.Put("DevMinCatID", "78");
    frmMain& window = world.Start();
    EXPECT_EQ(window.Controls().cboDeviceCategory->Index(), -1);
    EXPECT_EQ(window.Controls().cboDeviceCategory->Text(), "");
    EXPECT_EQ(window.Controls().cboMinorCategory->Index(), -1);
    EXPECT_EQ(window.Controls().cboMinorCategory->Text(), "");
}

TEST(LoadFormText, ShowsTheLaterFieldsAfterIdsBeyondSixteenBits) {
    GuiWorld world;
    world.PutEntry();
    world.Put("ProtID", "40000");
    world.Put("DevCatID", "40000");
    world.Put("DevMinCatID", "99999999999");
    const EntryForm form = world.Start().Controls().Read();
    EXPECT_EQ(form.cboDeviceProtocol.index, -1);
    EXPECT_EQ(form.txtMain[kDeviceDescriptionBox], "Flow meter");
    EXPECT_EQ(form.txtMain[kRevisionDescriptionBox], "First");
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(LoadFormText, TakesAnEmptyProtocolIdAsZero) {
    GuiWorld world;
    world.PutEntry();
    world.Put("ProtID", "");
    EXPECT_EQ(world.Start().Controls().cboDeviceProtocol->Text(), "HART");
}

TEST(LoadFormText, ReadsTheWriteCommandsFromTheShownEntry) {
    GuiWorld world;
    world.PutEntry();
    EXPECT_TRUE(world.Start().Menu().mnuWriteDDInstall->IsEnabled()) << "versions are selected";
}

TEST(LoadFormText, ShowsAVersionListWithAnEmptyItem) {
    GuiWorld world;
    WriteBytes(world.ProgramFile("ventlock.ini"), "[TAVVersionSupport]\r\nTAVVersionSupport=5.0,,6.0\r\n");
    EXPECT_THAT(Items(*world.Start().Controls().lstTAVVersionSupport), ElementsAre("5.0", "", "6.0"));
}

TEST(SelectVersions, MatchesWholeTextsExactly) {
    GuiWorld world;
    WriteBytes(world.ProgramFile("ventlock.ini"),
               "[TAVVersionSupport]\r\nTAVVersionSupport=5.0,6.0b,7.0\r\n");
    world.Put("TAVVersions", "");
    frmMain& window = world.Start();
    EXPECT_TRUE(window.SelectVersions("5, 6.0B, 7.0, 8.0"));
    EXPECT_THAT(Selected(window), ElementsAre("7.0"));
}

TEST(SelectVersions, NeverUnselects) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    EXPECT_TRUE(window.SelectVersions("7.0"));
    EXPECT_THAT(Selected(window), ElementsAre("5.0", "6.0", "7.0"));
    EXPECT_TRUE(window.SelectVersions(""));
    EXPECT_THAT(Selected(window), ElementsAre("5.0", "6.0", "7.0"));
}

TEST(SelectVersions, LeavesOutWhatIsNotOffered) {
    GuiWorld world;
    world.PutEntry();
    world.Put("TAVVersions", "4.0, 6.0");
    EXPECT_THAT(Selected(world.Start()), ElementsAre("6.0"));
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(RoundTrip, ShowsTheSameEntryAfterARestart) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    MainControls& controls = window.Controls();
    for (std::size_t box = kManufacturerIdBox; box < kTextBoxCount; ++box)
        controls.txtMain[box]->SetText("field " + std::to_string(box));
    controls.txtMain[kDllBox]->SetText("D.dll");
    controls.txtMain[kTemplateBox]->SetText("D.mrg");
    controls.txtMain[kDeviceHelpBox]->SetText("D.hlp");
    controls.txtMain[kBlockHelpBox]->SetText("B.hlp");
    controls.cboDevRev->SetText("0B");
    controls.cboDDRev->SetText("0C");
    controls.cboHARTRev->SetText("0D");
    controls.cboDeviceCategory->Select(4);
    controls.cboMinorCategory->Select(10);
    controls.lstTAVVersionSupport->Box().Deselect(0);
    controls.lstTAVVersionSupport->Select(2);
    const EntryForm before = controls.Read();
    world.CloseAndForget();

    const EntryForm after = world.Start().Controls().Read();
    EXPECT_EQ(after.txtMain, before.txtMain);
    EXPECT_EQ(after.cboDevRev, "0B");
    EXPECT_EQ(after.cboDDRev, "0C");
    EXPECT_EQ(after.cboHARTRev, "0D");
    EXPECT_EQ(after.cboDeviceProtocol.index, 2);
    EXPECT_EQ(after.cboDeviceCategory.index, 4);
    EXPECT_EQ(after.cboMinorCategory.index, 10);
    EXPECT_THAT(Selected(world.Window()), ElementsAre("6.0", "7.0"));
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(RoundTrip, ChangesNothingThatIsStored) {
    GuiWorld world;
    world.PutEntry();
    world.Put("WindowHeight", "1");
    world.Put("WindowWidth", "2");
    StartAt(world, "1507", "2258", {100, 151});
    world.CloseAndForget();
    const std::vector<std::string> first = world.AllStored();
    for (int run = 0; run < 3; ++run) {
        StartAt(world, {100, 151});
        world.CloseAndForget();
        EXPECT_EQ(world.AllStored(), first) << run;
    }
    EXPECT_EQ(world.Stored("WindowLeft"), "1507");
    EXPECT_EQ(world.Stored("WindowTop"), "2258");
    EXPECT_EQ(world.Stored("ManName"), "Acme");
    EXPECT_EQ(world.Stored("TAVVersions"), "5.0, 6.0");
}

TEST(RoundTrip, StoresTrimmedTextsAndCompletedNames) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerIdBox]->SetText("26 ");
    window.Controls().txtMain[kDllBox]->SetText("Dev");
    world.CloseAndForget();
    const EntryForm form = world.Start().Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerIdBox], "26");
    EXPECT_EQ(form.txtMain[kDllBox], "Dev.dll");
}

TEST(RoundTrip, LeavesTheProgramsOwnIniAlone) {
    GuiWorld world;
    world.PutEntry();
    const std::string own =
        "[TAVVersionSupport]\r\nTAVVersionSupport=5.0, 6.0, 7.0\r\n[Language]\r\nLanguage=German\r\n";
    WriteBytes(world.ProgramFile("ventlock.ini"), own);
    world.Start();
    world.CloseAndForget();
    EXPECT_EQ(ReadBytes(world.ProgramFile("ventlock.ini")), own);
}

TEST(RoundTrip, KeepsNamesOfAnyScript) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Grün Жук 日本");
    world.CloseAndForget();
    EXPECT_EQ(world.Start().Controls().txtMain[kManufacturerNameBox]->Text(), "Grün Жук 日本");
}

}  // namespace
}  // namespace ventlock::test
