#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/stattext.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace ventlock {

/// Asks for one of several names. Enter, or a double click, takes the one that is marked; Esc takes none.
class frmChoose final : public wxDialog {
 public:
    /// `names` has at least one, which is marked at first.
    frmChoose(wxWindow* parent, const std::string& title, const std::string& question,
              const std::vector<std::string>& names);

    /// Shows the box; the index of the name that was chosen.
    std::optional<std::size_t> Ask();

    wxStaticText* lblQuestion;
    wxListBox* lstNames;
    wxButton* cmdOpen;
    wxButton* cmdCancel;

 private:
    void Arrange();
};

}  // namespace ventlock
