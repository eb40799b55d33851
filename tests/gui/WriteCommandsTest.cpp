// Which write commands the entry in the fields allows.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "gui/GuiWorld.h"
#include "gui/HostKeys.h"
#include "gui/Input.h"
#include "gui/SwitchTo.h"
#include "gui/Tabs.h"

namespace ventlock::test {
namespace {

/// Letters of the commands that can be used: B database, I "Pyx.ini", D "Ddinstal.ini". A button that does
/// not follow its menu item fails the test.
std::string Usable(frmMain& window) {
    const MainMenu& menu = window.Menu();
    const MainControls& controls = window.Controls();
    EXPECT_EQ(controls.cmdWriteDB->IsEnabled(), menu.mnuWriteDB->IsEnabled());
    EXPECT_EQ(controls.cmdWriteINI->IsEnabled(), menu.mnuWriteINI->IsEnabled());
    EXPECT_EQ(controls.cmdWriteDDInstall->IsEnabled(), menu.mnuWriteDDInstall->IsEnabled());
    std::string letters;
    if (menu.mnuWriteDB->IsEnabled()) letters += 'B';
    if (menu.mnuWriteINI->IsEnabled()) letters += 'I';
    if (menu.mnuWriteDDInstall->IsEnabled()) letters += 'D';
    return letters;
}

/// A field and the commands that are left when it alone is empty.
struct Row {
    std::string name;
    std::function<void(const std::string&)> set;
    std::string filled;
    std::string left;
};

class WriteCommandsOfTheWindow : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();
        world_.Start();
    }

    MainControls& Controls() { return world_.Window().Controls(); }

    Row Box(std::size_t box, std::string left) {
        TextField& field = *Controls().txtMain[box];
        return {"txtMain(" + std::to_string(box) + ")",
                [&field](const std::string& text) { field.SetText(text); }, field.Text(), std::move(left)};
    }

    static Row List(const char* name, EditableList& list, std::string left) {
        return {name, [&list](const std::string& text) { list.SetText(text); }, list.Text(), std::move(left)};
    }

    std::vector<Row> Rows() {
        return {Box(kManufacturerIdBox, ""),
                Box(kManufacturerNameBox, "I"),
                Box(kDeviceIdBox, ""),
                Box(kDeviceNameBox, "B"),
                Box(kDllBox, "B"),
                Box(kTemplateBox, "BI"),
                List("cboDevRev", *Controls().cboDevRev, ""),
                List("cboDDRev", *Controls().cboDDRev, "BI"),
                List("cboHARTRev", *Controls().cboHARTRev, "B")};
    }

    /// Selects or deselects the first version with the keyboard.
    void ToggleFirstVersion() {
        ShowTab(world_.Window(), kRevisionTab);
        ASSERT_TRUE(ReadyToType(Controls().lstTAVVersionSupport->Box()));
        ToggleFirstItem();
    }

    GuiWorld world_;
};

TEST_F(WriteCommandsOfTheWindow, AreAllUsableForAFullEntry) {
    EXPECT_EQ(Usable(world_.Window()), "BID");
}

TEST_F(WriteCommandsOfTheWindow, AreDisabledByAnEmptyField) {
    for (const Row& row : Rows()) {
        row.set("");
        EXPECT_EQ(Usable(world_.Window()), row.left) << row.name;
        row.set(row.filled);
        EXPECT_EQ(Usable(world_.Window()), "BID") << row.name;
    }
}

TEST_F(WriteCommandsOfTheWindow, AreDisabledByBlanksInAField) {
    for (const Row& row : Rows()) {
        row.set("   ");
        EXPECT_EQ(Usable(world_.Window()), row.left) << row.name;
        row.set(row.filled);
        EXPECT_EQ(Usable(world_.Window()), "BID") << row.name;
    }
}

