#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "support/LogEntry.h"
#include "support/RowName.h"
#include "ui/WxClipboard.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Shows the page on which a field stands and gives it the focus.
void Focus(frmMain& window, wxWindow& field) {
    wxNotebook& tabs = *window.Controls().sstVentlock;
    for (std::size_t page = 0; page < tabs.GetPageCount(); ++page) {
        if (field.GetParent() == tabs.GetPage(page)) tabs.ChangeSelection(page);
    }
    ASSERT_TRUE(ReadyToType(field));
}

/// A field that text can be copied from.
struct TextPlace {
    const char* name;
    wxWindow& (*window)(MainControls&);
    wxTextEntry& (*text)(MainControls&);
};

template <auto Member>
wxWindow& ComboWindow(MainControls& controls) {
    return (controls.*Member)->Combo();
}
template <auto Member>
wxTextEntry& ComboText(MainControls& controls) {
    return (controls.*Member)->Combo();
}
template <std::size_t kBox>
wxWindow& BoxWindow(MainControls& controls) {
    return controls.txtMain[kBox]->Box();
}
template <std::size_t kBox>
wxTextEntry& BoxText(MainControls& controls) {
    return controls.txtMain[kBox]->Box();
}

void PrintTo(const TextPlace& place, std::ostream* out) {
    *out << place.name;
}

class Clipboard : public testing::TestWithParam<TextPlace> {
 protected:
    void SetUp() override {
        world_.PutEntry();
        frmMain& window = world_.Start();
        Focus(window, GetParam().window(window.Controls()));
        Text().ChangeValue("abcdef");
        Text().SetSelection(1, 3);
    }
    wxTextEntry& Text() { return GetParam().text(world_.Window().Controls()); }

    GuiWorld world_;
};

TEST_P(Clipboard, CopyTakesTheSelectionAndKeepsIt) {
    world_.Window().mnuCopy_Click();
    EXPECT_EQ(world_.clipboard.text, "bc");
    EXPECT_EQ(Text().GetValue(), "abcdef");
}

TEST_P(Clipboard, CutTakesTheSelectionAway) {
    world_.Window().mnuCut_Click();
    EXPECT_EQ(world_.clipboard.text, "bc");
    EXPECT_EQ(Text().GetValue(), "adef");
}

TEST_P(Clipboard, PasteReplacesTheSelection) {
    world_.clipboard.text = "xyz";
    world_.Window().mnuPaste_Click();
    EXPECT_EQ(Text().GetValue(), "axyzdef");
    EXPECT_EQ(world_.clipboard.changes, 0);
}

TEST_P(Clipboard, PasteOfNoTextTakesTheSelectionAway) {
    world_.clipboard.text = "";
    world_.Window().mnuPaste_Click();
    EXPECT_EQ(Text().GetValue(), "adef");
}

TEST_P(Clipboard, WithoutASelectionGetsAnEmptyText) {
    Text().SetInsertionPoint(2);
    world_.Window().mnuCopy_Click();
    EXPECT_EQ(world_.clipboard.text, "");
    world_.clipboard.text = "before";
    world_.Window().mnuCut_Click();
    EXPECT_EQ(world_.clipboard.text, "");
    EXPECT_EQ(world_.clipboard.changes, 2);
    EXPECT_EQ(Text().GetValue(), "abcdef");
}

TEST_P(Clipboard, HeldByAnotherProgramIsLoggedAndNothingIsLost) {
    world_.clipboard.isHeldByAnother = true;
    world_.Window().mnuCopy_Click();
    world_.Window().mnuCut_Click();
    world_.Window().mnuPaste_Click();
    EXPECT_THAT(world_.LogEntries(), ElementsAre(EntryText("fMcp-00", ErrorNumber::CannotOpenClipboard),
                                                 EntryText("fMct-00", ErrorNumber::CannotOpenClipboard),
                                                 EntryText("fMpa-00", ErrorNumber::CannotOpenClipboard)));
    EXPECT_EQ(Text().GetValue(), "abcdef");
}

INSTANTIATE_TEST_SUITE_P(
    Fields, Clipboard,
    testing::Values(TextPlace{"DataSource", BoxWindow<kDataSourceBox>, BoxText<kDataSourceBox>},
                    TextPlace{"ManufacturerId", BoxWindow<kManufacturerIdBox>, BoxText<kManufacturerIdBox>},
                    TextPlace{"DevRev", ComboWindow<&MainControls::cboDevRev>,
                              ComboText<&MainControls::cboDevRev>},
                    TextPlace{"MajorCategory", ComboWindow<&MainControls::cboDeviceCategory>,
                              ComboText<&MainControls::cboDeviceCategory>}),
    RowName());

TEST(ClipboardCommands, ElsewhereTouchNothing) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    for (wxWindow* other : {static_cast<wxWindow*>(window.Controls().cmdClose),
                            static_cast<wxWindow*>(&window.Controls().cboDeviceProtocol->Box()),
                            static_cast<wxWindow*>(&window.Controls().lstTAVVersionSupport->Box())}) {
        Focus(window, *other);
        const EntryForm before = window.Controls().Read();
        window.mnuCopy_Click();
        window.mnuCut_Click();
        window.mnuPaste_Click();
        EXPECT_EQ(window.Controls().Read().txtMain, before.txtMain);
        EXPECT_EQ(window.Controls().cboDeviceProtocol->Index(), 2);
    }
    EXPECT_EQ(world.clipboard.changes, 0);
    EXPECT_EQ(world.clipboard.text, "before");
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(ClipboardCommands, CountAsChangesOfTheField) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    wxTextCtrl& box = window.Controls().txtMain[kManufacturerIdBox]->Box();
    Focus(window, box);
    box.SetSelection(-1, -1);
    window.mnuCut_Click();
    EXPECT_FALSE(window.Menu().mnuWriteINI->IsEnabled()) << "the field is empty";
    window.mnuPaste_Click();
    EXPECT_EQ(box.GetValue(), "26");
    EXPECT_TRUE(window.Menu().mnuWriteINI->IsEnabled());
}

TEST(ClipboardCommands, PasteUnfilteredWhereKeysAreFiltered) {
    GuiWorld world;
    frmMain& window = world.Start();
    wxTextCtrl& box = window.Controls().txtMain[kManufacturerIdBox]->Box();
    Focus(window, box);
    world.clipboard.text = "xyz";
    window.mnuPaste_Click();
    EXPECT_EQ(box.GetValue(), "xyz");
}

TEST(DesktopClipboard, GivesBackWhatWasPutThere) {
    WxClipboard clipboard;
    clipboard.SetText("Grün Жук 日本\nsecond line");
    EXPECT_EQ(clipboard.Text(), "Grün Жук 日本\nsecond line");
    clipboard.SetText("other");
    EXPECT_EQ(clipboard.Text(), "other");
}

TEST(DesktopClipboard, CanHoldAnEmptyText) {
    WxClipboard clipboard;
    clipboard.SetText("before");
    clipboard.SetText("");
    EXPECT_EQ(clipboard.Text(), "");
}

}  // namespace
}  // namespace ventlock::test
