#pragma once

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/textctrl.h>

#include <functional>
#include <string>

#include "core/AppObjects.h"
#include "ui/FramePlace.h"
#include "ui/IClipboard.h"

namespace ventlock {

/// The log's last entries in a window of their own, which new ones are added to as they come. It stays open
/// beside the main window; Esc closes it. Its place comes from the settings store and goes there when it is
/// closed.
class frmLog final : public wxFrame {
 public:
    /// `oAppObjects`, with log and settings in it, and `clipboard` must outlive the window.
    frmLog(wxWindow* parent, const AppObjects& oAppObjects, IClipboard& clipboard);
    ~frmLog() override;
    frmLog(const frmLog&) = delete;
    frmLog& operator=(const frmLog&) = delete;

    /// Copies what is selected; nothing without a selection.
    void CopySelection();

    /// Copies all entries.
    void cmdCopyAll_Click();

    wxTextCtrl* txtEntries;
    wxButton* cmdCopyAll;
    wxButton* cmdClose;

 private:
    void Arrange();
    void ShowStoredPlace();
    void StorePlace();
    void ShowEntries();
    void ShowLastEntry();
    void TakeKey(wxKeyEvent& event);
    void CopyText(const wxString& text);

    const AppObjects& oAppObjects_;
    IClipboard& clipboard_;
    FramePlace place_;
};

}  // namespace ventlock
