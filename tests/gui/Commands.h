#pragma once

#include <wx/button.h>

#include <string>
#include <vector>

#include "ui/frmMain.h"

namespace ventlock::test {

/// Sends the event of a pressed button; a disabled one stays silent, as on the screen.
inline void Press(wxButton& button) {
    if (!button.IsEnabled()) return;
    wxCommandEvent event(wxEVT_BUTTON, button.GetId());
    event.SetEventObject(&button);
    button.ProcessWindowEvent(event);
}

/// Sends the event of a chosen menu item; a disabled one stays silent, as on the screen.
inline void Choose(frmMain& window, const wxMenuItem& item) {
    if (!item.IsEnabled()) return;
    wxCommandEvent event(wxEVT_MENU, item.GetId());
    event.SetEventObject(&window);
    window.ProcessWindowEvent(event);
}

/// The write commands that can be used, menu items first.
inline std::vector<std::string> UsableWrites(frmMain& window) {
    std::vector<std::string> names;
    const auto add = [&](bool isUsable, const char* name) {
        if (isUsable) names.emplace_back(name);
    };
    const MainMenu& menu = window.Menu();
    add(menu.mnuWriteDB->IsEnabled(), "mnuWriteDB");
    add(menu.mnuWriteINI->IsEnabled(), "mnuWriteINI");
    add(menu.mnuWriteDDInstall->IsEnabled(), "mnuWriteDDInstall");
    const MainControls& controls = window.Controls();
    add(controls.cmdWriteDB->IsEnabled(), "cmdWriteDB");
    add(controls.cmdWriteINI->IsEnabled(), "cmdWriteINI");
    add(controls.cmdWriteDDInstall->IsEnabled(), "cmdWriteDDInstall");
    return names;
}

}  // namespace ventlock::test
