#pragma once

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/timer.h>

#include <functional>

namespace ventlock::test {

/// While it lives, every modal dialog that opens is met by `act` once the keyboard has left the program's
/// window for it. A dialog that is still there some seconds later fails the test and is closed.
class WhileModal final : private wxModalDialogHook {
 public:
    /// `window` is active and stays the one behind the dialogs.
    WhileModal(wxTopLevelWindow& window, std::function<void(wxDialog&)> act);
    ~WhileModal() override;

    /// How many dialogs have opened.
    [[nodiscard]] int Opened() const noexcept { return opened_; }

 private:
    int Enter(wxDialog* dialog) override;
    void Exit(wxDialog* dialog) override;
    void Meet(wxDialog& dialog);

    wxTopLevelWindow& window_;
    std::function<void(wxDialog&)> act_;
    wxTimer limit_;
    wxDialog* dialog_ = nullptr;
    int opened_ = 0;
};

}  // namespace ventlock::test