TEST_F(WriteCommandsOfTheWindow, AreNotDisabledByAnyOtherField) {
    for (const std::size_t box :
         {kDataSourceBox, kDDInstallPathBox, kIniPathBox, kManufacturerDescriptionBox, kDeviceDescriptionBox,
          kRevisionNameBox, kRevisionDescriptionBox, kDeviceHelpBox, kBlockHelpBox}) {
        Controls().txtMain[box]->SetText("");
        EXPECT_EQ(Usable(world_.Window()), "BID") << box;
    }
    Controls().cboDeviceCategory->SetText("");
    EXPECT_EQ(Usable(world_.Window()), "BID");
    Controls().cboDeviceProtocol->Select(0);
    EXPECT_EQ(Usable(world_.Window()), "BID");
}

TEST_F(WriteCommandsOfTheWindow, LoseOnlyDDInstallWithTheLastVersion) {
    world_.Forget();
    world_.Put("TAVVersions", "5.0");
    world_.Start();
    ASSERT_EQ(Usable(world_.Window()), "BID");
    ToggleFirstVersion();
    WaitUntil("the version to be deselected", [&] { return Usable(world_.Window()) == "BI"; });
    EXPECT_FALSE(Controls().lstTAVVersionSupport->IsSelected(0));
    ToggleFirstItem();
    WaitUntil("the version to be selected again", [&] { return Usable(world_.Window()) == "BID"; });
    EXPECT_TRUE(Controls().lstTAVVersionSupport->IsSelected(0));
}

TEST_F(WriteCommandsOfTheWindow, KeepDDInstallWhileAVersionIsSelected) {
    ASSERT_TRUE(Controls().lstTAVVersionSupport->IsSelected(1));
    ToggleFirstVersion();
    WaitUntil("the version to be deselected",
              [&] { return !Controls().lstTAVVersionSupport->IsSelected(0); });
    EXPECT_EQ(Usable(world_.Window()), "BID");
}

TEST_F(WriteCommandsOfTheWindow, ToFilesNeedNoConnection) {
    SwitchTo(world_.Window(), "nobody_knows_this");
    EXPECT_EQ(Usable(world_.Window()), "ID");
}

TEST_F(WriteCommandsOfTheWindow, GrowWithTheEntry) {
    world_.Window().mnuClear_Click();
    for (EditableList* list :
         {Controls().cboDevRev.get(), Controls().cboDDRev.get(), Controls().cboHARTRev.get()})
        list->SetText("");
    EXPECT_EQ(Usable(world_.Window()), "");
    Controls().txtMain[kManufacturerIdBox]->SetText("26");
    Controls().txtMain[kDeviceIdBox]->SetText("0A");
    Controls().txtMain[kDeviceNameBox]->SetText("Flow");
    Controls().txtMain[kDllBox]->SetText("Dev.dll");
    Controls().cboDevRev->SetText("01");
    EXPECT_EQ(Usable(world_.Window()), "");
    Controls().cboHARTRev->SetText("05");
    EXPECT_EQ(Usable(world_.Window()), "I");
    Controls().txtMain[kManufacturerNameBox]->SetText("Acme");
    EXPECT_EQ(Usable(world_.Window()), "BI");
    Controls().txtMain[kTemplateBox]->SetText("Dev.mrg");
    EXPECT_EQ(Usable(world_.Window()), "BI");
    Controls().cboDDRev->SetText("02");
    EXPECT_EQ(Usable(world_.Window()), "BID");
}

TEST(WriteCommandsOnTheOldSchema, AreAllUsable) {
    GuiWorld world(DeviceSchema::Old);
    world.PutEntry();
    EXPECT_EQ(Usable(world.Start()), "BID");
}

TEST(WriteCommandsWithoutADatabase, AreThoseOfTheFiles) {
    GuiWorld world(GuiWorld::NoDatabase{});
    world.PutEntry();
    EXPECT_EQ(Usable(world.Start()), "ID");
}

}  // namespace
}  // namespace ventlock::test
