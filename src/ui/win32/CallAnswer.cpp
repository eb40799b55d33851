#include "ui/CallAnswer.h"

#include <wx/app.h>
#include <wx/msgdlg.h>

#include "ui/WxText.h"

namespace ventlock {

bool TellAnswer(const std::string& text) {
    wxMessageBox(ToWx(text), wxTheApp->GetAppDisplayName(), wxOK | wxICON_INFORMATION);
    return true;
}

}  // namespace ventlock
