#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/filesys.h>
#include <wx/fs_arc.h>
#include <wx/html/helpfrm.h>
#include <wx/html/htmlwin.h>
#include <wx/log.h>

#include <filesystem>

#include "core/modLocalization.h"
#include "gui/Input.h"
#include "support/RowName.h"
#include "support/TempFolder.h"
#include "ui/WxHelp.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

using ::testing::IsEmpty;

/// Keeps what the toolkit would tell the user in a box of its own.
class ToolkitMessages final : public wxLog {
 public:
    ToolkitMessages() : previous_(wxLog::SetActiveTarget(this)) {}
    ~ToolkitMessages() override { wxLog::SetActiveTarget(previous_); }
    std::vector<std::string> texts;

 private:
    void DoLogRecord(wxLogLevel /*level*/, const wxString& text, const wxLogRecordInfo& /*info*/) override {
        texts.push_back(FromWx(text));
    }

    wxLog* previous_;
};

wxHtmlHelpFrame* HelpWindow() {
    for (wxWindow* window : wxTopLevelWindows)
        if (auto* frame = dynamic_cast<wxHtmlHelpFrame*>(window)) return frame;
    return nullptr;
}

/// The title of the page that is shown somewhere in a window.
std::string OpenedPage(const wxWindow& window) {
    for (wxWindow* child : window.GetChildren()) {
        const auto* page = dynamic_cast<wxHtmlWindow*>(child);
        const std::string title = page != nullptr ? FromWx(page->GetOpenedPageTitle()) : OpenedPage(*child);
        if (!title.empty()) return title;
    }
    return {};
}

class HelpBook : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        static const bool isAdded = (wxFileSystem::AddHandler(new wxArchiveFSHandler), true);
        ASSERT_TRUE(isAdded);
    }
    void TearDown() override {
        gsLanguage.clear();
        EXPECT_THAT(toolkit_.texts, IsEmpty());
        WaitUntil("the help window to be gone", [] { return HelpWindow() == nullptr; });
    }

    ToolkitMessages toolkit_;
    TempFolder folder_;
};

struct Language {
    const char* name;
    const char* code;
    const char* firstPage;
};

void PrintTo(const Language& language, std::ostream* out) {
    *out << language.name;
}

class HelpBookIn : public HelpBook, public testing::WithParamInterface<Language> {};

TEST_P(HelpBookIn, OpensItsFirstPage) {
    gsLanguage = GetParam().code;
    WxHelp help;
    ASSERT_TRUE(help.Show(VENTLOCK_HELP_BOOK, kHelpContents));
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_TRUE(HelpWindow()->IsShown());
    EXPECT_EQ(OpenedPage(*HelpWindow()), GetParam().firstPage);
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpBookIn,
                         testing::Values(Language{"English", "EN", "Welcome to Ventlock"},
                                         Language{"German", "DE", "Willkommen bei Ventlock"},
                                         Language{"AnyOther", "FR", "Welcome to Ventlock"}),
                         RowName());

TEST_F(HelpBook, OpensAgainAfterItsWindowWasClosed) {
    WxHelp help;
    ASSERT_TRUE(help.Show(VENTLOCK_HELP_BOOK, kHelpContents));
    HelpWindow()->Close();
    WaitUntil("the help window to close", [] { return HelpWindow() == nullptr; });
    EXPECT_TRUE(help.Show(VENTLOCK_HELP_BOOK, kHelpContents));
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_EQ(OpenedPage(*HelpWindow()), "Welcome to Ventlock");
}

TEST_F(HelpBook, OpensInAFolderOfAnyName) {
    const std::string folder = folder_ / "Grün & 50% #1";
    std::filesystem::create_directory(PathOf(folder));
    std::filesystem::copy_file(VENTLOCK_HELP_BOOK, PathOf(folder) / "Ventlock.hlp");
    WxHelp help;
    EXPECT_TRUE(help.Show(folder + "/Ventlock.hlp", kHelpContents));
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_EQ(OpenedPage(*HelpWindow()), "Welcome to Ventlock");
}

TEST_F(HelpBook, ThatIsMissingIsToldByTheResultAlone) {
    WxHelp help;
    EXPECT_FALSE(help.Show(folder_ / "Ventlock.hlp", kHelpContents));
    EXPECT_EQ(HelpWindow(), nullptr);
}

TEST_F(HelpBook, ThatIsNoBookIsToldByTheResultAlone) {
    WriteBytes(folder_ / "Ventlock.hlp", "no zip");
    WxHelp help;
    EXPECT_FALSE(help.Show(folder_ / "Ventlock.hlp", kHelpContents));
    EXPECT_EQ(HelpWindow(), nullptr);
}

TEST_F(HelpBook, ThatCameLaterOpens) {
    WxHelp help;
    ASSERT_FALSE(help.Show(folder_ / "Ventlock.hlp", kHelpContents));
    std::filesystem::copy_file(VENTLOCK_HELP_BOOK, folder_ / "Ventlock.hlp");
    EXPECT_TRUE(help.Show(folder_ / "Ventlock.hlp", kHelpContents));
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_EQ(OpenedPage(*HelpWindow()), "Welcome to Ventlock");
}

TEST_F(HelpBook, KnowsNoOtherCommandThanTheContents) {
    WxHelp help;
    EXPECT_FALSE(help.Show(VENTLOCK_HELP_BOOK, 1));
    EXPECT_EQ(HelpWindow(), nullptr);
}

}  // namespace
}  // namespace ventlock::test
