// The commands of the menus: writing, editing, choosing files, help.

#include <wx/utils.h>

#include "base/Text.h"
#include "core/clsLog.h"
#include "core/modLocalization.h"
#include "db/SchemaVersion.h"
#include "entry/FileFilters.h"
#include "ui/FieldLook.h"
#include "ui/WxText.h"
#include "ui/frmAbout.h"
#include "ui/frmMain.h"

namespace ventlock {
namespace {

/// The field with the focus, when it is one that text can be copied from; nullptr for anything else.
wxTextEntry* FocusedText() {
    return dynamic_cast<wxTextEntry*>(wxWindow::FindFocus());
}

/// The selected text. An editable list answers the toolkit's own question with an item of the list.
std::string SelectedText(const wxTextEntry& text) {
    long begin = 0;
    long end = 0;
    text.GetSelection(&begin, &end);
    return FromWx(text.GetRange(begin, end));
}

}  // namespace

void frmMain::mnuWriteDB_Click() {
    RunCommand("fMwdb", [&](StepLabel&) {
        const wxBusyCursor busyCursor;
        GatherEntry();
        ReportWritten(records_.TavDB().Update(), "IDS_MSG_UPD_GOOD", "IDS_MSG_UPD_BAD", *menu_.mnuWriteDB,
                      *controls_.cmdWriteDB);
    });
}

void frmMain::mnuWriteINI_Click() {
    RunCommand("fMwini", [&](StepLabel&) {
        const wxBusyCursor busyCursor;
        GatherEntry();
        clsPyxConfig& writer = records_.PyxConfig();
        writer.Init(oAppObjects_, 2);
        const bool isWritten = writer.Insert(records_.TavDB().Manufacturer(), records_.TavDB().Device());
        if (isWritten) RememberPath(kIniPathBox, writer.IniPath);
        ReportWritten(isWritten, "IDS_MSG_INS_GOOD", "IDS_MSG_INS_BAD", *menu_.mnuWriteINI,
                      *controls_.cmdWriteINI);
        LookAtTargetsSoon();
    });
}

void frmMain::mnuWriteDDInstall_Click() {
    RunCommand("fMwdd", [&](StepLabel&) {
        const bool isPathMissing = Trim(controls_.txtMain[kDDInstallPathBox]->Text()).empty();
        if (isPathMissing && !ChooseDDInstallFile()) return;
        const wxBusyCursor busyCursor;
        GatherEntry();
        clsDDInstall& writer = records_.DDInstall();
        writer.Init(oAppObjects_, 2);
        const bool isWritten =
            writer.WriteDDInstall(records_.TavDB().Manufacturer(), records_.TavDB().Device());
        if (isWritten) RememberPath(kDDInstallPathBox, writer.IniPath);
        ReportWritten(isWritten, "IDS_MSG_INS_GOOD", "IDS_MSG_INS_BAD", *menu_.mnuWriteDDInstall,
                      *controls_.cmdWriteDDInstall);
        LookAtTargetsSoon();
    });
}

void frmMain::ReportWritten(bool isWritten, const char* goodKey, const char* badKey, wxMenuItem& item,
                            wxButton& button) {
    if (!isWritten) {
        oAppObjects_.Get<clsLog>(kLogKey).Log(GetString(badKey));
        return;
    }
    services_.messages.Show(GetString(goodKey), "", {});
    // Just behind a box the toolkit knows of nobody who has the keyboard.
    const wxWindow* focused = wxWindow::FindFocus();
    if ((focused != nullptr ? focused : focusedBefore_) == &button) PassKeyboardOn(button);
    item.Enable(false);
    button.Enable(false);
}

void frmMain::mnuCopy_Click() {
    RunCommand("fMcp", [&](StepLabel&) {
        const wxTextEntry* text = FocusedText();
        if (text != nullptr) services_.clipboard.SetText(SelectedText(*text));
    });
}

void frmMain::mnuCut_Click() {
    RunCommand("fMct", [&](StepLabel&) {
        wxTextEntry* text = FocusedText();
        if (text == nullptr) return;
        services_.clipboard.SetText(SelectedText(*text));
        text->RemoveSelection();
    });
}

void frmMain::mnuPaste_Click() {
    RunCommand("fMpa", [&](StepLabel&) {
        wxTextEntry* text = FocusedText();
        if (text == nullptr) return;
        const wxString pasted = ToWx(services_.clipboard.Text());
        text->RemoveSelection();  // also when nothing takes its place
        text->WriteText(pasted);
    });
}

void frmMain::mnuClear_Click() {
    RunCommand("fMcl", [&](StepLabel&) {
        for (std::size_t box = kManufacturerIdBox; box < kTextBoxCount; ++box)
            controls_.txtMain[box]->SetText("");
        opened_.reset();
        controls_.cboDevRev->SetText("01");
        controls_.cboDDRev->SetText("01");
        controls_.cboHARTRev->SetText("05");
        if (schemaVersion_ < kCurrentSchema) return;
        controls_.cboDeviceProtocol->Select(-1);
        controls_.cboDeviceCategory->Select(-1);
    });
}

std::string frmMain::AskForFile(std::string_view tag, int flags, const char* filterKey, int preselected,
                                std::size_t box, const std::string& title) {
    return Guarded(&oAppObjects_, tag, std::string(), [&](StepLabel&) {
        const FileFilters filters = UsableFilters(GetString(filterKey), preselected);
        return services_.fileDialog.Open({.flags = flags,
                                          .filters = filters.text,
                                          .preselected = filters.preselected,
                                          .start = controls_.txtMain[box]->Text(),
                                          .title = title});
    });
}

std::string frmMain::SelectDBFile() {
    return AskForFile("fMsdb", kFileMustExist | kHideReadOnly, "IDS_FLTR_DB", 2, kDataSourceBox,
                      FromWx(GetTitle()));
}

std::string frmMain::SelectINIFile() {
    return AskForFile("fMsif", kFileMustExist | kHideReadOnly, "IDS_FLTR_INI", 3, kIniPathBox,
                      MainMenu::TitleOf(*menu_.mnuSelectINI));
}

std::string frmMain::SelectDDInstallFile() {
    return AskForFile("fMsdf", kHideReadOnly, "IDS_FLTR_DD", 2, kDDInstallPathBox,
                      MainMenu::TitleOf(*menu_.mnuSelectDDInstall));
}

void frmMain::mnuSelectINI_Click() {
    RunCommand([&] {
        const std::string path = SelectINIFile();
        if (!path.empty()) TakePath(kIniPathBox, path);
    });
}

void frmMain::mnuSelectDDInstall_Click() {
    RunCommand([&] { ChooseDDInstallFile(); });
}

bool frmMain::ChooseDDInstallFile() {
    const std::string path = SelectDDInstallFile();
    if (path.empty()) return false;
    TakePath(kDDInstallPathBox, path);
    return true;
}

void frmMain::TakePath(std::size_t box, const std::string& path) {
    controls_.txtMain[box]->SetText(path);
    (box == kIniPathBox ? records_.PyxConfig().IniPath : records_.DDInstall().IniPath) = path;
}

void frmMain::mnuHelpContents_Click() {
    ShowHelp();
}

void frmMain::mnuHelpSearch_Click() {
    ShowHelp();
}

void frmMain::ShowHelp() {
    RunCommand("fMhp", [&](StepLabel&) {
        if (services_.help.Show(cmndlgDB_.HelpFile, kHelpContents)) return;
        oAppObjects_.Get<clsLog>(kLogKey).Log("The help book cannot be opened: " + cmndlgDB_.HelpFile, {}, {},
                                              kLogToFile);
    });
}

void frmMain::mnuLog_Click() {
    Guarded(&oAppObjects_, "fMlog", [&](StepLabel&) {
        if (!log_) log_ = new frmLog(this, oAppObjects_, services_.clipboard);
        if (log_->IsIconized()) log_->Iconize(false);
        log_->Show();
        log_->Raise();
    });
}

void frmMain::mnuHelpAbout_Click() {
    RunCommand([&] { frmAbout(this, services_.host, services_.messages).ShowModal(); });
}

}  // namespace ventlock
