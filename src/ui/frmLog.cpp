#include "ui/frmLog.h"

#include <wx/panel.h>
#include <wx/sizer.h>

#include <array>
#include <cstdio>

#include "base/Numbers.h"
#include "core/Guarded.h"
#include "core/LogHistory.h"
#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "core/modLocalization.h"
#include "ui/AccessibleText.h"
#include "ui/ProgramIcon.h"
#include "ui/WxText.h"

namespace ventlock {
namespace {

constexpr int kColumns = 80;
constexpr int kRows = 16;

/// "14:03:27  text" and a line end; further lines stand below the text.
wxString LineOf(const LogHistory::Entry& entry) {
    std::array<char, 32> time{};
    std::snprintf(time.data(), time.size(), "%02d:%02d:%02d  ", entry.time.hour, entry.time.minute,
                  entry.time.second);
    wxString text = ToWx(entry.text);
    text.Replace("\r\n", "\n");
    text.Replace("\r", "\n");
    text.Replace("\n", "\n          ");
    return time.data() + text + "\n";
}

}  // namespace

frmLog::frmLog(wxWindow* parent, const AppObjects& oAppObjects, IClipboard& clipboard)
    : wxFrame(parent, wxID_ANY, ToWx(GetString("IDS_LOG_TITLE")), wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE, "frmLog"),
      oAppObjects_(oAppObjects),
      clipboard_(clipboard),
      place_(*this) {
    SetIcons(ProgramIcons());
    Arrange();
    ShowEntries();
    oAppObjects_.Get<clsLog>(kLogKey).History().Follow([this] { ShowLastEntry(); });
    cmdCopyAll->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { cmdCopyAll_Click(); });
    cmdClose->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
    Bind(wxEVT_CHAR_HOOK, &frmLog::TakeKey, this);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
        StorePlace();
        event.Skip();  // the toolkit takes the window away
    });
    ShowStoredPlace();
    txtEntries->SetFocus();
}

frmLog::~frmLog() {
    if (oAppObjects_.Contains(kLogKey)) oAppObjects_.Get<clsLog>(kLogKey).History().Follow({});
}

void frmLog::Arrange() {
    auto* contents = new wxPanel(this);
    const int gap = FromDIP(6);
    txtEntries =
        new wxTextCtrl(contents, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                       wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP, wxDefaultValidator, "txtEntries");
    txtEntries->SetMinSize(
        wxSize(kColumns * txtEntries->GetCharWidth(), kRows * txtEntries->GetCharHeight()));
    SetAccessibleName(*txtEntries, FromWx(GetTitle()));
    const auto button = [&](const char* name, const char* key) {
        return new wxButton(contents, wxID_ANY, ToWx(GetString(key)), wxDefaultPosition, wxDefaultSize, 0,
                            wxDefaultValidator, name);
    };
    cmdCopyAll = button("cmdCopyAll", "IDS_CMD_COPY_ALL");
    cmdClose = button("cmdCloseLog", "IDS_CMD_CLOSE");
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(cmdCopyAll, 0, wxRIGHT, gap);
    buttons->Add(cmdClose);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(txtEntries, 1, wxEXPAND | wxALL, gap);
    rows->Add(buttons, 0, wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, gap);
    contents->SetSizer(rows);
    SetClientSize(rows->GetMinSize());
    SetMinClientSize(rows->GetMinSize() / 2);
}

// Before any place is stored the window stands in the middle of the main window.
void frmLog::ShowStoredPlace() {
    Guarded(&oAppObjects_, "fLssp", [&](StepLabel&) {
        auto& settings = oAppObjects_.Get<clsSettings>(kSettingsKey);
        const std::string left = settings.LateText(*FindLateSetting(kLogWindowLeft));
        const std::string top = settings.LateText(*FindLateSetting(kLogWindowTop));
        if (left.empty() || top.empty()) {
            CentreOnParent();
        } else {
            place_.Move(ToInteger(NumericValue(left)), ToInteger(NumericValue(top)));
        }
    });
}

// A refusal is not reported, as with the main window's place.
void frmLog::StorePlace() {
    Guarded(&oAppObjects_, "fLsp", [&](StepLabel&) {
        auto& settings = oAppObjects_.Get<clsSettings>(kSettingsKey);
        settings.StoreLate(*FindLateSetting(kLogWindowLeft), std::to_string(place_.Left()));
        settings.StoreLate(*FindLateSetting(kLogWindowTop), std::to_string(place_.Top()));
    });
}

void frmLog::ShowEntries() {
    wxString text;
    for (const LogHistory::Entry& entry : oAppObjects_.Get<clsLog>(kLogKey).History().Entries())
        text += LineOf(entry);
    txtEntries->ChangeValue(text);
    txtEntries->SetInsertionPointEnd();
    txtEntries->ShowPosition(txtEntries->GetLastPosition());
}

void frmLog::ShowLastEntry() {
    const auto& entries = oAppObjects_.Get<clsLog>(kLogKey).History().Entries();
    if (entries.size() == LogHistory::kMost) return ShowEntries();  // the oldest one may have gone
    long begin = 0;
    long end = 0;
    txtEntries->GetSelection(&begin, &end);
    txtEntries->AppendText(LineOf(entries.back()));
    if (begin != end) txtEntries->SetSelection(begin, end);
}

// As in the main window: each port of the toolkit gives these keys to a text field first.
void frmLog::TakeKey(wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C') {
        CopySelection();
    } else if (event.GetModifiers() == wxMOD_NONE && event.GetKeyCode() == WXK_ESCAPE) {
        Close();
    } else {
        event.Skip();
    }
}

void frmLog::CopySelection() {
    CopyText(txtEntries->GetStringSelection());
}

void frmLog::cmdCopyAll_Click() {
    CopyText(txtEntries->GetValue());
}

void frmLog::CopyText(const wxString& text) {
    Guarded(&oAppObjects_, "fLcp", [&](StepLabel&) {
        if (!text.empty()) clipboard_.SetText(FromWx(text));
    });
}

}  // namespace ventlock
