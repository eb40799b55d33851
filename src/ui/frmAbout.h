#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/statbmp.h>
#include <wx/statline.h>
#include <wx/stattext.h>

#include <array>

#include "platform/Host.h"
#include "platform/IMessageBox.h"

namespace ventlock {

/// The About box: title, version and notices, and a button that starts the system's information viewer. Shown
/// modally; Enter and Esc close it.
class frmAbout final : public wxDialog {
 public:
    /// `host` and `messages` must outlive the box.
    frmAbout(wxWindow* parent, Host& host, IMessageBox& messages);

    /// Starts the viewer, or tells that there is none.
    void cmdSysInfo_Click();

    wxStaticBitmap* picIcon;
    wxStaticText* lblTitle;
    wxStaticText* lblVersion;
    wxStaticText* lblDescription;
    std::array<wxStaticLine*, 2> Line1;
    wxStaticText* lblDisclaimer;
    wxStaticText* Label1;
    wxButton* cmdOK;
    wxButton* cmdSysInfo;

 private:
    void Form_Load();
    void Arrange();

    Host& host_;
    IMessageBox& messages_;
};

}  // namespace ventlock
