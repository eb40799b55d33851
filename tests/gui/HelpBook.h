#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/filesys.h>
#include <wx/fs_arc.h>
#include <wx/html/helpfrm.h>
#include <wx/html/htmlwin.h>
#include <wx/log.h>

#include <string>
#include <vector>

#include "core/modLocalization.h"
#include "gui/Input.h"
#include "support/TempFolder.h"
#include "ui/WxText.h"

namespace ventlock::test {

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

/// The help window, nullptr when there is none.
inline wxHtmlHelpFrame* HelpWindow() {
    for (wxWindow* window : wxTopLevelWindows)
        if (auto* frame = dynamic_cast<wxHtmlHelpFrame*>(window)) return frame;
    return nullptr;
}

/// The title of the page that a help window shows.
inline std::string OpenedPage(const wxHtmlHelpFrame& window) {
    return FromWx(window.GetHelpWindow()->GetHtmlWindow()->GetOpenedPageTitle());
}

/// Tests that open the help book: the toolkit tells nothing in a box of its own, and no help window stays.
class HelpBook : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        static const bool isAdded = (wxFileSystem::AddHandler(new wxArchiveFSHandler), true);
        ASSERT_TRUE(isAdded);
    }
    void TearDown() override {
        gsLanguage.clear();
        EXPECT_THAT(toolkit_.texts, testing::IsEmpty());
        WaitUntil("the help window to be gone", [] { return HelpWindow() == nullptr; });
    }

    ToolkitMessages toolkit_;
    TempFolder folder_;
};

}  // namespace ventlock::test
