#pragma once

#include <wx/html/helpfrm.h>

#include <string>

namespace ventlock::test {

/// Changes the desktop's theme, as its user would in the desktop's settings.
void UseTheme(const std::string& name);

/// Chooses an item of a drop-down list as a click on it does.
void PickItem(wxWindow& list, int item);

/// Whether a window is on the screen. The toolkit's own answer is True again when a window that was closed at
/// once learns late that it had been shown.
bool IsOnScreen(wxWindow& window);

/// The help window that is open, nullptr when none is.
wxHtmlHelpFrame* HelpWindow();

/// Makes every assertion of the toolkit's own ground that does not hold (GLib, GTK) a failed test, but for
/// one that is about GTK's scrolled windows alone.
void FailOnCriticals();

}  // namespace ventlock::test
