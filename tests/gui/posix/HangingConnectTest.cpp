// What the window does while a driver does not answer. The driver is one of the tests' own, which this host's
// driver manager can be told of.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "support/MockDriver.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;

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

TEST(Stop, DuringAConnectOfTheStartWaitsForItsEndAndKeepsTheStoredEntry) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    const std::string connect = driver.ConnectString("hangs_in_connect");
    const std::string dataSource = connect.substr(std::string_view("ODBC;UID=sa;PWD=;DSN=").size());
    GuiWorld world(GuiWorld::NoDatabase{});
    world.PutEntry();
    const std::vector<std::string> before = world.AllStored();
    WriteBytes(world.PyxPath(), "[TAV Server 1]\r\nDataSourceName=" + dataSource + "\r\n");
    world.timeLimits.login = std::chrono::milliseconds(200);
    frmMain& window = world.Make();
    int closes = 0;
    world.whileYielding = [&] {
        if (window.Objects().Contains("Connection") && ++closes == 1) window.Close();
    };
    window.Form_Load();
    world.whileYielding = nullptr;
    EXPECT_GT(closes, 0);
    EXPECT_THAT(
        world.LogEntries(),
        ElementsAre("CONNconn-02: ODBC--call failed. [HYT01] The database did not answer within 0.2 s (0) "
                    "(3146)"));
    WaitUntil("the end of the program", [] { return gbTerminate; });
    EXPECT_TRUE(window.IsUnloading());
    world.ExpectKept(before);
}

}  // namespace
}  // namespace ventlock::test
