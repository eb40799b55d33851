#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/filedlg.h>

#include "gui/GuiWorld.h"
#include "gui/HostKeys.h"
#include "gui/Input.h"
#include "gui/WhileModal.h"
#include "ui/WxFileDialog.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

/// The desktop's dialog in front of a real window.
class FileDialog : public testing::Test {
 protected:
    void SetUp() override {
        wxTheApp->SetTopWindow(&world_.Start());
        WriteBytes(folder_ / "Pyx.ini", "");
        question_ = {.flags = kHideReadOnly,
                     .filters = "INI files (*.ini)|*.ini|All files (*.*)|*.*",
                     .preselected = 2,
                     .start = folder_ / "Pyx.ini",
                     .title = "Select"};
    }
    void TearDown() override { wxTheApp->SetTopWindow(nullptr); }

    /// The answer after `act` in the open dialog.
    std::string Ask(const std::function<void(wxFileDialog&)>& act) {
        const WhileModal modal(world_.Window(),
                               [&](wxDialog& dialog) { act(dynamic_cast<wxFileDialog&>(dialog)); });
        std::string answer = WxFileDialog().Open(question_);
        EXPECT_EQ(modal.Opened(), 1);
        return answer;
    }

    GuiWorld world_;
    TempFolder folder_;
    FileQuestion question_;
};

TEST_F(FileDialog, ThatIsCancelledGivesNothing) {
    EXPECT_EQ(Ask([](wxFileDialog&) { PressKey(WXK_ESCAPE); }), "");
}

TEST_F(FileDialog, ShowsTheFiltersAndTheOneChosenFirst) {
    Ask([](wxFileDialog& dialog) {
        EXPECT_EQ(dialog.GetWildcard(), "INI files (*.ini)|*.ini|All files (*.*)|*.*");
        EXPECT_EQ(dialog.GetFilterIndex(), 1) << "counted from 0";
        PressKey(WXK_ESCAPE);
    });
}

TEST_F(FileDialog, AcceptsANewFileWhereItMayBeNamed) {
    question_.start = folder_ / "New.ini";
    EXPECT_EQ(Ask([](wxFileDialog&) { PressKey(WXK_RETURN); }), folder_ / "New.ini");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini") << "nothing is created";
}

TEST_F(FileDialog, TakesAnExistingFileAsNewOneWithoutAQuestion) {
    EXPECT_EQ(Ask([](wxFileDialog&) { PressKey(WXK_RETURN); }), folder_ / "Pyx.ini");
}

TEST_F(FileDialog, AsksBeforeAFileIsReplacedWhereThatIsWanted) {
    question_.flags = kHideReadOnly | kAskBeforeReplacing;
    int met = 0;
    const std::string answer = Ask([&met](wxFileDialog&) {
        ++met;
        PressKey(WXK_RETURN);
        PressKey(WXK_ESCAPE);  // "no" to the question
        PressKey(WXK_ESCAPE);
    });
    EXPECT_EQ(answer, "");
    EXPECT_EQ(met, 1);
}

TEST_F(FileDialog, OpensWithAStartThatLeadsNowhere) {
    for (const char* start : {"A:\\Ddinstal.ini", "", "relative.ini", "/no/such/folder/a.ini", "PYX"}) {
        question_.start = start;
        question_.flags = kHideReadOnly | kFileMustExist;
        EXPECT_EQ(Ask([](wxFileDialog&) { PressKey(WXK_ESCAPE); }), "") << start;
    }
}

TEST_F(FileDialog, TakesAnExistingFileWhereOneIsNeeded) {
    question_.flags = kHideReadOnly | kFileMustExist;
    EXPECT_EQ(Ask([this](wxFileDialog&) {
                  TypeFileName(folder_ / "Pyx.ini");
                  PressKey(WXK_RETURN);
              }),
              folder_ / "Pyx.ini");
}

TEST_F(FileDialog, RefusesAMissingFileWhereOneIsNeeded) {
    question_.flags = kHideReadOnly | kFileMustExist;
    EXPECT_EQ(Ask([this](wxFileDialog&) {
                  TypeFileName(folder_ / "Missing.ini");
                  PressKey(WXK_RETURN);
                  PressKey(WXK_ESCAPE);
                  PressKey(WXK_ESCAPE);
              }),
              "");
}

}  // namespace
}  // namespace ventlock::test
