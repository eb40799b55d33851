// What happens while a command runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "support/MockDriver.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
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

TEST_F(DuringACommand, AnotherOneRunsAfterItsEnd) {
    Meanwhile([] {});
    EXPECT_FALSE(world_.Window().IsBusy());
    world_.Window().mnuHelpContents_Click();
    EXPECT_EQ(world_.help.shown.size(), 1u);
}

/// A change to a data source whose driver hangs until the test lets go or the time limit is over.
class DuringAHangingConnect : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();
        world_.Start();
        const std::string connect = driver_.ConnectString("hangs_in_connect");
        world_.Window().Controls().txtMain[kDataSourceBox]->SetText(connect.substr(connect.rfind('=') + 1));
    }

    GuiWorld world_;
    MockDriver driver_{VENTLOCK_MOCK_DRIVER};
};

/// The longest time between two calls of a timer, which is how long the window did not answer.
class LongestSilence {
 public:
    LongestSilence() {
        timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
            ++ticks_;
            Look();
        });
        timer_.Start(10);
    }

    /// Ends the measurement.
    milliseconds Stop() {
        timer_.Stop();
        Look();
        return longest_;
    }

    [[nodiscard]] int Ticks() const { return ticks_; }

 private:
    void Look() {
        const auto now = std::chrono::steady_clock::now();
        longest_ = std::max(longest_, std::chrono::duration_cast<milliseconds>(now - last_));
        last_ = now;
    }

    wxTimer timer_;
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
    milliseconds longest_{0};
    int ticks_ = 0;
};

TEST_F(DuringAHangingConnect, TheWindowGoesOnAnswering) {
    world_.timeLimits.login = milliseconds(1500);
    LongestSilence silence;
    world_.Window().cmdSwitchDSN_Click();
    const milliseconds longest = silence.Stop();
    std::cout << "longest silence: " << longest.count() << " ms, " << silence.Ticks() << " ticks\n";
    RecordProperty("longest_silence_ms", static_cast<int>(longest.count()));
    EXPECT_GE(silence.Ticks(), 3);
    EXPECT_LT(longest, milliseconds(500));
}

TEST_F(DuringAHangingConnect, TheTimeLimitEndsIt) {
    world_.timeLimits.login = milliseconds(300);
    const wxStopWatch watch;
    world_.Window().cmdSwitchDSN_Click();
    EXPECT_GE(watch.Time(), 300);
    EXPECT_LT(watch.Time(), 5000);
    EXPECT_FALSE(world_.Window().IsConnected());
    EXPECT_FALSE(world_.Window().IsBusy());
    EXPECT_THAT(
        world_.messages.Texts(),
        ElementsAre("CONNconn-02: ODBC--call failed. [HYT01] The database did not answer within 0.3 s (0) "
                    "(3146)",
                    "Unable to connect to database."));
    EXPECT_EQ(world_.LogEntries(), world_.messages.Texts());
}

TEST_F(DuringAHangingConnect, ARealClickOnAnotherCommandDoesNothing) {
    frmMain& window = world_.Window();
    wxButton& button = *window.Controls().cmdWriteINI;
    int clicks = 0;
    button.Bind(wxEVT_BUTTON, [&](wxCommandEvent& event) {
        if (window.IsBusy()) ++clicks;
        event.Skip();
        driver_.Release();
    });
    ASSERT_TRUE(ReadyToType(button));
    PressKey(WXK_SPACE);
    window.cmdSwitchDSN_Click();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(ReadBytes(world_.PyxPath()).find("Acme"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(world_.PyxPath() + ".bak"));
}

TEST_F(DuringAHangingConnect, ARealWishToCloseWaitsForItsEnd) {
    frmMain& window = world_.Window();
    bool wasBusy = false;
    window.Bind(wxEVT_CLOSE_WINDOW, [&](wxCloseEvent& event) {
        if (window.IsBusy()) {
            wasBusy = true;
            driver_.Release();
        }
        event.Skip();
    });
    ASSERT_TRUE(ReadyToType(window.Controls().txtMain[kDataSourceBox]->Box()));
    PressKey(WXK_F4, wxMOD_ALT);
    window.cmdSwitchDSN_Click();
    EXPECT_TRUE(wasBusy);
    EXPECT_FALSE(window.IsUnloading());
    WaitUntil("the window to be unloaded", [&] { return window.IsUnloading(); });
    EXPECT_TRUE(gbTerminate);
    EXPECT_EQ(world_.Stored("ManName"), "Acme");
}

}  // namespace
}  // namespace ventlock::test
