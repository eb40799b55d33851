#pragma once

#include <wx/window.h>

#include <optional>

#include "entry/ControlStates.h"

namespace ventlock {

/// The palette's colour for a colour code.
wxColour SystemColour(FieldColour colour);

/// Enabled state and background of one field.
class FieldLook {
 public:
    /// `window` must outlive this object.
    explicit FieldLook(wxWindow& window) : window_(window) {}

    void Enable(bool isEnabled) { window_.Enable(isEnabled); }

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
