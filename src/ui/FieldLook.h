#pragma once

#include <wx/window.h>

#include <optional>

#include "entry/ControlStates.h"

namespace ventlock {

/// The palette's colour for a colour code.
wxColour SystemColour(FieldColour colour);

/// Gives the keyboard that `window` has to the next of its siblings that can take it, or to the one before: a
/// disabled control would keep it to itself. The toolkit's own navigation does not leave an editable list,
/// and does nothing in a frame that a box has been in front of just now.
void PassKeyboardOn(const wxWindow& window);

/// Enabled state and background of one field.
class FieldLook {
 public:
    /// `window` must outlive this object.
    explicit FieldLook(wxWindow& window) : window_(window) {}

    /// A field that is disabled while it has the keyboard passes that on.
    void Enable(bool isEnabled);

    /// Gives the field a colour of the palette; it had the toolkit's own before.
    void SetColour(FieldColour colour);

    /// The colour given last, none before the first.
    [[nodiscard]] std::optional<FieldColour> Colour() const noexcept { return colour_; }

    /// Gives the same colour again from a palette that has changed.
    void RefreshColour();

 private:
    wxWindow& window_;
    std::optional<FieldColour> colour_;
};

}  // namespace ventlock
