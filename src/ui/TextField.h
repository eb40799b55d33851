#pragma once

#include <wx/textctrl.h>

#include <functional>
#include <string>

#include "ui/FieldLook.h"

namespace ventlock {

/// A text box. Whatever changes its text, the user or the program, runs the change handler once.
class TextField {
 public:
    /// `box` must outlive this object. `onChange` runs after each change.
    TextField(wxTextCtrl& box, std::function<void()> onChange);
    TextField(const TextField&) = delete;
    TextField& operator=(const TextField&) = delete;

    [[nodiscard]] std::string Text() const;

    /// Does nothing when the text is there already.
    void SetText(const std::string& text);

    [[nodiscard]] wxTextCtrl& Box() const noexcept { return box_; }
    [[nodiscard]] FieldLook& Look() noexcept { return look_; }

 private:
    wxTextCtrl& box_;
    FieldLook look_;
    std::function<void()> onChange_;
};

}  // namespace ventlock
