#include "ui/WindowMessages.h"

#include <wx/app.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

#include "ui/WxText.h"

namespace ventlock {
namespace {

/// The ordinary cursor while it lives, whatever is going on. The toolkit's own class for it lacks half of its
/// functions on one port.
class CursorAtRest {
 public:
    CursorAtRest() {
        for (; wxIsBusy(); ++times_) wxEndBusyCursor();
    }
    ~CursorAtRest() {
        for (; times_ > 0; --times_) wxBeginBusyCursor();
    }
    CursorAtRest(const CursorAtRest&) = delete;
    CursorAtRest& operator=(const CursorAtRest&) = delete;

 private:
    int times_ = 0;
};

}  // namespace

void WindowMessages::Show(const std::string& text, const std::string& title,
                          const std::optional<MessageHelp>& help) {
    const CursorAtRest cursor;
    wxWindow* parent = wxTheApp->GetTopWindow();
    if (parent != nullptr && !parent->IsShown()) parent = nullptr;
    wxMessageDialog box(parent, ToWx(text), ToWx(title.empty() ? appInfo_.Title() : title),
                        wxOK | (help ? wxHELP : 0));
    while (box.ShowModal() == wxID_HELP) help_.Show(help->file, kHelpContents);
}

}  // namespace ventlock
