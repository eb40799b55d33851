#include <gtest/gtest.h>
#include <wx/notebook.h>

#include <filesystem>

#include "core/modLocalization.h"
#include "gui/HelpBook.h"
#include "gui/Input.h"
#include "support/RowName.h"
#include "support/TempFolder.h"
#include "ui/WxHelp.h"

namespace ventlock::test {
namespace {

struct Language {
    const char* name;
    const char* code;
    const char* firstPage;
    const char* contents;  ///< the tab beside the page, in the toolkit's own words
};

void PrintTo(const Language& language, std::ostream* out) {
    *out << language.name;
}

class HelpBookIn : public HelpBook, public testing::WithParamInterface<Language> {};

TEST_P(HelpBookIn, OpensItsFirstPageInAWindowOfItsLanguage) {
    gsLanguage = GetParam().code;
    WxHelp help;
    ASSERT_TRUE(help.Show(VENTLOCK_HELP_BOOK, kHelpContents));
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_TRUE(HelpWindow()->IsShown());
    EXPECT_EQ(OpenedPage(*HelpWindow()), GetParam().firstPage);
    const auto& tabs = *wxStaticCast(HelpWindow()->FindWindow(wxID_HTML_NOTEBOOK), wxNotebook);
    EXPECT_EQ(FromWx(tabs.GetPageText(0)), GetParam().contents);
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpBookIn,
                         testing::Values(Language{"English", "EN", "Welcome to Ventlock", "Contents"},
                                         Language{"German", "DE", "Willkommen bei Ventlock", "Inhalte"},
                                         Language{"InSmallLetters", "de", "Willkommen bei Ventlock",
                                                  "Inhalte"},
                                         Language{"AnyOther", "FR", "Welcome to Ventlock", "Contents"}),
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

TEST_F(HelpBook, ComesToTheFrontWhenItIsOpenedAgain) {
    WxHelp help;
    ASSERT_TRUE(help.Show(VENTLOCK_HELP_BOOK, kHelpContents));
    wxHtmlHelpFrame* const first = HelpWindow();
    WaitUntil("the help window in front", [&] { return first->IsActive(); });
    wxFrame other(nullptr, wxID_ANY, "another window");
    other.Show();
    WaitUntil("the other window in front", [&] { return other.IsActive(); });
    // A window manager that is late with the other window puts it in front once more.
    WaitUntil("the help window in front again", [&] {
        EXPECT_TRUE(help.Show(VENTLOCK_HELP_BOOK, kHelpContents));
        EXPECT_EQ(HelpWindow(), first);
        return first->IsActive();
    });
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
