#pragma once

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/timer.h>

#include <vector>

namespace ventlock::test {

/// While it lives, every modal dialog that opens is answered shortly afterwards: boxes of the platform with
/// OK, the program's own by their Escape button.
class BoxAnswers final : private wxModalDialogHook {
 public:
    BoxAnswers();
    ~BoxAnswers() override;

    /// How many dialogs have opened.
    [[nodiscard]] int Opened() const noexcept { return opened_; }

    /// Whether one is open now.
    [[nodiscard]] bool IsOpen() const noexcept { return !open_.empty(); }

 private:
    int Enter(wxDialog* dialog) override;
    void Exit(wxDialog* dialog) override;
    void Answer();

    wxTimer timer_;
    std::vector<wxDialog*> open_;
    int opened_ = 0;
};

}  // namespace ventlock::test
