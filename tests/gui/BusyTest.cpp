// What happens while a command runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>

#include <filesystem>
#include <functional>
#include <string>

#include "core/modLocalization.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using ::testing::IsEmpty;

/// Lets no dialog open: each one is a failure and cancelled.
class NoDialogs final : public wxModalDialogHook {
 public:
    NoDialogs() { Register(); }
    ~NoDialogs() override { Unregister(); }

 protected:
    int Enter(wxDialog* dialog) override {
        ADD_FAILURE() << "a dialog opened: " << dialog->GetTitle();
        return wxID_CANCEL;
    }
};

/// A command that shows a message in its middle; there the test's own work is done.
class DuringACommand : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();
        world_.Start();
    }

    void Meanwhile(const std::function<void()>& work) {
        int times = 0;
        world_.messages.whileShown = [&] {
            EXPECT_TRUE(world_.Window().IsBusy());
            if (++times == 1) work();
        };
        world_.Window().mnuWriteINI_Click();
        world_.messages.whileShown = nullptr;
        EXPECT_EQ(times, 1);
    }

    GuiWorld world_;
};

TEST_F(DuringACommand, NoOtherCommandDoesAnything) {
    const NoDialogs noDialogs;
    frmMain& window = world_.Window();
    const std::string manufacturer = window.Controls().txtMain[kManufacturerIdBox]->Text();
    Meanwhile([&] {
        world_.Statements();
        window.mnuWriteDB_Click();
        window.mnuWriteINI_Click();
        window.mnuWriteDDInstall_Click();
        window.mnuSelectINI_Click();
        window.mnuSelectDDInstall_Click();
        window.mnuHelpContents_Click();
        window.mnuHelpSearch_Click();
        window.mnuHelpAbout_Click();
        window.mnuClear_Click();
        window.mnuCopy_Click();
        window.mnuCut_Click();
        window.mnuPaste_Click();
        window.cmdSwitchDSN_Click();
    });
    EXPECT_THAT(world_.Statements(), IsEmpty());
    EXPECT_EQ(world_.messages.messages.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(world_.DDInstallPath()));
    EXPECT_THAT(world_.fileDialog.questions, IsEmpty());
    EXPECT_THAT(world_.help.shown, IsEmpty());
    EXPECT_EQ(window.Controls().txtMain[kManufacturerIdBox]->Text(), manufacturer);
    EXPECT_EQ(world_.clipboard.changes, 0);
    EXPECT_TRUE(window.IsConnected());
}

TEST_F(DuringACommand, ACloseWaitsForItsEnd) {
    frmMain& window = world_.Window();
    Meanwhile([&] {
        window.Close();
        EXPECT_FALSE(window.IsUnloading());
    });
    WaitUntil("the window to be unloaded", [&] { return window.IsUnloading(); });
    EXPECT_TRUE(gbTerminate);
    EXPECT_FALSE(window.IsShown());
}

TEST_F(DuringACommand, ExitWaitsForItsEnd) {
    frmMain& window = world_.Window();
    Meanwhile([&] {
        window.mnuExit_Click();
        EXPECT_FALSE(window.IsUnloading());
    });
    WaitUntil("the window to be unloaded", [&] { return window.IsUnloading(); });
    EXPECT_TRUE(gbTerminate);
}

TEST_F(DuringACommand, FieldsAreStillEvaluated) {
    frmMain& window = world_.Window();
    Meanwhile([&] { window.Controls().txtMain[kManufacturerIdBox]->SetText(""); });
    EXPECT_FALSE(window.Controls().cmdWriteDB->IsEnabled());
}

TEST_F(DuringACommand, WindowEventsRunWhileAnotherProgramHoldsTheFile) {
    const std::unique_ptr<Host> other = CreateHost("other");
    std::unique_ptr<IFileLock> lock = other->Files().Lock(world_.PyxPath());
    const Pause pause = world_.host.pause;
    bool isReleased = false;
    // The other program is done when an event of the window has run: without it the wait ends in an error.
    world_.host.pause = [&](std::chrono::milliseconds time) {
        if (!isReleased) {
            isReleased = true;
            wxTheApp->CallAfter([&] {
                EXPECT_TRUE(world_.Window().IsBusy());
                lock.reset();
            });
        }
        pause(time);
    };
    world_.Window().mnuWriteINI_Click();
    EXPECT_TRUE(isReleased);
    EXPECT_EQ(lock, nullptr);
    ASSERT_EQ(world_.messages.messages.size(), 1U);
    EXPECT_EQ(world_.messages.messages[0].text, GetString("IDS_MSG_INS_GOOD"));
    EXPECT_NE(ReadBytes(world_.PyxPath()).find("[000026.000A.01]"), std::string::npos);
}

TEST_F(DuringACommand, AnotherOneRunsAfterItsEnd) {
    Meanwhile([] {});
    EXPECT_FALSE(world_.Window().IsBusy());
    world_.Window().mnuHelpContents_Click();
    EXPECT_EQ(world_.help.shown.size(), 1u);
}

}  // namespace
}  // namespace ventlock::test
