#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/modalhook.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <filesystem>
#include <functional>
#include <sstream>
#include <utility>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "gui/HostKeys.h"
#include "gui/Input.h"
#include "gui/RunCli.h"
#include "ui/WxText.h"
#include "ui/frmPreview.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

/// Meets the preview once it has its texts and the keyboard, and closes it by Esc. It looks by a timer:
/// whoever waits within the preview's work keeps it from going on.
class PreviewMet final : private wxModalDialogHook {
 public:
    explicit PreviewMet(std::function<void(frmPreview&)> act) : act_(std::move(act)) {
        look_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Look(); });
        Register();
    }
    ~PreviewMet() override { Unregister(); }

    [[nodiscard]] int Opened() const noexcept { return opened_; }
    [[nodiscard]] const frmPreview::Texts& Texts() const noexcept { return texts_; }

 private:
    int Enter(wxDialog* dialog) override {
        ++opened_;
        box_ = dynamic_cast<frmPreview*>(dialog);
        since_.Start();
        look_.Start(10);
        return wxID_NONE;  // it opens
    }
    void Exit(wxDialog* /*dialog*/) override { look_.Stop(); }

    void Look() {
        constexpr long kLimitMs = 15000;
        if (since_.Time() > kLimitMs) {
            look_.Stop();
            ADD_FAILURE() << "the preview did not come to its end";
            return box_->EndModal(wxID_CANCEL);
        }
        if (!box_->cmdCopy->IsEnabled() || !box_->IsActive() || !DialogTakesKeys()) return;
        look_.Stop();
        for (std::size_t i = 0; i < texts_.size(); ++i) texts_[i] = FromWx(box_->txtTargets[i]->GetValue());
        act_(*box_);
        PressKey(WXK_ESCAPE);
    }

    std::function<void(frmPreview&)> act_;
    frmPreview* box_ = nullptr;
    frmPreview::Texts texts_;
    wxTimer look_;
    wxStopWatch since_;
    int opened_ = 0;
};

frmPreview::Texts ShowIn(GuiWorld& world, const std::function<void(frmPreview&)>& act) {
    frmMain& window = world.Window();
    if (!window.IsActive()) window.Raise();
    WaitUntil("the window to be active", [&] { return window.IsActive(); });
    const PreviewMet met(act);
    Choose(window, *window.Menu().mnuPreview);
    EXPECT_EQ(met.Opened(), 1);
    EXPECT_FALSE(window.IsBusy());
    return met.Texts();
}

class Preview : public testing::Test {
 protected:
    explicit Preview(DeviceSchema schema = DeviceSchema::Current) : world_(schema) { world_.PutEntry(); }

    frmPreview::Texts Show(const std::function<void(frmPreview&)>& act = [](frmPreview&) {}) {
        return ShowIn(world_, act);
    }

    GuiWorld world_;
};

class PreviewOfTheOldSchema : public Preview {
 protected:
    PreviewOfTheOldSchema() : Preview(DeviceSchema::Old) {}
};

