#pragma once

#include <wx/textctrl.h>
#include <wx/window.h>

namespace ventlock {

/// From now on `entry`, the text part of `window`, takes hexadecimal digits only when something is typed:
/// small letters become capitals, other characters do nothing. Keys that are no characters and the
/// combinations of Ctrl and Alt stay as they are, and what is pasted is not filtered.
void FilterTyping(wxWindow& window, wxTextEntry& entry);

}  // namespace ventlock
