#pragma once

#include <wx/html/helpfrm.h>

namespace ventlock {

/// Gives a help window the keys that it lacks. Tab and Shift+Tab go round: the page, then what the tab beside
/// it holds. Ctrl+Page Up and Ctrl+Page Down turn contents, index and search. Enter in one of their lists
/// goes to the page that the list has brought up. Alt+Left and Alt+Right go back and forward, Esc closes.
void AddHelpKeys(wxHtmlHelpFrame& frame);

/// Gives the page the keyboard, so that the arrow keys scroll it.
void FocusHelpPage(wxHtmlHelpFrame& frame);

}  // namespace ventlock
