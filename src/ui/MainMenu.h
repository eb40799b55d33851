#pragma once

#include <wx/menu.h>

#include <string>

namespace ventlock {

/// The menus of the main window with the captions they are born with; the three write items are disabled. The
/// toolkit's objects belong to the menu bar, the menu bar to the window it is attached to.
class MainMenu {
 public:
    MainMenu();

    /// An item's caption as a dialog's title.
    static std::string TitleOf(const wxMenuItem& item);

    /// Gives an item a caption and keeps its shortcut, which the toolkit holds inside the caption.
    static void SetCaption(wxMenuItem& item, const std::string& caption);

    wxMenuBar* bar;
    wxMenu* mnuFile;
    wxMenuItem* mnuSelectDDInstall;
    wxMenuItem* mnuSelectINI;
    wxMenuItem* mnuFileSep1;
    wxMenuItem* mnuWriteDB;
    wxMenuItem* mnuWriteINI;
    wxMenuItem* mnuWriteDDInstall;
    wxMenuItem* mnuFileSep2;
    wxMenuItem* mnuExit;
    wxMenu* mnuEdit;
    wxMenuItem* mnuCut;
    wxMenuItem* mnuCopy;
    wxMenuItem* mnuPaste;
    wxMenuItem* mnuEditSep1;
    wxMenuItem* mnuClear;
    wxMenu* mnuHelp;
    wxMenuItem* mnuHelpContents;
    wxMenuItem* mnuHelpSearch;
    wxMenuItem* mnuHelpSep1;
    wxMenuItem* mnuHelpAbout;
    wxMenu* mnuTools;
    wxMenuItem* mnuOpenEntry;
    wxMenuItem* mnuSaveEntry;
    wxMenuItem* mnuToolsSep1;
    wxMenuItem* mnuPreview;
    wxMenuItem* mnuLog;
};

}  // namespace ventlock
