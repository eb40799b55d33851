// Who has the keyboard once a write command is finished and can be used no more.

#include <gtest/gtest.h>
#include <wx/app.h>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/WhileModal.h"
#include "ui/WindowMessages.h"

namespace ventlock::test {
namespace {

class FinishedWrite : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();
        wxTheApp->SetTopWindow(&world_.Start());
    }
    void TearDown() override { wxTheApp->SetTopWindow(nullptr); }

    /// Presses the button by the keyboard, and after the command the key of the help, which some control of
    /// the window with the keyboard must take.
    void ExpectKeysAfter() {
        wxButton& button = *world_.Window().Controls().cmdWriteINI;
        ASSERT_TRUE(ReadyToType(button));
        PressKey(WXK_SPACE);
        ASSERT_TRUE(
            WaitUntil("the command", [&] { return !button.IsEnabled() && !world_.Window().IsBusy(); }));
        EXPECT_TRUE(WaitUntil("the window", [&] { return world_.Window().IsActive(); }));
        PressKey(WXK_F1);
        EXPECT_TRUE(WaitUntil("the help", [&] { return !world_.help.shown.empty(); }));
        EXPECT_FALSE(button.HasFocus());
    }

    GuiWorld world_;
    WindowMessages boxes_{world_.host.appInfo, world_.help};
};

TEST_F(FinishedWrite, HandsTheKeyboardOn) {
    ExpectKeysAfter();
}

TEST_F(FinishedWrite, HandsTheKeyboardOnBehindARealBox) {
    world_.messages.whileShown = [&] {
        const auto message = world_.messages.messages.back();
        const WhileModal modal(world_.Window(), [](wxDialog&) { PressKey(WXK_RETURN); });
        boxes_.Show(message.text, message.title, message.help);
    };
    ExpectKeysAfter();
}

}  // namespace
}  // namespace ventlock::test
