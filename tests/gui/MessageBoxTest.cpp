#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/msgdlg.h>

#include "gui/GuiWorld.h"
#include "gui/HostKeys.h"
#include "gui/Input.h"
#include "gui/WhileModal.h"
#include "support/RowName.h"
#include "ui/WindowMessages.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

/// The real boxes in front of a real window.
class MessageBox : public testing::Test {
 protected:
    void SetUp() override { wxTheApp->SetTopWindow(&world_.Start()); }
    void TearDown() override { wxTheApp->SetTopWindow(nullptr); }

    GuiWorld world_;
    WindowMessages messages_{world_.host.appInfo, world_.help};
};

struct BoxKey {
    const char* name;
    int key;
};

class MessageBoxKey : public MessageBox, public testing::WithParamInterface<BoxKey> {};

TEST_P(MessageBoxKey, ClosesTheBox) {
    if (GetParam().key == WXK_SPACE && !MessageBoxButtonHasKeys())
        GTEST_SKIP() << "the button does not have the keyboard here";
    std::string text;
    std::string title;
    const WhileModal modal(world_.Window(), [&](wxDialog& dialog) {
        const auto& box = dynamic_cast<wxMessageDialog&>(dialog);
        text = FromWx(box.GetMessage());
        title = FromWx(box.GetTitle());
        EXPECT_EQ(box.GetMessageDialogStyle() & (wxOK | wxCANCEL | wxYES | wxNO | wxHELP), wxOK);
        PressKey(GetParam().key);
    });
    messages_.Show("Grün & \"50 %\"", "A title", {});
    EXPECT_EQ(modal.Opened(), 1);
    EXPECT_EQ(text, "Grün & \"50 %\"");
    EXPECT_EQ(title, "A title");
}

INSTANTIATE_TEST_SUITE_P(Keys, MessageBoxKey,
                         testing::Values(BoxKey{"Enter", WXK_RETURN}, BoxKey{"Escape", WXK_ESCAPE},
                                         BoxKey{"Space", WXK_SPACE}),
                         RowName());

TEST_F(MessageBox, WithoutATitleHasTheProgramsOne) {
    std::string title;
    const WhileModal modal(world_.Window(), [&](wxDialog& dialog) {
        title = FromWx(dialog.GetTitle());
        PressKey(WXK_RETURN);
    });
    messages_.Show("text", "", {});
    EXPECT_EQ(title, "Ventlock");
}

TEST_F(MessageBox, OpensTheHelpAndStaysUntilItIsAnswered) {
    world_.help.whileShown = [&] {
        WaitUntil("the window behind the box", [&] { return world_.Window().IsActive(); });
    };
    int opened = 0;
    const WhileModal modal(world_.Window(), [&](wxDialog&) {
        if (++opened == 1) {
            PressHelpButton();
        } else {
            PressKey(WXK_ESCAPE);
        }
    });
    messages_.Show("text", "", MessageHelp{"/book.hlp", 7});
    EXPECT_EQ(opened, 2);
    EXPECT_THAT(world_.help.shown, ElementsAre(Pair("/book.hlp", 3)));
}

TEST_F(MessageBox, CanBeShownWhileTheWindowIsHidden) {
    world_.Window().Hide();
    wxWindow* host = nullptr;
    for (wxWindow* window : wxTopLevelWindows)
        if (window != &world_.Window()) host = window;
    ASSERT_NE(host, nullptr);
    const WhileModal modal(dynamic_cast<wxTopLevelWindow&>(*host), [](wxDialog&) { PressKey(WXK_RETURN); });
    messages_.Show("text", "", {});
    EXPECT_EQ(modal.Opened(), 1);
}

}  // namespace
}  // namespace ventlock::test
