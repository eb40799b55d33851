// The controls as they are born, before the dictionary names them.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gui/GuiWorld.h"
#include "gui/Tabs.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

/// A field, the label beside it and its tool tip.
struct FieldRow {
    std::string name;
    std::size_t tab;
    wxWindow* field;
    std::size_t label;
    std::string caption;
    std::string toolTip;
};

/// A button; `parent` is the tab, or the window itself, that it stands on.
struct ButtonRow {
    std::string name;
    wxWindow* parent;
    wxButton* button;
    std::string caption;
    std::string toolTip;
};

class Controls : public testing::Test {
 protected:
    FieldRow Box(std::size_t box, std::size_t tab, std::size_t label, const char* caption,
                 const char* toolTip) {
        return {"txtMain(" + std::to_string(box) + ")",
                tab,
                &controls_.txtMain[box]->Box(),
                label,
                caption,
                toolTip};
    }

    std::vector<FieldRow> Fields() {
        const MainControls& c = controls_;
        return {
            Box(0, kGeneralTab, 0, "Datasource:", "Current ODBC Datasource"),
            Box(1, kGeneralTab, 1, "DDInstall File:", "Current DDinstall file path"),
            Box(2, kGeneralTab, 2, "PYX.ini Path:", "Current PYX.ini Path"),
            Box(3, kManufacturerTab, 3, "ID (in hex):", "Manufacturer ID"),
            Box(4, kManufacturerTab, 4, "Name:", "Manufacturer Name"),
            Box(5, kManufacturerTab, 5, "Description:", "Manufacturer Description"),
            {"cboDeviceProtocol", kManufacturerTab, &c.cboDeviceProtocol->Box(), 6,
             "Protocol:", "Device communication protocol"},
            Box(6, kDeviceTab, 7, "ID (in hex):", "Device ID"),
            Box(7, kDeviceTab, 8, "Name:", "Device Name"),
            Box(8, kDeviceTab, 9, "Description:", "Device description"),
            Box(9, kDeviceTab, 10, "Dev .DLL:", "Device resource file .DLL"),
            Box(10, kDeviceTab, 11, "Dev .MRG:", "Device template .MRG file"),
            Box(13, kDeviceTab, 21, "Device Help:", "Device specific help file"),
            Box(14, kDeviceTab, 22, "Block Help:", "Context-sensitive help file"),
            {"cboDevRev", kRevisionTab, &c.cboDevRev->Box(), 15, "Dev Rev:", "Device revision"},
            {"cboDDRev", kRevisionTab, &c.cboDDRev->Box(), 16, "DD Rev:", "DD revision"},
            {"cboHARTRev", kRevisionTab, &c.cboHARTRev->Box(), 17, "HART Rev:", "HART protocol revision"},
            Box(11, kRevisionTab, 12, "Name:", "Revision name"),
            Box(12, kRevisionTab, 18, "Description:", "Revision description"),
            {"lstTAVVersionSupport", kRevisionTab, &c.lstTAVVersionSupport->Box(), 14,
             "TAV Versions Supported:", "Versions of TAV supported by this install"},
            {"cboDeviceCategory", kRevisionTab, &c.cboDeviceCategory->Box(), 13,
             "Major Category:", "Device general category"},
            {"cboMinorCategory", kRevisionTab, &c.cboMinorCategory->Box(), 19,
             "Minor Category:", "Device sub-category"},
        };
    }

    std::vector<ButtonRow> Buttons() {
        const MainControls& c = controls_;
        wxWindow* general = c.sstVentlock->GetPage(kGeneralTab);
        wxWindow* outside = c.sstVentlock->GetParent();
        return {
            {"cmdSwitchDSN", general, c.cmdSwitchDSN, "Switch", "Switch to selected ODBC datasource"},
            {"cmdSelectDDInstall", general, c.cmdSelectDDInstall, "...", "Select DDInstall file"},
            {"cmdSelectINI", general, c.cmdSelectINI, "...", "Select PYX.ini path"},
            {"cmdWriteDB", outside, c.cmdWriteDB, "Write DB", "Commit information to database"},
            {"cmdWriteINI", outside, c.cmdWriteINI, "Write .INI", "Commit information to Pyx.ini"},
            {"cmdWriteDDInstall", outside, c.cmdWriteDDInstall, "Write DDInstall",
             "Commit information to DDInstall file"},
            {"cmdClose", outside, c.cmdClose, "Close", "Close application without committing changes"},
        };
    }

