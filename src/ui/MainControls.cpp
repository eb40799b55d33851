#include "ui/MainControls.h"

#include <wx/panel.h>
#include <wx/settings.h>

#include <string>

#include "entry/KeyFilter.h"
#include "ui/KeyPress.h"
#include "ui/WxText.h"

namespace ventlock {
namespace {

constexpr int kTextColumns = 42;  // of the text boxes, in digits
constexpr int kVersionRows = 4;

int Gap(const wxWindow& window) {
    return window.FromDIP(6);
}

wxButton* NewButton(wxWindow& parent, const char* name, const wxString& caption, const char* toolTip,
                    long style = 0) {
    auto* button = new wxButton(&parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, style,
                                wxDefaultValidator, name);
    button->SetToolTip(toolTip);
    return button;
}

}  // namespace

// One tab: rows of a label, its field and sometimes a button. A label is made directly before its field; that
// is how the toolkit tells screen readers which field it names.
class MainControls::Page {
 public:
    Page(MainControls& controls, const char* caption)
        : controls_(controls), panel_(new wxPanel(controls.sstVentlock)) {
        const int gap = Gap(*panel_);
        grid_ = new wxFlexGridSizer(3, gap, gap);
        auto* margin = new wxBoxSizer(wxVERTICAL);
        margin->Add(grid_, 0, wxALL, 2 * gap);
        panel_->SetSizer(margin);
        controls_.sstVentlock->AddPage(panel_, caption);
    }

    void Text(std::size_t box, std::size_t label, const char* caption, const char* toolTip,
              const FieldHandlers& handlers) {
        Label(label, caption);
        auto* text = new wxTextCtrl(panel_, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                                    box == kDataSourceBox ? wxTE_PROCESS_ENTER : 0, wxDefaultValidator,
                                    "txtMain(" + std::to_string(box) + ")");
        text->SetInitialSize(text->GetSizeFromTextSize(text->GetTextExtent(wxString('0', kTextColumns)).x));
        if (HasKeyFilter(box)) FilterTyping(*text, *text);
        controls_.txtMain[box] =
            std::make_unique<TextField>(*text, [box, change = handlers.txtMain_Change] { change(box); });
        Field(*text, toolTip);
    }

    std::unique_ptr<EditableList> Editable(const char* name, std::size_t label, const char* caption,
                                           const char* toolTip, const std::function<void()>& onChange) {
        Label(label, caption);
        auto* box = new wxComboBox(panel_, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, 0,
                                   nullptr, 0, wxDefaultValidator, name);
        auto list = std::make_unique<EditableList>(*box, onChange);
        Field(*box, toolTip);
        return list;
    }

    std::unique_ptr<FixedList> Fixed(const char* name, std::size_t label, const char* caption,
                                     const char* toolTip, const std::function<void()>& onClick) {
        Label(label, caption);
        auto* box = new wxChoice(panel_, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr, 0,
                                 wxDefaultValidator, name);
        auto list = std::make_unique<FixedList>(*box, onClick);
        Field(*box, toolTip);
        return list;
    }

    std::unique_ptr<VersionField> Versions(const char* name, std::size_t label, const char* caption,
                                           const char* toolTip, const std::function<void()>& onClick) {
        Label(label, caption, wxALIGN_TOP);
        auto* box = new wxListBox(panel_, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                  wxLB_MULTIPLE, wxDefaultValidator, name);
        box->SetMinSize(wxSize(-1, kVersionRows * (box->GetCharHeight() + Gap(*box))));
        auto list = std::make_unique<VersionField>(*box, onClick);
        Field(*box, toolTip);
        return list;
    }

    /// Behind the field of the same row.
    wxButton* Button(const char* name, const char* caption, const char* toolTip, long style = 0) {
        wxButton* button = NewButton(*panel_, name, caption, toolTip, style);
        grid_->Detach(static_cast<int>(grid_->GetItemCount()) - 1);  // the row's empty last cell
        grid_->Add(button, 0, wxALIGN_CENTER_VERTICAL);
        return button;
    }

    /// At the end of the text box of the same row, which gives its room.
    std::unique_ptr<DropList> List(std::size_t box, const char* name, const char* toolTip,
                                   const FieldHandlers& handlers) {
        constexpr wxChar kArrow = L'\u25BE';
        wxTextCtrl& text = controls_.txtMain[box]->Box();
        wxButton* button = NewButton(*panel_, name, wxString(kArrow), toolTip, wxBU_EXACTFIT);
        text.SetMinSize(text.GetMinSize() - wxSize(button->GetBestSize().x, 0));
        auto* cell = new wxBoxSizer(wxHORIZONTAL);
        const std::size_t place = grid_->GetItemCount() - 2;  // before the row's empty last cell
        grid_->Detach(&text);
        cell->Add(&text, 1, wxALIGN_CENTER_VERTICAL);
        cell->Add(button, 0, wxEXPAND);
        grid_->Insert(place, cell, 0, wxEXPAND | wxALIGN_CENTER_VERTICAL);
        return std::make_unique<DropList>(text, *button, [box, drop = handlers.dropDown] { drop(box); });
    }

