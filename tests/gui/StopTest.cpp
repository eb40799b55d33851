// The end of the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>

#include <string>
#include <vector>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "support/LogEntry.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::size_t kStoredValues = 30;
constexpr const char* kPairs = "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ";

TEST(Stop, GathersStoresAndSavesBeforeTheProgramEnds) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText(" Best ");
    ASSERT_FALSE(gbTerminate);
    window.Close();
    EXPECT_TRUE(window.IsUnloading());
    EXPECT_FALSE(window.IsShown());
    EXPECT_TRUE(gbTerminate);
    EXPECT_EQ(window.Records().TavDB().Manufacturer().Name, "Best");
    EXPECT_EQ(world.Stored("ManName"), "Best");
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(Stop, IsWhatTheWindowManagersCloseDoes) {
    GuiWorld world;
    frmMain& window = world.Start();
    ASSERT_TRUE(ReadyToType(*window.Controls().cmdClose));
    PressKey(WXK_F4, wxMOD_ALT);
    WaitUntil("the end of the program", [] { return gbTerminate; });
    EXPECT_FALSE(window.IsShown());
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
}

TEST(Stop, IsWhatExitDoesAndOnlyOnce) {
    GuiWorld world;
    frmMain& window = world.Start();
    wxCommandEvent exit(wxEVT_MENU, window.Menu().mnuExit->GetId());
    window.ProcessWindowEvent(exit);
    EXPECT_TRUE(gbTerminate);
    EXPECT_FALSE(window.IsShown());
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
    window.mnuExit_Click();
    window.Close();
    Pump();
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
}

TEST(Stop, IsWhatTheCloseButtonDoes) {
    GuiWorld world;
    frmMain& window = world.Start();
    Click(*window.Controls().cmdClose);
    WaitUntil("the end of the program", [] { return gbTerminate; });
    EXPECT_FALSE(window.IsShown());
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
}

TEST(Stop, RunsOnceHoweverOftenTheWindowIsClosedMeanwhile) {
    GuiWorld world;
    world.PutEntry();
    const std::vector<std::string> before = world.AllStored();
    frmMain& window = world.Start();
    int closes = 0;
    world.whileYielding = [&] {
        ++closes;
        window.Close();
        window.mnuExit_Click();
    };
    window.Close();
    EXPECT_GT(closes, 0);
    EXPECT_TRUE(gbTerminate);
    Pump();
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
    world.ExpectKept(before);
}

TEST(Stop, OfAWindowThatIsClosedByForceAfterwardsChangesNothing) {
    GuiWorld world;
    frmMain& window = world.Start();
    window.Close();
    window.Close(true);
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
}

TEST(Stop, ByForceDoesNotWaitForTheCommandThatRuns) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Best");
    world.messages.whileShown = [&] { window.Close(true); };
    window.mnuWriteINI_Click();
    EXPECT_THAT(world.messages.Texts(), ElementsAre("The entry has been inserted."));
    EXPECT_TRUE(gbTerminate);
    EXPECT_THAT(world.host.registry.sets, SizeIs(1 + kStoredValues)) << "the path that was written, and all";
    EXPECT_EQ(world.Stored("ManName"), "Best");
}

TEST(Stop, SavesAlsoWhenTheGatherFailsAndTheWindowIsClosedUnderItsMessage) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Best");
    world.failure.FailAt(kPairs, 1, RunTimeError(ErrorNumber::OdbcCallFailed));
    world.messages.whileShown = [&] { window.Close(); };
    window.Close();
    EXPECT_THAT(world.messages.Texts(), ElementsAre(EntryText("DBgdci-01", ErrorNumber::OdbcCallFailed)));
    EXPECT_TRUE(gbTerminate);
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
    EXPECT_EQ(world.Stored("ManName"), "Best");
}

