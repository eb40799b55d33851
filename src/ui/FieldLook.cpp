#include "ui/FieldLook.h"

#include <wx/settings.h>

namespace ventlock {

wxColour SystemColour(FieldColour colour) {
    const bool isEditable = colour == FieldColour::WindowBackground;
    return wxSystemSettings::GetColour(isEditable ? wxSYS_COLOUR_WINDOW : wxSYS_COLOUR_BTNFACE);
}

void FieldLook::SetColour(FieldColour colour) {
    if (colour_ == colour) return;
    colour_ = colour;
    RefreshColour();
}

void FieldLook::RefreshColour() {
    if (!colour_) return;
    window_.SetBackgroundColour(SystemColour(*colour_));
    window_.Refresh();
}

}  // namespace ventlock
