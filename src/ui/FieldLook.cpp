#include "ui/FieldLook.h"

#include <wx/settings.h>

namespace ventlock {

wxColour SystemColour(FieldColour colour) {
    const bool isEditable = colour == FieldColour::WindowBackground;
    return wxSystemSettings::GetColour(isEditable ? wxSYS_COLOUR_WINDOW : wxSYS_COLOUR_BTNFACE);
}

void PassKeyboardOn(const wxWindow& window) {
    wxWindow* other = window.GetNextSibling();
    while (other != nullptr && !other->CanAcceptFocus()) other = other->GetNextSibling();
    if (other == nullptr) other = window.GetPrevSibling();
    while (other != nullptr && !other->CanAcceptFocus()) other = other->GetPrevSibling();
    if (other != nullptr) other->SetFocus();
}

void FieldLook::Enable(bool isEnabled) {
    if (!isEnabled && window_.HasFocus()) PassKeyboardOn(window_);
    window_.Enable(isEnabled);
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
