#include "ui/frmPreview.h"

#include <wx/sizer.h>

#include <utility>

#include "core/modLocalization.h"
#include "ui/AccessibleText.h"
#include "ui/Busy.h"
#include "ui/WxText.h"

namespace ventlock {

frmPreview::frmPreview(wxWindow* parent, const std::string& title, const Texts& tabs,
                       std::function<void(const std::string&)> copy)
    : wxDialog(parent, wxID_ANY, ToWx(title), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      nbkTargets(new wxNotebook(this, wxID_ANY)),
      cmdCopy(new wxButton(this, wxID_ANY, ToWx(GetString("IDS_MNU_EDIT_COPY")))),
      cmdClose(new wxButton(this, wxID_CANCEL, ToWx(GetString("IDS_CMD_CANCEL")))) {
    cmdCopy->Bind(wxEVT_BUTTON, [this, copy = std::move(copy)](wxCommandEvent&) {
        copy(FromWx(txtTargets.at(static_cast<std::size_t>(nbkTargets->GetSelection()))->GetValue()));
    });
    cmdCopy->Disable();
    // The toolkit hands Esc and the close button of the frame on as a press of this one.
    cmdClose->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Leave(); });
    Bind(wxEVT_CHAR_HOOK, &frmPreview::TurnPage, this);
    Arrange(tabs);
}

void frmPreview::Arrange(const Texts& tabs) {
    const wxFont font = wxFont(wxFontInfo(GetFont().GetPointSize()).Family(wxFONTFAMILY_TELETYPE));
    for (std::size_t i = 0; i < kTabCount; ++i) {
        auto* text =
            new wxTextCtrl(nbkTargets, wxID_ANY, ToWx(GetString("IDS_STA_BUSY")), wxDefaultPosition,
                           FromDIP(wxSize(700, 420)), wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
        text->SetFont(font);
        SetAccessibleName(*text, FromWx(GetTitle()) + ": " + tabs[i]);
        nbkTargets->AddPage(text, ToWx(tabs[i]));
        txtTargets[i] = text;
    }
    const int gap = FromDIP(10);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->AddStretchSpacer();
    buttons->Add(cmdCopy, 0, wxRIGHT, gap);
    buttons->Add(cmdClose);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(nbkTargets, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
    rows->Add(buttons, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(rows);
    SetMinSize(FromDIP(wxSize(300, 200)));
    CentreOnParent();
}

/// The keys of the main window; a text takes them for itself.
void frmPreview::TurnPage(wxKeyEvent& event) {
    const int key = event.GetModifiers() == wxMOD_CONTROL ? event.GetKeyCode() : WXK_NONE;
    if (key != WXK_PAGEDOWN && key != WXK_PAGEUP) return event.Skip();
    nbkTargets->AdvanceSelection(key == WXK_PAGEDOWN);
    nbkTargets->GetCurrentPage()->SetFocus();
}

void frmPreview::Run(const std::function<Texts()>& work) {
    CallAfter([this, work] { Work(work); });
    ShowModal();
    if (error_) std::rethrow_exception(error_);
}

void frmPreview::Work(const std::function<Texts()>& work) {
    Texts texts;
    try {
        const Busy working(isWorking_);
        texts = work();
    } catch (...) {  // it would end in the toolkit's loop
        error_ = std::current_exception();
    }
    if (isGivenUp_ || error_) return EndModal(wxID_CANCEL);
    for (std::size_t i = 0; i < kTabCount; ++i) {
        txtTargets[i]->ChangeValue(ToWx(texts[i]));
        txtTargets[i]->SetInsertionPoint(0);
    }
    nbkTargets->GetCurrentPage()->SetFocus();
    cmdCopy->Enable();
    cmdClose->SetLabel(ToWx(GetString("IDS_CMD_CLOSE")));
    Layout();
}

/// The work is left alone until it sees that nobody waits for it.
void frmPreview::Leave() {
    if (!isWorking_) return EndModal(wxID_CANCEL);
    isGivenUp_ = true;
    cmdClose->Disable();
}

}  // namespace ventlock
