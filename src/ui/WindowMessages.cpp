#include "ui/WindowMessages.h"

#include <wx/app.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

#include "ui/WxText.h"

namespace ventlock {

void WindowMessages::Show(const std::string& text, const std::string& title,
                          const std::optional<MessageHelp>& help) {
    const wxBusyCursorSuspender suspended;
    wxWindow* parent = wxTheApp->GetTopWindow();
    if (parent != nullptr && !parent->IsShown()) parent = nullptr;
    wxMessageDialog box(parent, ToWx(text), ToWx(title.empty() ? appInfo_.Title() : title),
                        wxOK | (help ? wxHELP : 0));
    while (box.ShowModal() == wxID_HELP) help_.Show(help->file, kHelpContents);
}

}  // namespace ventlock
