#include <gtest/gtest.h>
#include <wx/notebook.h>
#include <wx/treectrl.h>

#include <optional>

#include "gui/HelpBook.h"
#include "gui/Input.h"
#include "ui/WxHelp.h"

namespace ventlock::test {
namespace {

/// The English help book, open on the screen with the keyboard where it is at first.
class HelpKeys : public HelpBook {
 protected:
    void SetUp() override {
        gsLanguage = "EN";
        ASSERT_TRUE(help_->Show(VENTLOCK_HELP_BOOK, kHelpContents));
        ASSERT_TRUE(WaitUntil("the help window in front", [] { return HelpWindow()->IsActive(); }));
        ASSERT_TRUE(ComesTo(Page()));
    }
    void TearDown() override {
        help_.reset();
        HelpBook::TearDown();
    }

    static wxHtmlWindow& Page() { return *HelpWindow()->GetHelpWindow()->GetHtmlWindow(); }
    static wxWindow& Part(int id) { return *HelpWindow()->FindWindow(id); }
    static std::string Title() { return OpenedPage(*HelpWindow()); }

    /// The position of the tab beside the page.
    static int Tab() { return wxStaticCast(&Part(wxID_HTML_NOTEBOOK), wxNotebook)->GetSelection(); }

    static int LinesAbove() {
        int column = 0;
        int line = 0;
        Page().GetViewStart(&column, &line);
        return line;
    }

    /// Waits for the keyboard to come to a part of the window.
    static bool ComesTo(const wxWindow& part) {
        return WaitUntil("the keyboard", [&] {
            const wxWindow* const focused = wxWindow::FindFocus();
            return focused != nullptr && part.IsDescendant(const_cast<wxWindow*>(focused));
        });
    }

    static void ExpectTitle(const std::string& title) {
        WaitUntil(title.c_str(), [&] { return Title() == title; });
    }

    /// Opens the page of "The window" by the tree of contents.
    static void OpenSecondPage() {
        PressKey(WXK_TAB);
        ASSERT_TRUE(ComesTo(Part(wxID_HTML_TREECTRL)));
        PressKey(WXK_RIGHT);  // unfolds the book
        PressKey(WXK_DOWN);
        PressKey(WXK_DOWN);
        ExpectTitle("The tab General");
    }

