// Who has the keyboard once the control that had it can be used no more.

#include <gtest/gtest.h>
#include <wx/app.h>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/Tabs.h"
#include "gui/WhileModal.h"
#include "ui/WindowMessages.h"

namespace ventlock::test {
namespace {

class Keys : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();
        wxTheApp->SetTopWindow(&world_.Start());
    }
    void TearDown() override { wxTheApp->SetTopWindow(nullptr); }

    /// The key of the help must be taken by a control of the window.
    void ExpectTaken(const wxWindow& disabled) {
        ASSERT_TRUE(WaitUntil("the window", [&] { return world_.Window().IsActive(); }));
        PressKey(WXK_F1);
        EXPECT_TRUE(WaitUntil("the help", [&] { return !world_.help.shown.empty(); }));
        EXPECT_FALSE(disabled.HasFocus());
    }

    void ExpectTakenAfterAWrite() {
        wxButton& button = *world_.Window().Controls().cmdWriteINI;
        ASSERT_TRUE(ReadyToType(button));
        Press(button);
        ASSERT_FALSE(button.IsEnabled());
        ExpectTaken(button);
    }

    GuiWorld world_;
    WindowMessages boxes_{world_.host.appInfo, world_.help};
};

TEST_F(Keys, AreTakenAfterAWriteByItsButton) {
    ExpectTakenAfterAWrite();
}

TEST_F(Keys, AreTakenAfterAWriteByItsButtonAndARealBox) {
    world_.messages.whileShown = [&] {
        const auto message = world_.messages.messages.back();
        const WhileModal modal(world_.Window(), [](wxDialog&) { PressKey(WXK_RETURN); });
        boxes_.Show(message.text, message.title, message.help);
    };
    ExpectTakenAfterAWrite();
}

TEST_F(Keys, AreTakenAfterTheFirstOneInACategoryWithoutAProtocol) {
    frmMain& window = world_.Window();
    window.mnuClear_Click();
    wxComboBox& category = window.Controls().cboDeviceCategory->Combo();
    ShowTab(window, kRevisionTab);
    ASSERT_TRUE(ReadyToType(category));
    PressKey('x');
    ASSERT_TRUE(WaitUntil("the rules", [&] { return !category.IsEnabled(); }));
    ExpectTaken(category);
}

}  // namespace
}  // namespace ventlock::test
