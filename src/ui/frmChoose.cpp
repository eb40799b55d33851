#include "ui/frmChoose.h"

#include <wx/sizer.h>

#include "core/modLocalization.h"
#include "ui/AccessibleText.h"
#include "ui/WxText.h"

namespace ventlock {
namespace {

wxArrayString AllToWx(const std::vector<std::string>& texts) {
    wxArrayString all;
    for (const std::string& text : texts) all.push_back(ToWx(text));
    return all;
}

}  // namespace

frmChoose::frmChoose(wxWindow* parent, const std::string& title, const std::string& question,
                     const std::vector<std::string>& names)
    : wxDialog(parent, wxID_ANY, ToWx(title), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      lblQuestion(new wxStaticText(this, wxID_ANY, ToWx(question))),
      lstNames(new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(360, 200)), AllToWx(names),
                             wxLB_SINGLE)),
      cmdOpen(new wxButton(this, wxID_OK, ToWx(GetString("IDS_CMD_OPEN")))),
      cmdCancel(new wxButton(this, wxID_CANCEL, ToWx(GetString("IDS_CMD_CANCEL")))) {
    SetAccessibleName(*lstNames, question);
    lstNames->SetSelection(0);
    lstNames->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { EndModal(wxID_OK); });
    cmdOpen->SetDefault();
    Arrange();
    lstNames->SetFocus();
}

std::optional<std::size_t> frmChoose::Ask() {
    if (ShowModal() != wxID_OK || lstNames->GetSelection() == wxNOT_FOUND) return std::nullopt;
    return static_cast<std::size_t>(lstNames->GetSelection());
}

void frmChoose::Arrange() {
    const int gap = FromDIP(10);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->AddStretchSpacer();
    buttons->Add(cmdOpen, 0, wxRIGHT, gap);
    buttons->Add(cmdCancel);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(lblQuestion, 0, wxALL, gap);
    rows->Add(lstNames, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
    rows->Add(buttons, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(rows);
    CentreOnParent();
}

}  // namespace ventlock
