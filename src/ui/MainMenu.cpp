#include "ui/MainMenu.h"

#include "ui/WxText.h"

namespace ventlock {
namespace {

wxMenuItem* Add(wxMenu& menu, const char* caption) {
    return menu.Append(wxID_ANY, caption);
}

}  // namespace

MainMenu::MainMenu()
    : bar(new wxMenuBar),
      mnuFile(new wxMenu),
      mnuSelectDDInstall(Add(*mnuFile, "S&elect DDInstall...")),
      mnuSelectINI(Add(*mnuFile, "Select I&NI...")),
      mnuFileSep1(mnuFile->AppendSeparator()),
      mnuWriteDB(Add(*mnuFile, "Write to &Database")),
      mnuWriteINI(Add(*mnuFile, "Write to &INI")),
      mnuWriteDDInstall(Add(*mnuFile, "Write to DDInstal&l")),
      mnuFileSep2(mnuFile->AppendSeparator()),
      mnuExit(Add(*mnuFile, "E&xit")),
      mnuEdit(new wxMenu),
      mnuCut(Add(*mnuEdit, "Cu&t\tCtrl+X")),
      mnuCopy(Add(*mnuEdit, "&Copy\tCtrl+C")),
      mnuPaste(Add(*mnuEdit, "&Paste\tCtrl+V")),
      mnuEditSep1(mnuEdit->AppendSeparator()),
      mnuClear(Add(*mnuEdit, "C&lear Entries")),
      mnuHelp(new wxMenu),
      mnuHelpContents(Add(*mnuHelp, "&Contents...")),
      mnuHelpSearch(Add(*mnuHelp, "&Search for Help on...")),
      mnuHelpSep1(mnuHelp->AppendSeparator()),
      mnuHelpAbout(Add(*mnuHelp, "&About...")),
      mnuTools(new wxMenu),
      mnuOpenEntry(Add(*mnuTools, "&Open Entry...\tCtrl+O")),
      mnuSaveEntry(Add(*mnuTools, "&Save Entry As...\tCtrl+S")),
      mnuToolsSep1(mnuTools->AppendSeparator()),
      mnuPreview(Add(*mnuTools, "&Preview...\tCtrl+P")),
      mnuLog(Add(*mnuTools, "&Log Entries")) {
    bar->Append(mnuFile, "&File");
    bar->Append(mnuEdit, "&Edit");
    bar->Append(mnuHelp, "&Help");
    bar->Append(mnuTools, "&Tools");
    for (wxMenuItem* item : {mnuWriteDB, mnuWriteINI, mnuWriteDDInstall}) item->Enable(false);
}

std::string MainMenu::TitleOf(const wxMenuItem& item) {
    wxString title = item.GetItemLabelText();
    title.Replace("...", "");
    return FromWx(title);
}

void MainMenu::SetCaption(wxMenuItem& item, const std::string& caption) {
    const wxString shortcut = item.GetItemLabel().AfterFirst('\t');
    const wxString text =
        caption.empty() ? wxString(" ") : ToWx(caption);  // the toolkit refuses an empty one
    item.SetItemLabel(shortcut.empty() ? text : text + '\t' + shortcut);
}

}  // namespace ventlock
