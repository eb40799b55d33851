#include "limits/BareWindow.h"

#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace ventlock::bench {
namespace {

constexpr int kTabs = 4;
constexpr int kFields = 8;
constexpr int kGap = 6;

/// Gives the tab's first field.
wxTextCtrl* AddTab(wxNotebook& tabs, const wxString& caption) {
    auto* panel = new wxPanel(&tabs);
    const int gap = panel->FromDIP(kGap);
    auto* grid = new wxFlexGridSizer(2, gap, gap);
    wxTextCtrl* first = nullptr;
    for (int number = 1; number <= kFields; ++number) {
        grid->Add(new wxStaticText(panel, wxID_ANY, wxString::Format("Field %d:", number)), 0,
                  wxALIGN_CENTER_VERTICAL);
        auto* field = new wxTextCtrl(panel, wxID_ANY);
        grid->Add(field);
        if (first == nullptr) first = field;
    }
    panel->SetSizer(grid);
    tabs.AddPage(panel, caption);
    return first;
}

}  // namespace

BareWindow::BareWindow() : wxFrame(nullptr, wxID_ANY, "Bare window") {
    auto* tabs = new wxNotebook(this, wxID_ANY);
    for (int tab = 1; tab <= kTabs; ++tab) {
        wxTextCtrl* const first = AddTab(*tabs, wxString::Format("Tab %d", tab));
        if (firstField_ == nullptr) firstField_ = first;
    }
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(tabs, 0, wxALL, FromDIP(kGap));
    SetSizerAndFit(rows);
}

}  // namespace ventlock::bench
