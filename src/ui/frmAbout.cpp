#include "ui/frmAbout.h"

#include <wx/sizer.h>

#include <string>

#include "core/SystemInformation.h"
#include "core/modCommonTools.h"
#include "ui/ProgramIcon.h"
#include "ui/WindowBounds.h"
#include "ui/WxText.h"

namespace ventlock {
namespace {

constexpr int kTextWidth = 360;  // of the long texts, in pixels of a display without scaling

wxStaticText* NewText(wxWindow* parent, const char* text) {
    return new wxStaticText(parent, wxID_ANY, text);
}

}  // namespace

frmAbout::frmAbout(wxWindow* parent, Host& host, IMessageBox& messages)
    : wxDialog(parent, wxID_ANY, "About Ventlock"),
      picIcon(new wxStaticBitmap(this, wxID_ANY, ProgramPicture())),
      lblTitle(NewText(this, "Ventlock")),
      lblVersion(NewText(this, "Version 1.0.1")),
      lblDescription(NewText(
          this, "Registers field devices with a TAV installation, for the developers of their resources.")),
      Line1{new wxStaticLine(this), new wxStaticLine(this)},
      lblDisclaimer(NewText(this,
                            "This tool comes without any warranty. Whoever writes to a database or to the "
                            "files of a station with it does so at his own risk.")),
      Label1(NewText(this, "Keep a copy of the database before entries are written to it.")),
      cmdOK(new wxButton(this, wxID_OK, "OK")),
      cmdSysInfo(new wxButton(this, wxID_ANY, "&System Info...")),
      host_(host),
      messages_(messages) {
    cmdOK->SetDefault();
    SetEscapeId(wxID_OK);
    cmdSysInfo->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { cmdSysInfo_Click(); });
    Form_Load();
    Arrange();
    if (parent == nullptr) return;
    WindowBounds bounds(*this);
    CenterForm(bounds, WindowBounds(*parent));
}

void frmAbout::Form_Load() {
    IAppInfo& info = host_.AppInfo();
    SetTitle(ToWx("About " + info.Title()));
    lblTitle->SetLabelText(ToWx(info.Title()));
    lblVersion->SetLabelText(ToWx("Version " + std::to_string(info.Major()) + "." +
                                  std::to_string(info.Minor()) + "." + std::to_string(info.Revision())));
}

void frmAbout::Arrange() {
    const int gap = FromDIP(10);
    for (wxStaticText* text : {lblDescription, lblDisclaimer, Label1}) text->Wrap(FromDIP(kTextWidth));
    lblTitle->SetFont(lblTitle->GetFont().Bold().Larger());

    auto* names = new wxBoxSizer(wxVERTICAL);
    names->Add(lblTitle);
    names->Add(lblVersion, 0, wxTOP, gap / 2);
    auto* head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(picIcon, 0, wxRIGHT, gap);
    head->Add(names);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->AddStretchSpacer();
    buttons->Add(cmdOK, 0, wxRIGHT, gap);
    buttons->Add(cmdSysInfo);

    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(head, 0, wxALL, gap);
    rows->Add(lblDescription, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
    rows->Add(Line1[0], 0, wxEXPAND | wxLEFT | wxRIGHT, gap);
    rows->Add(lblDisclaimer, 0, wxALL, gap);
    rows->Add(Label1, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
    rows->Add(Line1[1], 0, wxEXPAND | wxLEFT | wxRIGHT, gap);
    rows->Add(buttons, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(rows);
}

void frmAbout::cmdSysInfo_Click() {
    if (StartSysInfo(host_.Registry(), host_.Files(), host_.Processes(), host_.Paths())) return;
    messages_.Show(std::string(kSystemInformationUnavailable), host_.AppInfo().Title(), {});
}

}  // namespace ventlock