/// Every byte that the world's folders and its database hold.
std::string Everything(GuiWorld& world) {
    std::string all = ReadBytes(world.Database().File());
    for (const auto& file : fs::recursive_directory_iterator(world.Folder())) {
        all += file.path().string() + "\n";
        if (file.is_regular_file()) all += ReadBytes(file.path().string()) + "\n";
    }
    return all;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

TEST_F(Preview, ShowsStatementsAndDiffsAndWritesNothing) {
    world_.Start();
    const std::string before = Everything(world_);
    const frmPreview::Texts texts = Show();
    EXPECT_EQ(Everything(world_), before);
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
    EXPECT_THAT(texts[0],
                HasSubstr("\nINSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES "
                          "(1, 'Acme', 'Acme Inc') \n"));
    EXPECT_THAT(texts[1], StartsWith("--- " + world_.PyxPath() + "\n+++ " + world_.PyxPath() + "\n@@ "));
    EXPECT_THAT(texts[1], HasSubstr("\n+[000026.000A.01]\n"));
    EXPECT_THAT(texts[2], StartsWith("--- /dev/null\n+++ " + world_.DDInstallPath() + "\n@@ -0,0 +1,"));
    EXPECT_THAT(texts[2], HasSubstr("\n+Name=Acme\n"));
}

TEST_F(Preview, SendsNoStatementThatChangesAnything) {
    world_.Start().Controls().cboDeviceCategory->SetText("Turbines");
    world_.Statements();
    const frmPreview::Texts texts = Show();
    EXPECT_THAT(texts[0], HasSubstr("'Turbines'"));
    EXPECT_THAT(world_.Statements(), Each(AnyOf(StartsWith("SELECT "), StartsWith("select "))));
}

TEST_F(Preview, TellsOfTheCategoryThatAFilesCommandWouldMakeBefore) {
    world_.Start().Controls().cboDeviceCategory->SetText("Turbines");
    const frmPreview::Texts texts = Show();
    EXPECT_THAT(texts[1], StartsWith("INSERT INTO MajorDeviceCategories "));
    EXPECT_THAT(texts[1], HasSubstr("'Turbines'"));
    EXPECT_THAT(texts[1], HasSubstr("\nINSERT INTO DeviceCategories "));
    EXPECT_THAT(texts[1], HasSubstr("\n\n--- "));
}

TEST_F(Preview, TellsWhatIsThenWritten) {
    frmMain& window = world_.Start();
    const frmPreview::Texts texts = Show();
    world_.Statements();
    window.mnuWriteDB_Click();
    EXPECT_EQ(world_.Statements(), LinesOf(texts[0]));
    window.mnuWriteINI_Click();
    window.mnuWriteDDInstall_Click();
    const std::string ini = ReadBytes(world_.PyxPath());
    for (const std::string& line : LinesOf(texts[1]))
        if (line.starts_with("+") && !line.starts_with("+++")) {
            EXPECT_THAT(ini, HasSubstr(line.substr(1) + "\r\n"));
        }
}

TEST_F(Preview, EqualsTheDryRunOfTheSavedEntry) {
    frmMain& window = world_.Start();
    window.Controls().cboMinorCategory->SetText("Turbines");
    world_.fileDialog.answer = world_.Folder() + "flow.ini";
    Choose(window, *window.Menu().mnuSaveEntry);
    const frmPreview::Texts texts = Show();
    world_.Forget();
    EXPECT_EQ(RunCli(world_, {"--quiet", "register", world_.fileDialog.answer, "--all", "--dry-run"}),
              "[000026.000A.01] " + world_.fileDialog.answer + ":1\n" + texts[0] + "\n" +
                  texts[1].substr(texts[1].find("---")) + "\n" + texts[2].substr(texts[2].find("---")) +
                  "\n");
}

TEST_F(PreviewOfTheOldSchema, EqualsTheDryRunOfTheSavedEntry) {
    frmMain& window = world_.Start();
    world_.fileDialog.answer = world_.Folder() + "flow.ini";
    Choose(window, *window.Menu().mnuSaveEntry);
    const frmPreview::Texts texts = Show();
    EXPECT_THAT(texts[0], HasSubstr("VALUES (?, ?)  -- 38, 'Acme'\n"));
    world_.Forget();
    EXPECT_EQ(RunCli(world_, {"--quiet", "register", world_.fileDialog.answer, "--all", "--dry-run"}),
              "[000026.000A.01] " + world_.fileDialog.answer + ":1\n" + texts[0] + "\n" + texts[1] + "\n" +
                  texts[2] + "\n");
}

TEST_F(Preview, LeavesTheRecordsAsTheyAre) {
    frmMain& window = world_.Start();
    Show();
    EXPECT_FALSE(window.Records().TavDB().Manufacturer().HasMfrProtocolID());
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Best");
    Show();
    EXPECT_EQ(window.Records().TavDB().Manufacturer().Name, "Acme");
}

TEST_F(Preview, TellsWhatTheRecordsOfAnEarlierWriteMakeOfIt) {
    frmMain& window = world_.Start();
    window.mnuWriteDB_Click();
    window.Controls().txtMain[kManufacturerNameBox]->SetText("Best");
    const std::vector<std::string> lines = LinesOf(Show()[0]);
    world_.Statements();
    window.mnuWriteDB_Click();
    // The numbers of the first write are taken: the database refuses what the preview cannot know of.
    const std::vector<std::string> sent = world_.Statements();
    ASSERT_EQ(sent.size(), 2U);
    EXPECT_EQ(sent[1],
              "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, 'Best', "
              "'Acme Inc') ");
    ASSERT_GT(lines.size(), sent.size());
    EXPECT_EQ(std::vector(lines.begin(), lines.begin() + 2), sent);
}

TEST_F(Preview, SaysWhyACommandIsDisabled) {
    frmMain& window = world_.Start();
    window.Controls().txtMain[kDllBox]->SetText("");
    window.Controls().cboDDRev->SetText(" ");
    const frmPreview::Texts texts = Show();
    EXPECT_THAT(texts[0], HasSubstr("INSERT INTO Manufacturers"));
    EXPECT_EQ(texts[1], "This command cannot be used now:\n- empty: Device, Dev .DLL");
    EXPECT_EQ(texts[2],
              "This command cannot be used now:\n- empty: Device, Dev .DLL\n- empty: Revision, DD Rev");
}

TEST(PreviewWithoutADatabase, SaysThatThereIsNoConnectionAndShowsTheFiles) {
    GuiWorld world{GuiWorld::NoDatabase{}};
    world.PutEntry();
    world.Start();
    const frmPreview::Texts texts = ShowIn(world, [](frmPreview&) {});
    EXPECT_EQ(texts[0], "This command cannot be used now:\n- there is no connection to a database");
    EXPECT_THAT(texts[1], HasSubstr("\n+[000026.000A.01]\n"));
}

TEST_F(Preview, SaysThatTheEntryIsWritten) {
    frmMain& window = world_.Start();
    window.mnuWriteINI_Click();
    EXPECT_EQ(Show()[1], "The entry is written, and nothing was changed since.");
    window.SetControlStates();
    EXPECT_EQ(Show()[1], "Nothing would change.");
}

TEST_F(Preview, SaysThatTheCommandWillAskForAPath) {
    world_.Start().Controls().txtMain[kDDInstallPathBox]->SetText(" ");
    EXPECT_EQ(Show()[2], "No path is named. The command will ask for one.");
    EXPECT_THAT(world_.fileDialog.questions, IsEmpty());
}

TEST_F(Preview, TellsWhatWouldFailAndReportsNothing) {
    frmMain& window = world_.Start();
    window.Controls().txtMain[kIniPathBox]->SetText(world_.Folder() + "missing/Pyx.ini");
    world_.failure.FailAt("select *   from DeviceTypes ", 1, RunTimeError(ErrorNumber::OdbcCallFailed));
    const frmPreview::Texts texts = Show();
    EXPECT_THAT(texts[0], HasSubstr("\n\nThe command would fail:\nDEV"));
    EXPECT_THAT(texts[1], StartsWith("The command would fail:\nINI"));
    EXPECT_THAT(texts[1], HasSubstr("Path not found"));
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
    EXPECT_THAT(world_.LogEntries(), IsEmpty());
}

TEST_F(Preview, NamesItsTabsAfterTheCommandsInTheWindowsLanguage) {
    world_.host.locale.languageName = "Deutsch (Deutschland)";
    world_.Start().Controls().txtMain[kDllBox]->SetText("");
    const frmPreview::Texts texts = Show([](frmPreview& box) {
        EXPECT_EQ(FromWx(box.GetTitle()), "Vorschau");
        EXPECT_EQ(FromWx(box.nbkTargets->GetPageText(0)), "DB schreiben");
        EXPECT_EQ(FromWx(box.nbkTargets->GetPageText(2)), "DDInstall schreiben");
        EXPECT_EQ(FromWx(box.cmdCopy->GetLabel()), "&Kopieren");
        EXPECT_EQ(FromWx(box.cmdClose->GetLabel()), "Schlie\u00DFen");
    });
    EXPECT_EQ(texts[1], "Dieser Befehl ist jetzt nicht verf\u00FCgbar:\n- leer: Ger\u00E4t, Ger\u00E4te-DLL");
}

TEST_F(Preview, CanBeReadOnlyIsMonospacedAndGrowsWithItsWindow) {
    world_.Start();
    Show([](frmPreview& box) {
        for (const wxTextCtrl* text : box.txtTargets) {
            EXPECT_FALSE(text->IsEditable());
            EXPECT_TRUE(text->GetFont().IsFixedWidth());
        }
        const int before = box.txtTargets[0]->GetSize().x;
        box.SetSize(box.GetSize() + wxSize(100, 50));
        WaitUntil("the text to grow", [&] { return box.txtTargets[0]->GetSize().x == before + 100; });
    });
}

TEST_F(Preview, TurnsItsTabsByTheKeysOfTheWindow) {
    world_.Start();
    Show([](frmPreview& box) {
        WaitUntil("the text to have the keyboard", [&] { return box.txtTargets[0]->HasFocus(); });
        PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
        WaitUntil("the second tab", [&] { return box.nbkTargets->GetSelection() == 1; });
        PressKey(WXK_PAGEUP, wxMOD_CONTROL);
        WaitUntil("the first tab", [&] { return box.nbkTargets->GetSelection() == 0; });
    });
}

TEST_F(Preview, TellsOfAFileThatIsTooLargeToBeRead) {
    const std::string path = world_.Folder() + "Large.ini";
    WriteBytes(path, "");
    fs::resize_file(PathOf(path), kLargestFile + 1);  // takes no room on the disk
    world_.Start().Controls().txtMain[kIniPathBox]->SetText(path);
    const frmPreview::Texts texts = Show();
    EXPECT_THAT(texts[1], StartsWith("The command would fail:\n"));
    EXPECT_THAT(texts[1], HasSubstr("Large.ini"));
    EXPECT_THAT(texts[2], HasSubstr("\n+[Mfg"));
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(Preview, CopiesTheTextOfTheTabInFront) {
    world_.Start();
    const frmPreview::Texts texts = Show([](frmPreview& box) {
        box.nbkTargets->SetSelection(1);
        Click(*box.cmdCopy);
    });
    EXPECT_EQ(world_.clipboard.text, texts[1]);
}

TEST_F(Preview, LogsAClipboardThatAnotherProgramHolds) {
    world_.Start();
    world_.clipboard.isHeldByAnother = true;
    Show([](frmPreview& box) { Press(*box.cmdCopy); });
    EXPECT_THAT(world_.LogEntries(), ElementsAre(HasSubstr("fMcp-00: Can't open Clipboard")));
}

TEST_F(Preview, CanBeGivenUpWhileItReads) {
    frmMain& window = world_.Start();
    world_.Statements();
    int calls = 0;
    frmPreview* box = nullptr;
    wxTimer limit;
    limit.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        ADD_FAILURE() << "the preview did not close";
        box->EndModal(wxID_CANCEL);
    });
    limit.StartOnce(15000);
    world_.whileYielding = [&] {
        for (wxWindow* top : wxTopLevelWindows) {
            if (auto* preview = dynamic_cast<frmPreview*>(top); preview != nullptr && calls++ == 0) {
                box = preview;
                Press(*preview->cmdClose);
                EXPECT_FALSE(preview->cmdClose->IsEnabled());
                EXPECT_TRUE(preview->IsModal()) << "it waits for the work's end";
            }
        }
    };
    Choose(window, *window.Menu().mnuPreview);
    world_.whileYielding = nullptr;
    EXPECT_NE(box, nullptr);
    EXPECT_THAT(world_.Statements(), Not(Contains(StartsWith("select *   from MfrProtocols"))));
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
    EXPECT_THAT(world_.LogEntries(), IsEmpty());
    EXPECT_FALSE(window.IsBusy());
}

}  // namespace
}  // namespace ventlock::test
