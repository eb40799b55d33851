#include "gui/WhileModal.h"

#include <gtest/gtest.h>
#include <wx/app.h>

#include <utility>

#include "gui/HostKeys.h"
#include "gui/Input.h"

namespace ventlock::test {
namespace {

constexpr int kLimitMs = 15000;

}  // namespace

WhileModal::WhileModal(wxTopLevelWindow& window, std::function<void(wxDialog&)> act)
    : window_(window), act_(std::move(act)) {
    if (!window_.IsActive()) window_.Raise();
    WaitUntil("the window to be active", [&] { return window_.IsActive(); });
    limit_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        ADD_FAILURE() << "a dialog did not close: " << dialog_->GetTitle();
        if (dialog_->IsModal()) {
            dialog_->EndModal(wxID_CANCEL);
        } else {  // a dialog of the platform
            PressKey(WXK_ESCAPE);
        }
    });
    Register();
}

WhileModal::~WhileModal() {
    Unregister();
}

int WhileModal::Enter(wxDialog* dialog) {
    if (dialog == dialog_) return wxID_NONE;  // dialogs of the platform tell of themselves twice
    ++opened_;
    dialog_ = dialog;
    limit_.StartOnce(kLimitMs);
    wxTheApp->CallAfter([this, dialog] {
        if (dialog_ == dialog) Meet(*dialog);
    });
    return wxID_NONE;  // it opens
}

void WhileModal::Meet(wxDialog& dialog) {
    if (WaitUntil("the dialog to take the keyboard",
                  [&] { return !window_.IsActive() && DialogTakesKeys(); }))
        act_(dialog);
}

void WhileModal::Exit(wxDialog* /*dialog*/) {
    limit_.Stop();
    dialog_ = nullptr;
}

}  // namespace ventlock::test
