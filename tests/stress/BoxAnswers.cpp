#include "stress/BoxAnswers.h"

#include <glib-object.h>
#include <wx/msgdlg.h>

#include <algorithm>

namespace ventlock::test {
namespace {

constexpr int kBetweenAnswersMs = 10;
constexpr int kAnswerOk = -5;  // by GTK's numbers

}  // namespace

BoxAnswers::BoxAnswers() {
    timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Answer(); });
    Register();
}

BoxAnswers::~BoxAnswers() {
    Unregister();
}

int BoxAnswers::Enter(wxDialog* dialog) {
    open_.push_back(dialog);
    ++opened_;
    timer_.Start(kBetweenAnswersMs);
    return wxID_NONE;  // it opens
}

void BoxAnswers::Exit(wxDialog* dialog) {
    std::erase(open_, dialog);
    if (open_.empty()) timer_.Stop();
}

void BoxAnswers::Answer() {
    if (open_.empty()) return;
    wxDialog& dialog = *open_.back();
    if (dynamic_cast<wxMessageDialog*>(&dialog) != nullptr) {
        if (dialog.GetHandle() == nullptr) return;  // still to be made
        g_signal_emit_by_name(dialog.GetHandle(), "response", kAnswerOk);
    } else if (dialog.IsModal()) {
        dialog.EndModal(wxID_OK);
    }
}

}  // namespace ventlock::test