    /// Room for a text below the field of the last row.
    std::size_t RoomBelow() {
        for (int column = 0; column < grid_->GetCols(); ++column) grid_->AddSpacer(0);
        return grid_->GetItemCount() - 2;  // in the column of the fields
    }

    /// A text, empty at first, in such a room. To be made behind all fields and buttons, or the toolkit would
    /// take it for the label of the next one.
    wxStaticText* State(std::size_t room, const char* name) {
        auto* text = new wxStaticText(panel_, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                                      wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, name);
        text->SetMinSize(wxSize(0, text->GetCharHeight()));
        grid_->Remove(static_cast<int>(room));
        grid_->Insert(room, text, 0, wxEXPAND);
        return text;
    }

    /// In the column of the fields.
    void Note(std::size_t label, const char* caption) {
        grid_->AddSpacer(0);
        controls_.lblMain[label] = new wxStaticText(panel_, wxID_ANY, caption);
        grid_->Add(controls_.lblMain[label]);
        grid_->AddSpacer(0);
    }

 private:
    void Label(std::size_t index, const char* caption, int alignment = wxALIGN_CENTER_VERTICAL) {
        controls_.lblMain[index] = new wxStaticText(panel_, wxID_ANY, caption);
        grid_->Add(controls_.lblMain[index], 0, alignment);
    }

    void Field(wxWindow& field, const char* toolTip) {
        field.SetToolTip(toolTip);
        grid_->Add(&field, 0, wxEXPAND | wxALIGN_CENTER_VERTICAL);
        grid_->AddSpacer(0);
    }

