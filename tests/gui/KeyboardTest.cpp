// The window without a mouse, with real keys.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/timer.h>

#include <string>
#include <vector>

#include "gui/GuiWorld.h"
#include "gui/HostKeys.h"
#include "gui/Input.h"
#include "gui/Tabs.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Names = std::vector<std::string>;

class Keyboard : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();  // with a protocol under which every field can be used
        world_.Start();
    }

    MainControls& Controls() { return world_.Window().Controls(); }
    wxTextCtrl& Box(std::size_t box) { return Controls().txtMain[box]->Box(); }

    /// The name of the control with the focus, kUntold when the toolkit does not tell.
    static std::string Focused() {
        const wxWindow* focused = wxWindow::FindFocus();
        return focused == nullptr ? kUntold : FromWx(focused->GetName());
    }

    /// The stops that `names` of controls stand for.
    static Names Stops(const Names& names) {
        Names all;
        for (const std::string& name : names) {
            const Names stops = name.starts_with("cbo") ? StopsOfList(name) : Names{name};
            all.insert(all.end(), stops.begin(), stops.end());
        }
        return all;
    }

    /// The stops that the Tab key makes on a tab, from its first field to the window's last button.
    Names TabOrder(std::size_t tab, wxWindow& first) {
        ShowTab(world_.Window(), tab);
        Names stops;
        if (!ReadyToType(first)) return stops;
        for (stops.push_back(Focused()); stops.back() != "cmdClose"; stops.push_back(Focused())) {
            PressKey(WXK_TAB);
            if (!WaitUntil("the next stop", [&] { return Focused() != stops.back(); })) break;
        }
        return stops;
    }

    GuiWorld world_;
};

TEST_F(Keyboard, TabsThroughGeneralInReadingOrder) {
    EXPECT_EQ(TabOrder(kGeneralTab, Box(kDataSourceBox)),
              Stops({"txtMain(0)", "lstDataSources", "cmdSwitchDSN", "txtMain(1)", "lstRecentDDInstall",
                     "cmdSelectDDInstall", "txtMain(2)", "lstRecentINI", "cmdSelectINI", "cmdWriteDB",
                     "cmdWriteINI", "cmdWriteDDInstall", "cmdClose"}));
}

TEST_F(Keyboard, TabsThroughManufacturerInReadingOrder) {
    EXPECT_EQ(TabOrder(kManufacturerTab, Box(kManufacturerIdBox)),
              Stops({"txtMain(3)", "txtMain(4)", "txtMain(5)", "cboDeviceProtocol", "cmdWriteDB",
                     "cmdWriteINI", "cmdWriteDDInstall", "cmdClose"}));
}

TEST_F(Keyboard, TabsFromTheDescriptionToTheProtocols) {
    ShowTab(world_.Window(), kManufacturerTab);
    ASSERT_TRUE(ReadyToType(Box(kManufacturerDescriptionBox)));
    PressKey(WXK_TAB);
    WaitUntil("the list", [] { return Focused() == StopsOfList("cboDeviceProtocol").front(); });
    PressKey(WXK_UP);
    WaitUntil("the protocol before", [&] { return Controls().cboDeviceProtocol->Index() == 1; });
}

TEST_F(Keyboard, TabsThroughDeviceInReadingOrder) {
    EXPECT_EQ(TabOrder(kDeviceTab, Box(kDeviceIdBox)),
              Stops({"txtMain(6)", "txtMain(7)", "txtMain(8)", "txtMain(9)", "txtMain(10)", "txtMain(13)",
                     "txtMain(14)", "cmdWriteDB", "cmdWriteINI", "cmdWriteDDInstall", "cmdClose"}));
}

TEST_F(Keyboard, TabsThroughRevisionInReadingOrder) {
    EXPECT_EQ(TabOrder(kRevisionTab, Controls().cboDevRev->Combo()),
              Stops({"cboDevRev", "cboDDRev", "cboHARTRev", "txtMain(11)", "txtMain(12)",
                     "lstTAVVersionSupport", "cboDeviceCategory", "cboMinorCategory", "cmdWriteDB",
                     "cmdWriteINI", "cmdWriteDDInstall", "cmdClose"}));
}

TEST_F(Keyboard, GoesBackWithShiftAndTab) {
    ASSERT_TRUE(ReadyToType(Box(kDDInstallPathBox)));
    PressKey(WXK_TAB, wxMOD_SHIFT);
    WaitUntil("the button before", [] { return Focused() == "cmdSwitchDSN"; });
    PressKey(WXK_TAB, wxMOD_SHIFT);
    WaitUntil("the arrow before", [] { return Focused() == "lstDataSources"; });
    PressKey(WXK_TAB, wxMOD_SHIFT);
    WaitUntil("the field before", [] { return Focused() == "txtMain(0)"; });
}