    GuiWorld world_{GuiWorld::NoDatabase{}};
    frmMain& window_ = world_.Make();
    MainControls& controls_ = window_.Controls();
};

TEST_F(Controls, StandOnFourTabs) {
    ASSERT_EQ(controls_.sstVentlock->GetPageCount(), 4u);
    EXPECT_EQ(controls_.sstVentlock->GetPageText(kGeneralTab), "General");
    EXPECT_EQ(controls_.sstVentlock->GetPageText(kManufacturerTab), "Manufacturer");
    EXPECT_EQ(controls_.sstVentlock->GetPageText(kDeviceTab), "Device");
    EXPECT_EQ(controls_.sstVentlock->GetPageText(kRevisionTab), "Revision");
    for (const FieldRow& row : Fields())
        EXPECT_EQ(row.field->GetParent(), controls_.sstVentlock->GetPage(row.tab)) << row.name;
}

TEST_F(Controls, AreNamed) {
    EXPECT_EQ(controls_.sstVentlock->GetName(), "sstVentlock");
    for (const FieldRow& row : Fields()) EXPECT_EQ(FromWx(row.field->GetName()), row.name);
    for (const ButtonRow& row : Buttons()) EXPECT_EQ(FromWx(row.button->GetName()), row.name);
}

TEST_F(Controls, HaveALabelInTheSameRow) {
    for (const FieldRow& row : Fields()) {
        const wxStaticText& label = *controls_.lblMain[row.label];
        EXPECT_EQ(FromWx(label.GetLabelText()), row.caption) << row.name;
        EXPECT_EQ(label.GetNextSibling(), row.field) << row.name;
    }
}

TEST_F(Controls, AllHaveALabelOfTheirOwnButForTheNote) {
    std::vector<bool> isTaken(kLabelCount);
    for (const FieldRow& row : Fields()) isTaken[row.label] = true;
    for (std::size_t label = 0; label < kLabelCount; ++label) EXPECT_EQ(isTaken[label], label != 20) << label;
}

TEST_F(Controls, HaveToolTips) {
    for (const FieldRow& row : Fields())
        EXPECT_EQ(FromWx(row.field->GetToolTipText()), row.toolTip) << row.name;
    for (const ButtonRow& row : Buttons())
        EXPECT_EQ(FromWx(row.button->GetToolTipText()), row.toolTip) << row.name;
}

TEST_F(Controls, TellInANoteWhenCategoriesAreNeeded) {
    const wxStaticText& note = *controls_.lblMain[20];
    EXPECT_EQ(note.GetLabelText(), "Only Conventional devices need major and minor categories");
    EXPECT_EQ(note.GetToolTipText(), "");
    EXPECT_EQ(note.GetParent(), controls_.sstVentlock->GetPage(kManufacturerTab));
}

TEST_F(Controls, HaveButtonsWithCaptions) {
    for (const ButtonRow& row : Buttons()) {
        EXPECT_EQ(FromWx(row.button->GetLabelText()), row.caption) << row.name;
        EXPECT_EQ(row.button->GetParent(), row.parent) << row.name;
    }
}

TEST_F(Controls, StandInAWindowNamedVentlock) {
    EXPECT_EQ(window_.GetTitle(), "Ventlock");
}

TEST_F(Controls, KeepTheirToolTipsWhenTheWindowIsLoaded) {
    window_.Form_Load();
    for (const FieldRow& row : Fields())
        EXPECT_EQ(FromWx(row.field->GetToolTipText()), row.toolTip) << row.name;
    for (const ButtonRow& row : Buttons())
        EXPECT_EQ(FromWx(row.button->GetToolTipText()), row.toolTip) << row.name;
}

TEST_F(Controls, StartEnabledButForTheWriteCommands) {
    for (const FieldRow& row : Fields()) EXPECT_TRUE(row.field->IsEnabled()) << row.name;
    for (const wxMenuItem* item :
         {window_.Menu().mnuWriteDB, window_.Menu().mnuWriteINI, window_.Menu().mnuWriteDDInstall})
        EXPECT_FALSE(item->IsEnabled()) << item->GetItemLabel();
}

}  // namespace
}  // namespace ventlock::test
