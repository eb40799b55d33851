#pragma once

#include <wx/frame.h>
#include <wx/textctrl.h>

namespace ventlock::bench {

/// A window with four tabs of eight fields, empty and without any rules.
class BareWindow final : public wxFrame {
 public:
    BareWindow();

    /// On the first tab.
    [[nodiscard]] wxTextCtrl& FirstField() { return *firstField_; }

 private:
    wxTextCtrl* firstField_ = nullptr;
};

}  // namespace ventlock::bench
