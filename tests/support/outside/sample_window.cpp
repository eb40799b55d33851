// A window with one of each control that the tests drive from outside, for testing the harness itself.
#include <wx/filedlg.h>
#include <wx/notebook.h>
#include <wx/wx.h>

namespace {

class SampleFrame final : public wxFrame {
 public:
    SampleFrame() : wxFrame(nullptr, wxID_ANY, "Sample window", wxPoint(40, 40), wxSize(560, 440)) {
        MakeMenu();
        auto* const book = new wxNotebook(this, wxID_ANY);
        book->AddPage(MakeTextPage(book), "Texts");
        book->AddPage(MakeListPage(book), "Lists");
        name_->SetFocus();
    }

 private:
    void MakeMenu() {
        auto* const file = new wxMenu;
        const int select = file->Append(wxID_ANY, "&Select...\tCtrl+O")->GetId();
        file->Append(wxID_EXIT, "E&xit");
        auto* const bar = new wxMenuBar;
        bar->Append(file, "&File");
        SetMenuBar(bar);
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { SelectFile(); }, select);
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
    }

    // The toolkit ties a label to the field that is made next.
    template <typename Field, typename... Arguments>
    static Field* Add(wxWindow* page, const wxString& label, Arguments&&... arguments) {
        wxSizer& rows = *page->GetSizer();
        rows.Add(new wxStaticText(page, wxID_ANY, label));
        auto* const field = new Field(page, wxID_ANY, std::forward<Arguments>(arguments)...);
        rows.Add(field, wxSizerFlags().Expand());
        return field;
    }

    wxWindow* MakeTextPage(wxWindow* book) {
        auto* const page = new wxPanel(book);
        page->SetSizer(new wxBoxSizer(wxVERTICAL));
        name_ = Add<wxTextCtrl>(page, "&Name:", "");
        file_ = Add<wxTextCtrl>(page, "File:", "");
        Add<wxTextCtrl>(page, "Code:")->Bind(wxEVT_CHAR, [](wxKeyEvent& key) {
            const int code = key.GetKeyCode();
            key.Skip(!(code > WXK_SPACE && code < WXK_DELETE && !wxIsdigit(static_cast<wchar_t>(code))));
        });
        Add<wxTextCtrl>(page, "Locked:", "as it is")->Disable();
        auto* const source = Add<wxComboBox>(page, "Source:", "PYX");
        source->Append("PYX");
        source->Append("Other");
        auto* const greet = new wxButton(page, wxID_ANY, "&Greet");
        greet->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Greet(); });
        page->GetSizer()->Add(greet);
        return page;
    }

    wxWindow* MakeListPage(wxWindow* book) {
        auto* const page = new wxPanel(book);
        page->SetSizer(new wxBoxSizer(wxVERTICAL));
        auto* const protocol = Add<wxChoice>(page, "Protocol:");
        protocol->Append("HART");
        protocol->Append("Fieldbus");
        protocol->SetSelection(0);
        auto* const versions =
            Add<wxListBox>(page, "Versions:", wxDefaultPosition, wxDefaultSize, 0, nullptr, wxLB_MULTIPLE);
        for (const char* const version : {"5.0", "6.0", "7.0"}) versions->Append(version);
        versions->SetSelection(1);
        return page;
    }

    void SelectFile() {
        wxFileDialog dialog(this, "Select a file", "", "", "*", wxFD_OPEN);
        if (dialog.ShowModal() == wxID_OK) file_->SetValue(dialog.GetPath());
    }

    void Greet() {
        wxMessageBox("Hello, " + name_->GetValue() + "!", "Greeting", wxOK | wxICON_INFORMATION, this);
    }

    wxTextCtrl* name_ = nullptr;
    wxTextCtrl* file_ = nullptr;
};

class SampleApp final : public wxApp {
 public:
    bool OnInit() override {
        (new SampleFrame)->Show();
        return true;
    }
};

}  // namespace

wxIMPLEMENT_APP(SampleApp);
