#include <wx/app.h>
#include <wx/frame.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace {

/// A window with four tabs of eight fields, empty and without any rules.
class BareWindow final : public wxFrame {
 public:
    BareWindow() : wxFrame(nullptr, wxID_ANY, "Bare window") {
        auto* tabs = new wxNotebook(this, wxID_ANY);
        for (int tab = 1; tab <= 4; ++tab) AddTab(*tabs, wxString::Format("Tab %d", tab));
        auto* rows = new wxBoxSizer(wxVERTICAL);
        rows->Add(tabs, 0, wxALL, FromDIP(6));
        SetSizerAndFit(rows);
    }

 private:
    static void AddTab(wxNotebook& tabs, const wxString& caption) {
        auto* panel = new wxPanel(&tabs);
        const int gap = panel->FromDIP(6);
        auto* grid = new wxFlexGridSizer(2, gap, gap);
        for (int field = 1; field <= 8; ++field) {
            grid->Add(new wxStaticText(panel, wxID_ANY, wxString::Format("Field %d:", field)), 0,
                      wxALIGN_CENTER_VERTICAL);
            grid->Add(new wxTextCtrl(panel, wxID_ANY));
        }
        panel->SetSizer(grid);
        tabs.AddPage(panel, caption);
    }
};

class BareApp final : public wxApp {
 public:
    bool OnInit() override { return (new BareWindow)->Show(); }
};

}  // namespace

/// The least that a window of four tabs costs with this toolkit.
wxIMPLEMENT_APP(BareApp);
