#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/display.h>
#include <wx/frame.h>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "gui/StartAt.h"

namespace ventlock::test {
namespace {

void MoveTo(frmMain& window, wxPoint place) {
    window.Move(place);
    WaitUntil("the move", [&] { return window.GetPosition() == place; });
}

/// The window manager gets there in steps: what counts is that the window covers the display.
void Maximise(frmMain& window) {
    window.Maximize();
    const wxRect display = wxDisplay(0u).GetClientArea().Deflate(8);
    WaitUntil("the window to be maximised",
              [&] { return window.IsMaximized() && window.GetScreenRect().Contains(display); });
}

std::string StoredPlace(GuiWorld& world) {
    return world.Stored("WindowLeft") + ", " + world.Stored("WindowTop");
}

TEST(Place, IsTheStoredOneInTwips) {
    GuiWorld world;
    const frmMain& window = StartAt(world, "1500", "2250", {100, 150});
    EXPECT_EQ(window.GetScreenPosition(), wxPoint(100, 150));
}

TEST(Place, IsTheCornerOfTheDisplayBeforeAnyIsStored) {
    GuiWorld world;
    StartAt(world, {0, 0});
    world.CloseAndForget();
    EXPECT_EQ(StoredPlace(world), "0, 0");
}

TEST(Place, ThatNobodyChangedIsStoredToTheTwip) {
    GuiWorld world;
    StartAt(world, "1507", "2258", {100, 151});
    world.CloseAndForget();
    EXPECT_EQ(StoredPlace(world), "1507, 2258");
}

TEST(Place, ThatTheUserChoseIsStoredInTwips) {
    GuiWorld world;
    MoveTo(StartAt(world, "1500", "2250", {100, 150}), {301, 252});
    world.CloseAndForget();
    EXPECT_EQ(StoredPlace(world), "4515, 3780");
}

TEST(Place, DoesNotDriftFromStartToStart) {
    GuiWorld world;
    MoveTo(StartAt(world, "1500", "2250", {100, 150}), {301, 252});
    for (int run = 0; run < 3; ++run) {
        world.CloseAndForget();
        ASSERT_EQ(StoredPlace(world), "4515, 3780") << run;
        StartAt(world, {301, 252});
    }
}

TEST(Place, OfAMinimisedWindowIsTheRestoredOne) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = StartAt(world, "1500", "2250", {100, 150});
    MoveTo(window, {301, 252});
    window.Controls().txtMain[kManufacturerNameBox]->SetText("typed");
    window.Iconize();
    WaitUntil("the window to be minimised", [&] { return window.IsIconized(); });
    world.CloseAndForget();
    EXPECT_EQ(StoredPlace(world), "4515, 3780");
    EXPECT_EQ(world.Stored("ManName"), "typed") << "the entry is saved all the same";
}

TEST(Place, OfAMaximisedWindowIsTheRestoredOne) {
    GuiWorld world;
    frmMain& window = StartAt(world, "1500", "2250", {100, 150});
    Maximise(window);
    world.CloseAndForget();
    EXPECT_EQ(StoredPlace(world), "1500, 2250");
}

TEST(Place, IsNotAppliedToAMaximisedWindow) {
    GuiWorld world;
    frmMain& window = StartAt(world, "1500", "2250", {100, 150});
    Maximise(window);
    const wxPoint maximised = window.GetPosition();
    window.cmdSwitchDSN_Click();
    Pump();
    EXPECT_TRUE(window.IsMaximized());
    EXPECT_EQ(window.GetPosition(), maximised);
}

struct FarPlace {
    const char* left;
    const char* top;
};

void PrintTo(const FarPlace& place, std::ostream* out) {
    *out << place.left << ", " << place.top;
}

class OffEveryDisplay : public testing::TestWithParam<FarPlace> {};

TEST_P(OffEveryDisplay, StaysStoredAndTheWindowCanBeSeen) {
    GuiWorld world;
    const wxPoint shownAt = wxDisplay(0u).GetClientArea().GetTopLeft();
    const frmMain& window = StartAt(world, GetParam().left, GetParam().top, shownAt);
    EXPECT_TRUE(window.IsShown());
    EXPECT_EQ(wxDisplay::GetFromPoint(window.GetPosition()), 0);
    world.CloseAndForget();
    EXPECT_EQ(StoredPlace(world), std::string(GetParam().left) + ", " + GetParam().top);
}

INSTANTIATE_TEST_SUITE_P(Places, OffEveryDisplay,
                         testing::Values(FarPlace{"32767", "32767"}, FarPlace{"-32768", "-32768"},
                                         FarPlace{"-3000", "1500"}, FarPlace{"1500", "20000"}));

TEST(Place, BeyondWhatCanBeStoredIsTheNearestThatCan) {
    wxFrame frame(nullptr, wxID_ANY, "far", wxPoint(0, 0));
    FramePlace place(frame);
    frame.Show();
    WaitUntil("the frame", [&] { return frame.IsActive(); });
    frame.Move(2300, 100);
    WaitUntil("the move", [&] { return frame.GetPosition() == wxPoint(2300, 100); });
    EXPECT_EQ(place.Left(), 32767);
    EXPECT_EQ(place.Top(), 1500);
}

}  // namespace
}  // namespace ventlock::test
