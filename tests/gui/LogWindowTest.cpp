// The window with the log entries.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "core/LogHistory.h"
#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

class LogWindow : public testing::Test {
 protected:
    void SetUp() override { world_.Start(); }

    clsLog& Log() { return world_.Window().Objects().Get<clsLog>(kLogKey); }
    void Add(const std::string& text) { Log().Log(text, {}, {}, kLogToFile); }

    frmLog& Open() {
        Choose(world_.Window(), *world_.Window().Menu().mnuLog);
        frmLog* log = world_.Window().LogWindow();
        EXPECT_NE(log, nullptr);
        WaitUntil("the log window", [&] { return log->IsShownOnScreen() && log->IsActive(); });
        return *log;
    }

    void ExpectClosed() {
        WaitUntil("the log window to be gone", [&] { return world_.Window().LogWindow() == nullptr; });
    }

    static std::string Text(const frmLog& log) { return FromWx(log.txtEntries->GetValue()); }

    std::string StoredPlace() {
        auto& settings = world_.Window().Objects().Get<clsSettings>(kSettingsKey);
        return settings.LateText(*FindLateSetting(kLogWindowLeft)) + ", " +
               settings.LateText(*FindLateSetting(kLogWindowTop));
    }

    GuiWorld world_;
};

TEST_F(LogWindow, IsNotThereBeforeItIsAskedFor) {
    EXPECT_EQ(world_.Window().LogWindow(), nullptr);
}

TEST_F(LogWindow, ShowsTheEntriesOfTheRunWithTheirTimes) {
    Add("first");
    world_.host.clock.now = {2026, 11, 16, 9, 5, 7};
    Log().Log("second\r\nline", "12", "a.ini", kLogToFile);
    EXPECT_EQ(Text(Open()),
              "14:03:27  first\n"
              "09:05:07  second\n"
              "          line\n"
              "               Line: 12\n"
              "               File: a.ini\n");
}

TEST_F(LogWindow, FollowsNewEntriesBesideTheMainWindow) {
    frmLog& log = Open();
    EXPECT_EQ(Text(log), "");
    EXPECT_TRUE(world_.Window().IsEnabled());
    world_.Window().Controls().txtMain[kDataSourceBox]->SetText("nobody_knows_this");
    world_.Window().cmdSwitchDSN_Click();
    EXPECT_THAT(Text(log), testing::HasSubstr("CONNconn-02: ODBC--call failed."));
}

TEST_F(LogWindow, KeepsTheLastEntriesOnly) {
    for (std::size_t i = 0; i < LogHistory::kMost; ++i) Add("entry " + std::to_string(i) + ".");
    frmLog& log = Open();
    EXPECT_THAT(Text(log), testing::StartsWith("14:03:27  entry 0.\n"));
    Add("entry 500.");
    EXPECT_THAT(Text(log), testing::StartsWith("14:03:27  entry 1.\n"));
    EXPECT_THAT(Text(log), testing::EndsWith("entry 500.\n"));
}

TEST_F(LogWindow, CopiesWhatIsSelectedWithControlC) {
    Add("an entry");
    frmLog& log = Open();
    ASSERT_TRUE(ReadyToType(*log.txtEntries));
    log.txtEntries->SetSelection(10, 18);
    PressKey('C', wxMOD_CONTROL);
    WaitUntil("the copy", [&] { return world_.clipboard.changes > 0; });
    EXPECT_EQ(world_.clipboard.text, "an entry");
}

TEST_F(LogWindow, LeavesTheClipboardAloneWithoutASelection) {
    Add("an entry");
    frmLog& log = Open();
    log.txtEntries->SelectNone();
    log.CopySelection();
    EXPECT_EQ(world_.clipboard.changes, 0);
}

TEST_F(LogWindow, KeepsTheSelectionWhenAnEntryComes) {
    Add("an entry");
    frmLog& log = Open();
    log.txtEntries->SetSelection(10, 18);
    Add("another");
    log.CopySelection();
    EXPECT_EQ(world_.clipboard.text, "an entry");
}

TEST_F(LogWindow, CopiesAllWithItsButton) {
    Add("first");
    Add("second");
    frmLog& log = Open();
    ASSERT_TRUE(ReadyToType(*log.cmdCopyAll));
    PressKey(WXK_SPACE);
    WaitUntil("the copy", [&] { return world_.clipboard.changes > 0; });
    EXPECT_EQ(world_.clipboard.text, "14:03:27  first\n14:03:27  second\n");
}

TEST_F(LogWindow, TellsWhenAnotherProgramHoldsTheClipboard) {
    Add("first");
    frmLog& log = Open();
    world_.clipboard.isHeldByAnother = true;
    log.cmdCopyAll_Click();
    EXPECT_THAT(world_.messages.Texts(), testing::ElementsAre(testing::StartsWith("fLcp-00: ")));
    EXPECT_THAT(Text(log), testing::HasSubstr("fLcp-00: "));
}

TEST_F(LogWindow, ClosesWithEscAndOpensAnew) {
    ASSERT_TRUE(ReadyToType(*Open().txtEntries));
    PressKey(WXK_ESCAPE);
    ExpectClosed();
    Add("meanwhile");
    EXPECT_EQ(Text(Open()), "14:03:27  meanwhile\n");
}

TEST_F(LogWindow, IsOneWhenItIsAskedForTwice) {
    const frmLog* first = &Open();
    EXPECT_EQ(&Open(), first);
}

TEST_F(LogWindow, StandsWhereItWasLeft) {
    frmLog& log = Open();
    log.Move(301, 252);
    WaitUntil("the move", [&] { return log.GetPosition() == wxPoint(301, 252); });
    Press(*log.cmdClose);
    ExpectClosed();
    EXPECT_EQ(StoredPlace(), "4515, 3780");
    frmLog& again = Open();
    WaitUntil("the place", [&] { return again.GetPosition() == wxPoint(301, 252); });
}

TEST_F(LogWindow, ClosesWithTheMainWindowAndLeavesItsPlace) {
    frmLog& log = Open();
    log.Move(301, 252);
    WaitUntil("the move", [&] { return log.GetPosition() == wxPoint(301, 252); });
    world_.CloseAndForget();
    world_.Start();
    EXPECT_EQ(StoredPlace(), "4515, 3780");
}

TEST_F(LogWindow, IsGermanInGerman) {
    world_.host.registry.PutText(RegistryRoot::LocalMachine, std::string(kSettingsRoot) + "Settings",
                                 "Language", "DE");
    world_.Start();
    const frmLog& log = Open();
    EXPECT_EQ(FromWx(log.GetTitle()), "Protokoll");
    EXPECT_EQ(FromWx(log.cmdCopyAll->GetLabel()), "Alles kopieren");
}

}  // namespace
}  // namespace ventlock::test