TEST_F(Keyboard, SkipsFieldsThatCannotBeUsed) {
    Controls().cboDeviceProtocol->Select(1);
    EXPECT_EQ(TabOrder(kRevisionTab, Controls().cboDevRev->Combo()),
              Stops({"cboDevRev", "cboDDRev", "cboHARTRev", "txtMain(12)", "lstTAVVersionSupport",
                     "cmdWriteDB", "cmdWriteINI", "cmdWriteDDInstall", "cmdClose"}));
}

TEST_F(Keyboard, ChangesTheTabWithPageUpAndPageDown) {
    const auto shown = [&](std::size_t tab) {
        WaitUntil("the other tab",
                  [&] { return Controls().sstVentlock->GetSelection() == static_cast<int>(tab); });
    };
    ASSERT_TRUE(ReadyToType(Box(kDataSourceBox)));
    PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
    shown(kManufacturerTab);
    ASSERT_TRUE(ReadyToType(Box(kManufacturerIdBox)));
    PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
    shown(kDeviceTab);
    ASSERT_TRUE(ReadyToType(Box(kDeviceIdBox)));
    PressKey(WXK_PAGEUP, wxMOD_CONTROL);
    shown(kManufacturerTab);
}

class OpenedMenus : public Keyboard {
 protected:
    void SetUp() override {
        Keyboard::SetUp();
        world_.Window().Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
            opened_ = event.GetMenu();
            escape_.StartOnce(kBeforeEscapeMs);
        });
        world_.Window().Bind(wxEVT_MENU_CLOSE, [this](wxMenuEvent&) { ++closed_; });
        escape_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
            PressKey(WXK_ESCAPE);
            if (++escapes_ < kEscapes) escape_.StartOnce(kBeforeEscapeMs);
        });
        ASSERT_TRUE(ReadyToType(Box(kDataSourceBox)));
    }

    void ExpectOpenedBy(char key, const wxMenu* menu) {
        PressKey(key, wxMOD_ALT);
        WaitUntil("the menu to open and to close",
                  [&] { return opened_ == menu && closed_ > 0 && escapes_ == kEscapes; });
        EXPECT_TRUE(world_.Window().IsShown());
    }

    static constexpr int kBeforeEscapeMs = 50;
    static constexpr int kEscapes = 2;  // out of the menu, and on one host out of the menu bar

    const wxMenu* opened_ = nullptr;
    int closed_ = 0;
    int escapes_ = 0;
    wxTimer escape_;  // on one host an open menu has a loop of its own, so that nothing else could close it
};

TEST_F(OpenedMenus, AreFileWithAltAndF) {
    ExpectOpenedBy('F', world_.Window().Menu().mnuFile);
}

TEST_F(OpenedMenus, AreEditWithAltAndE) {
    ExpectOpenedBy('E', world_.Window().Menu().mnuEdit);
}

TEST_F(OpenedMenus, AreHelpWithAltAndH) {
    ExpectOpenedBy('H', world_.Window().Menu().mnuHelp);
}

TEST_F(OpenedMenus, AreToolsWithAltAndT) {
    ExpectOpenedBy('T', world_.Window().Menu().mnuTools);
}

TEST_F(Keyboard, ChangesTheDataSourceWithEnter) {
    const SqliteDatabase other(DeviceSchema::Old);
    ASSERT_TRUE(ReadyToType(Box(kDataSourceBox)));
    Box(kDataSourceBox).SelectAll();
    TypeText(other.Dsn());
    PressKey(WXK_RETURN);
    WaitUntil("the other data source",
              [&] { return world_.Window().SchemaVersion() == 4 && !world_.Window().IsBusy(); });
    EXPECT_TRUE(world_.Window().IsConnected());
}

