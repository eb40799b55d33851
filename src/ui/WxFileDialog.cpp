#include "ui/WxFileDialog.h"

#include <wx/app.h>
#include <wx/filedlg.h>
#include <wx/filename.h>

#include "ui/WxText.h"

namespace ventlock {

std::string WxFileDialog::Open(const FileQuestion& question) {
    // The Open dialog of one port refuses missing files by itself; where a new file may be named, the Save
    // dialog asks for it.
    const bool mustExist = (question.flags & kFileMustExist) != 0;
    const bool isAsked = (question.flags & kAskBeforeReplacing) != 0;
    const long style = mustExist ? wxFD_OPEN | wxFD_FILE_MUST_EXIST
                       : isAsked ? wxFD_SAVE | wxFD_OVERWRITE_PROMPT
                                 : wxFD_SAVE;
    const wxFileName start(ToWx(question.start));
    const bool isUsable = start.IsOk() && start.IsAbsolute() && start.DirExists();
    wxFileDialog dialog(wxTheApp->GetTopWindow(), ToWx(question.title),
                        isUsable ? start.GetPath() : wxString(), isUsable ? start.GetFullName() : wxString(),
                        ToWx(question.filters), style);
    dialog.SetFilterIndex(question.preselected - 1);
    return dialog.ShowModal() == wxID_OK ? FromWx(dialog.GetPath()) : std::string();
}

}  // namespace ventlock