    std::optional<WxHelp> help_{std::in_place};
};

TEST_F(HelpKeys, ScrollThePageAtOnce) {
    Page().LoadPage(Page().GetOpenedPage().BeforeLast('/') + "/errors.html");  // longer than the window
    ExpectTitle("Error texts and remedies");
    PressKey(WXK_DOWN);
    WaitUntil("a line", [] { return LinesAbove() > 0; });
    const int before = LinesAbove();
    PressKey(WXK_PAGEDOWN);
    WaitUntil("a screenful", [&] { return LinesAbove() > before + 1; });
    PressKey(WXK_PAGEUP);
    WaitUntil("the way back", [&] { return LinesAbove() <= before; });
}

TEST_F(HelpKeys, GoRoundThePageAndTheContentsByTab) {
    PressKey(WXK_TAB);
    ASSERT_TRUE(ComesTo(Part(wxID_HTML_TREECTRL)));
    for (int stop = 0; stop < 4 && wxWindow::FindFocus() != &Page(); ++stop) {
        const wxWindow* const before = wxWindow::FindFocus();
        PressKey(WXK_TAB);
        WaitUntil("the next stop", [&] { return wxWindow::FindFocus() != before; });
    }
    EXPECT_TRUE(ComesTo(Page()));
}

TEST_F(HelpKeys, GoRoundTheOtherWayByShiftAndTab) {
    PressKey(WXK_TAB);
    ASSERT_TRUE(ComesTo(Part(wxID_HTML_TREECTRL)));
    PressKey(WXK_TAB, wxMOD_SHIFT);
    ASSERT_TRUE(ComesTo(Page()));
    PressKey(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(ComesTo(Part(wxID_HTML_BOOKMARKSREMOVE)));
}

TEST_F(HelpKeys, TurnContentsIndexAndSearchRound) {
    PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
    EXPECT_TRUE(ComesTo(Part(wxID_HTML_INDEXTEXT)));
    EXPECT_EQ(Tab(), 1);
    PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
    EXPECT_TRUE(ComesTo(Part(wxID_HTML_SEARCHTEXT)));
    EXPECT_EQ(Tab(), 2);
    PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
    EXPECT_TRUE(ComesTo(Part(wxID_HTML_TREECTRL)));
    EXPECT_EQ(Tab(), 0);
    PressKey(WXK_PAGEUP, wxMOD_CONTROL);
    EXPECT_TRUE(ComesTo(Part(wxID_HTML_SEARCHTEXT)));
    EXPECT_EQ(Tab(), 2);
}

TEST_F(HelpKeys, ReachTheIndexesListByTab) {
    PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
    ASSERT_TRUE(ComesTo(Part(wxID_HTML_INDEXTEXT)));
    for (const int id : {wxID_HTML_INDEXBUTTON, wxID_HTML_INDEXBUTTONALL, wxID_HTML_INDEXLIST}) {
        PressKey(WXK_TAB);
        ASSERT_TRUE(ComesTo(Part(id))) << id;
    }
    PressKey(WXK_TAB);
    EXPECT_TRUE(ComesTo(Page()));
}

TEST_F(HelpKeys, FindWordsInAllPages) {
    PressKey(WXK_PAGEUP, wxMOD_CONTROL);
    ASSERT_TRUE(ComesTo(Part(wxID_HTML_SEARCHTEXT)));
    TypeText("hexadecimal");
    PressKey(WXK_RETURN);
    WaitUntil("a page that is found", [] { return Title() != "Welcome to Ventlock"; });
}

TEST_F(HelpKeys, GoFromTheContentsToTheirPageByEnter) {
    OpenSecondPage();
    EXPECT_EQ(wxWindow::FindFocus(), &Part(wxID_HTML_TREECTRL));
    PressKey(WXK_RETURN);
    EXPECT_TRUE(ComesTo(Page()));
    EXPECT_EQ(Title(), "The tab General");
}

TEST_F(HelpKeys, GoBackAndForwardByAltAndAnArrow) {
    OpenSecondPage();
    PressKey(WXK_LEFT, wxMOD_ALT);
    ExpectTitle("Welcome to Ventlock");
    PressKey(WXK_RIGHT, wxMOD_ALT);
    ExpectTitle("The tab General");
}

TEST_F(HelpKeys, StayOnThePageWithoutTheContents) {
    wxCommandEvent hide(wxEVT_TOOL, wxID_HTML_PANEL);
    HelpWindow()->GetHelpWindow()->GetEventHandler()->ProcessEvent(hide);
    ASSERT_FALSE(HelpWindow()->GetHelpWindow()->GetSplitterWindow()->IsSplit());
    PressKey(WXK_PAGEDOWN, wxMOD_CONTROL);
    PressKey(WXK_TAB);
    PressKey(WXK_LEFT, wxMOD_ALT);
    Pump();
    EXPECT_EQ(wxWindow::FindFocus(), &Page());
    EXPECT_EQ(Tab(), 0);
}

TEST_F(HelpKeys, CloseTheWindowByEscFromThePageAndFromTheSearch) {
    PressKey(WXK_ESCAPE);
    WaitUntil("the help window to close", [] { return HelpWindow() == nullptr; });
    ASSERT_TRUE(help_->Show(VENTLOCK_HELP_BOOK, kHelpContents));
    ASSERT_TRUE(WaitUntil("the help window in front", [] { return HelpWindow()->IsActive(); }));
    ASSERT_TRUE(ComesTo(Page()));
    PressKey(WXK_PAGEUP, wxMOD_CONTROL);
    ASSERT_TRUE(ComesTo(Part(wxID_HTML_SEARCHTEXT)));
    PressKey(WXK_ESCAPE);
    WaitUntil("the help window to close", [] { return HelpWindow() == nullptr; });
}

}  // namespace
}  // namespace ventlock::test