TEST(Stop, EndsTheProgramAlsoWhenNothingCanBeStored) {
    GuiWorld world;
    world.PutEntry();
    const std::vector<std::string> before = world.AllStored();
    world.Start();
    world.host.registry.RefuseWrites(kRegistryAccessDenied);
    world.CloseAndForget();
    EXPECT_TRUE(gbTerminate);
    EXPECT_EQ(world.AllStored(), before);
    EXPECT_THAT(world.messages.Texts(), IsEmpty()) << "a refused write is silent";
}

TEST(Stop, DuringARecordLoopOfTheStartWaitsForItsEndAndKeepsTheStoredEntry) {
    GuiWorld world;
    world.PutEntry();
    const std::vector<std::string> before = world.AllStored();
    frmMain& window = world.Make();
    int closes = 0;
    world.whileYielding = [&] {
        ++closes;
        window.Close();
        EXPECT_FALSE(window.IsUnloading()) << "the start is still running";
    };
    window.Form_Load();
    world.whileYielding = nullptr;
    EXPECT_GT(closes, 10) << "once for each row";
    WaitUntil("the end of the program", [] { return gbTerminate; });
    EXPECT_TRUE(window.IsUnloading());
    EXPECT_THAT(world.host.registry.sets, SizeIs(kStoredValues));
    world.ExpectKept(before);
}

/// Fails the test for every dialog and does not let it open.
class NoDialogs final : public wxModalDialogHook {
 public:
    NoDialogs() { Register(); }
    ~NoDialogs() override { Unregister(); }
    NoDialogs(const NoDialogs&) = delete;
    NoDialogs& operator=(const NoDialogs&) = delete;

 protected:
    int Enter(wxDialog* dialog) override {
        ADD_FAILURE() << "a dialog opened: " << dialog->GetTitle();
        return wxID_CANCEL;
    }
};

TEST(Start, IgnoresEveryCommandWhileItRuns) {
    const NoDialogs noDialogs;
    GuiWorld world;
    world.PutEntry();
    const std::string pyxBefore = ReadBytes(world.PyxPath());
    frmMain& window = world.Make();
    int clicks = 0;
    world.whileYielding = [&] {
        ++clicks;
        for (wxButton* button : {window.Controls().cmdSwitchDSN, window.Controls().cmdSelectDDInstall,
                                 window.Controls().cmdSelectINI, window.Controls().cmdWriteDB,
                                 window.Controls().cmdWriteINI, window.Controls().cmdWriteDDInstall}) {
            wxCommandEvent click(wxEVT_BUTTON, button->GetId());
            button->ProcessWindowEvent(click);
        }
        const MainMenu& menu = window.Menu();
        for (const wxMenuItem* item :
             {menu.mnuSelectDDInstall, menu.mnuSelectINI, menu.mnuWriteDB, menu.mnuWriteINI,
              menu.mnuWriteDDInstall, menu.mnuCut, menu.mnuCopy, menu.mnuPaste, menu.mnuClear,
              menu.mnuHelpContents, menu.mnuHelpSearch, menu.mnuHelpAbout}) {
            wxCommandEvent click(wxEVT_MENU, item->GetId());
            window.ProcessWindowEvent(click);
        }
    };
    window.Form_Load();
    world.whileYielding = nullptr;
    EXPECT_GT(clicks, 10);
    EXPECT_THAT(world.Statements(), SizeIs(7)) << "those of the start";
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
    EXPECT_THAT(world.fileDialog.questions, IsEmpty());
    EXPECT_THAT(world.help.shown, IsEmpty());
    EXPECT_EQ(world.clipboard.changes, 0);
    EXPECT_EQ(ReadBytes(world.PyxPath()), pyxBefore);
    EXPECT_FALSE(world.host.Files().Exists(world.DDInstallPath()));
    EXPECT_EQ(window.Controls().Read().txtMain[kManufacturerIdBox], "26") << "not cleared";
    EXPECT_FALSE(gbTerminate);
}

}  // namespace
}  // namespace ventlock::test
