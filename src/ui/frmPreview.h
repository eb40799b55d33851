#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/notebook.h>
#include <wx/textctrl.h>

#include <array>
#include <exception>
#include <functional>
#include <string>

namespace ventlock {

/// Shows what the three write commands would do, each on a tab of its own, in texts that can be read and
/// copied. It opens at once and can be given up while the texts are being made.
class frmPreview final : public wxDialog {
 public:
    static constexpr std::size_t kTabCount = 3;
    using Texts = std::array<std::string, kTabCount>;

    /// @param tabs  their captions
    /// @param copy  takes a text to the clipboard
    frmPreview(wxWindow* parent, const std::string& title, const Texts& tabs,
               std::function<void(const std::string&)> copy);

    /// Shows the box, then runs `work`, which gives the texts; window events may run meanwhile. Returns when
    /// the box was closed and the work has ended. What the work raises is raised here.
    void Run(const std::function<Texts()>& work);

    /// True once the box was closed before the work's end: its texts will not be shown.
    [[nodiscard]] bool IsGivenUp() const noexcept { return isGivenUp_; }

    wxNotebook* nbkTargets;
    std::array<wxTextCtrl*, kTabCount> txtTargets{};
    wxButton* cmdCopy;
    wxButton* cmdClose;

 private:
    void Arrange(const Texts& tabs);
    void Work(const std::function<Texts()>& work);
    void Leave();
    void TurnPage(wxKeyEvent& event);

    bool isWorking_ = false;
    bool isGivenUp_ = false;
    std::exception_ptr error_;
};

}  // namespace ventlock