    MainControls& controls_;
    wxPanel* panel_;
    wxFlexGridSizer* grid_;
};

MainControls::MainControls(wxWindow& parent, const FieldHandlers& handlers)
    : sstVentlock(new wxNotebook(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "sstVentlock")) {
    BuildGeneral(handlers);
    BuildManufacturer(handlers);
    BuildDevice(handlers);
    BuildRevision(handlers);

    const int gap = Gap(parent);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(sstVentlock, 0, wxALL, gap);
    rows->Add(BuildCommands(parent), 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
    // Behind everything that can be focused, or it would be taken for the label of what follows.
    lblStatus = new wxStaticText(&parent, wxID_ANY, wxEmptyString);
    rows->Add(lblStatus, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
    parent.SetSizer(rows);
}

void MainControls::BuildGeneral(const FieldHandlers& handlers) {
    Page page(*this, "General");
    page.Text(kDataSourceBox, 0, "Datasource:", "Current ODBC Datasource", handlers);
    lstDataSources = page.List(kDataSourceBox, "lstDataSources", "Known data sources", handlers);
    cmdSwitchDSN = page.Button("cmdSwitchDSN", "Switch", "Switch to selected ODBC datasource");
    page.Text(kDDInstallPathBox, 1, "DDInstall File:", "Current DDinstall file path", handlers);
    lstRecentDDInstall =
        page.List(kDDInstallPathBox, "lstRecentDDInstall", "DDInstall files written before", handlers);
    cmdSelectDDInstall = page.Button("cmdSelectDDInstall", "...", "Select DDInstall file", wxBU_EXACTFIT);
    const std::size_t belowDDInstall = page.RoomBelow();
    page.Text(kIniPathBox, 2, "PYX.ini Path:", "Current PYX.ini Path", handlers);
    lstRecentINI = page.List(kIniPathBox, "lstRecentINI", "PYX.ini files written before", handlers);
    cmdSelectINI = page.Button("cmdSelectINI", "...", "Select PYX.ini path", wxBU_EXACTFIT);
    const std::size_t belowINI = page.RoomBelow();
    lblDDInstallState = page.State(belowDDInstall, "lblDDInstallState");
    lblINIState = page.State(belowINI, "lblINIState");
}

void MainControls::BuildManufacturer(const FieldHandlers& handlers) {
    Page page(*this, "Manufacturer");
    page.Text(kManufacturerIdBox, 3, "ID (in hex):", "Manufacturer ID", handlers);
    page.Text(kManufacturerNameBox, 4, "Name:", "Manufacturer Name", handlers);
    page.Text(kManufacturerDescriptionBox, 5, "Description:", "Manufacturer Description", handlers);
    cboDeviceProtocol = page.Fixed("cboDeviceProtocol", 6, "Protocol:", "Device communication protocol",
                                   handlers.cboDeviceProtocol_Click);
    page.Note(20, "Only Conventional devices need major and minor categories");
}

void MainControls::BuildDevice(const FieldHandlers& handlers) {
    Page page(*this, "Device");
    page.Text(kDeviceIdBox, 7, "ID (in hex):", "Device ID", handlers);
    page.Text(kDeviceNameBox, 8, "Name:", "Device Name", handlers);
    page.Text(kDeviceDescriptionBox, 9, "Description:", "Device description", handlers);
    page.Text(kDllBox, 10, "Dev .DLL:", "Device resource file .DLL", handlers);
    page.Text(kTemplateBox, 11, "Dev .MRG:", "Device template .MRG file", handlers);
    page.Text(kDeviceHelpBox, 21, "Device Help:", "Device specific help file", handlers);
    page.Text(kBlockHelpBox, 22, "Block Help:", "Context-sensitive help file", handlers);
}

void MainControls::BuildRevision(const FieldHandlers& handlers) {
    Page page(*this, "Revision");
    cboDevRev = page.Editable("cboDevRev", 15, "Dev Rev:", "Device revision", handlers.cboDevRev_Change);
    cboDDRev = page.Editable("cboDDRev", 16, "DD Rev:", "DD revision", handlers.cboDDRev_Change);
    cboHARTRev =
        page.Editable("cboHARTRev", 17, "HART Rev:", "HART protocol revision", handlers.cboHARTRev_Change);
    for (EditableList* revisions : {cboDevRev.get(), cboDDRev.get(), cboHARTRev.get()})
        FilterTyping(revisions->Combo(), revisions->Combo());
    page.Text(kRevisionNameBox, 12, "Name:", "Revision name", handlers);
    page.Text(kRevisionDescriptionBox, 18, "Description:", "Revision description", handlers);
    lstTAVVersionSupport = page.Versions(
        "lstTAVVersionSupport", 14, "TAV Versions Supported:", "Versions of TAV supported by this install",
        handlers.lstTAVVersionSupport_Click);
    cboDeviceCategory = page.Editable("cboDeviceCategory", 13, "Major Category:", "Device general category",
                                      handlers.cboDeviceCategory_Change);
    cboMinorCategory = page.Editable("cboMinorCategory", 19, "Minor Category:", "Device sub-category", [] {});
}

wxSizer* MainControls::BuildCommands(wxWindow& parent) {
    cmdWriteDB = NewButton(parent, "cmdWriteDB", "Write DB", "Commit information to database");
    cmdWriteINI = NewButton(parent, "cmdWriteINI", "Write .INI", "Commit information to Pyx.ini");
    cmdWriteDDInstall =
        NewButton(parent, "cmdWriteDDInstall", "Write DDInstall", "Commit information to DDInstall file");
    cmdClose = NewButton(parent, "cmdClose", "Close", "Close application without committing changes");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (wxButton* button : {cmdWriteDB, cmdWriteINI, cmdWriteDDInstall, cmdClose})
        row->Add(button, 0, wxRIGHT, Gap(parent));
    return row;
}

EntryForm MainControls::Read() const {
    EntryForm form;
    for (std::size_t i = 0; i < kTextBoxCount; ++i) form.txtMain[i] = txtMain[i]->Text();
    form.cboDevRev = cboDevRev->Text();
    form.cboDDRev = cboDDRev->Text();
    form.cboHARTRev = cboHARTRev->Text();
    form.cboDeviceProtocol = cboDeviceProtocol->Choice();
    form.cboDeviceCategory = cboDeviceCategory->Choice();
    form.cboMinorCategory = cboMinorCategory->Choice();
    form.lstTAVVersionSupport = lstTAVVersionSupport->Versions();
    return form;
}

namespace {

void Apply(const FieldState& state, FieldLook& look) {
    if (state.enabled) look.Enable(*state.enabled);
    if (state.colour) look.SetColour(*state.colour);
}

void Apply(const FieldState& state, TextField& field) {
    Apply(state, field.Look());
    if (state.isEmptied) field.SetText("");
}

void Apply(const FieldState& state, ListField& field) {
    Apply(state, field.Look());
    if (state.selection) field.Select(*state.selection);
}

}  // namespace

void MainControls::Apply(const ControlStateSet& states) {
    ventlock::Apply(states.manufacturerDescription, *txtMain[kManufacturerDescriptionBox]);
    ventlock::Apply(states.deviceDescription, *txtMain[kDeviceDescriptionBox]);
    ventlock::Apply(states.revisionDescription, *txtMain[kRevisionDescriptionBox]);
    ventlock::Apply(states.cboDeviceProtocol, *cboDeviceProtocol);
    ventlock::Apply(states.cboDeviceCategory, *cboDeviceCategory);
    ventlock::Apply(states.cboMinorCategory, *cboMinorCategory);
    ventlock::Apply(states.revisionName, *txtMain[kRevisionNameBox]);
}

std::array<FieldLook*, 7> MainControls::Looks() {
    return {&txtMain[kManufacturerDescriptionBox]->Look(),
            &txtMain[kDeviceDescriptionBox]->Look(),
            &txtMain[kRevisionNameBox]->Look(),
            &txtMain[kRevisionDescriptionBox]->Look(),
            &cboDeviceProtocol->Look(),
            &cboDeviceCategory->Look(),
            &cboMinorCategory->Look()};
}

void MainControls::RefreshColours() {
    for (FieldLook* look : Looks()) look->RefreshColour();
}

}  // namespace ventlock