TEST_F(Keyboard, WritesNothingWithEnterInAnotherField) {
    world_.Statements();
    ShowTab(world_.Window(), kManufacturerTab);
    ASSERT_TRUE(ReadyToType(Box(kManufacturerNameBox)));
    PressKey(WXK_RETURN);
    TypeText("x");
    WaitUntil("the text behind Enter", [&] { return Box(kManufacturerNameBox).GetValue().Contains("x"); });
    EXPECT_THAT(world_.Statements(), IsEmpty());
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(Keyboard, DoesNotCloseTheWindowWithEsc) {
    ASSERT_TRUE(ReadyToType(Box(kIniPathBox)));
    PressKey(WXK_ESCAPE);
    TypeText("x");
    WaitUntil("the text behind Esc", [&] { return Box(kIniPathBox).GetValue().Contains("x"); });
    EXPECT_FALSE(world_.Window().IsUnloading());
    EXPECT_TRUE(world_.Window().IsShown());
}

TEST_F(Keyboard, OpensTheHelpWithF1) {
    ASSERT_TRUE(ReadyToType(Box(kIniPathBox)));
    PressKey(WXK_F1);
    WaitUntil("the help", [&] { return !world_.help.shown.empty(); });
    EXPECT_THAT(world_.help.shown,
                ElementsAre(std::pair<std::string, int>(world_.ProgramFile("Ventlock.hlp"), 3)));
}

TEST_F(Keyboard, PressesAButtonWithTheSpaceBar) {
    ASSERT_TRUE(ReadyToType(*Controls().cmdSelectINI));
    PressKey(WXK_SPACE);
    WaitUntil("the file dialog", [&] { return world_.fileDialog.questions.size() == 1; });
}

TEST_F(Keyboard, CopiesWithControlC) {
    ASSERT_TRUE(ReadyToType(Box(kIniPathBox)));
    const std::string path = FromWx(Box(kIniPathBox).GetValue());
    Box(kIniPathBox).SelectAll();
    PressKey('C', wxMOD_CONTROL);
    WaitUntil("the copy", [&] { return world_.clipboard.changes > 0; });
    EXPECT_EQ(world_.clipboard.text, path);
    EXPECT_EQ(world_.clipboard.changes, 1);
    EXPECT_EQ(FromWx(Box(kIniPathBox).GetValue()), path);
}

TEST_F(Keyboard, CutsWithControlX) {
    ASSERT_TRUE(ReadyToType(Box(kIniPathBox)));
    Box(kIniPathBox).ChangeValue("abcd");
    Box(kIniPathBox).SetSelection(1, 3);
    PressKey('X', wxMOD_CONTROL);
    WaitUntil("the cut", [&] { return world_.clipboard.changes > 0; });
    EXPECT_EQ(world_.clipboard.text, "bc");
    EXPECT_EQ(Box(kIniPathBox).GetValue(), "ad");
}

TEST_F(Keyboard, PastesWithControlV) {
    ASSERT_TRUE(ReadyToType(Box(kIniPathBox)));
    Box(kIniPathBox).ChangeValue("abcd");
    Box(kIniPathBox).SetSelection(1, 3);
    PressKey('V', wxMOD_CONTROL);
    WaitUntil("the pasted text", [&] { return Box(kIniPathBox).GetValue() == "abefored"; });
}

TEST_F(Keyboard, CutsAnEmptyTextWithoutASelection) {
    ASSERT_TRUE(ReadyToType(Box(kIniPathBox)));
    const std::string path = FromWx(Box(kIniPathBox).GetValue());
    Box(kIniPathBox).SelectNone();
    PressKey('X', wxMOD_CONTROL);
    WaitUntil("the cut", [&] { return world_.clipboard.changes > 0; });
    EXPECT_EQ(world_.clipboard.text, "");
    EXPECT_EQ(FromWx(Box(kIniPathBox).GetValue()), path);
}

TEST_F(Keyboard, LeavesTheClipboardAloneOnAButton) {
    ASSERT_TRUE(ReadyToType(*Controls().cmdSelectINI));
    PressKey('C', wxMOD_CONTROL);
    PressKey('X', wxMOD_CONTROL);
    PressKey(WXK_F1);
    WaitUntil("the help behind them", [&] { return !world_.help.shown.empty(); });
    EXPECT_EQ(world_.clipboard.changes, 0);
    EXPECT_EQ(world_.clipboard.text, "before");
}

TEST_F(Keyboard, CopiesFromAnEditableList) {
    ShowTab(world_.Window(), kRevisionTab);
    wxComboBox& list = Controls().cboDeviceCategory->Combo();
    ASSERT_TRUE(ReadyToType(list));
    list.SelectAll();
    PressKey('C', wxMOD_CONTROL);
    WaitUntil("the copy", [&] { return world_.clipboard.text == "Pressure"; });
}

TEST_F(Keyboard, PastesIntoAnEditableList) {
    ShowTab(world_.Window(), kRevisionTab);
    EditableList& list = *Controls().cboDeviceCategory;
    ASSERT_TRUE(ReadyToType(list.Combo()));
    list.Combo().SelectAll();
    world_.clipboard.text = "Flow";
    PressKey('V', wxMOD_CONTROL);
    WaitUntil("the pasted text", [&] { return list.Text() == "Flow"; });
    EXPECT_EQ(list.Index(), -1);
}

}  // namespace
}  // namespace ventlock::test
