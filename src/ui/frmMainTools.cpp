// The commands of the menu "Tools" for entry files, and files that are dropped.

#include <array>

#include "base/RunTimeError.h"
#include "base/ShownText.h"
#include "core/modCommonTools.h"
#include "core/modLocalization.h"
#include "db/SchemaVersion.h"
#include "entry/CheckEntry.h"
#include "entry/FileFilters.h"
#include "entry/FormToEntry.h"
#include "entry/OpenEntry.h"
#include "ui/WxText.h"
#include "ui/frmChoose.h"
#include "ui/frmMain.h"

namespace ventlock {
namespace {

/// More lines than this do not fit on every screen.
constexpr std::size_t kMostFindings = 25;

/// The boxes that only a window of the current schema fills.
constexpr std::array kCurrentSchemaBoxes{kManufacturerDescriptionBox, kDeviceDescriptionBox, kRevisionNameBox,
                                         kRevisionDescriptionBox};

void Choose(ListField& list, const ListChoice& choice) {
    list.Select(choice.index);
}

void Choose(EditableList& list, const ListChoice& choice) {
    if (choice.index >= 0) {
        list.Select(choice.index);
    } else {
        list.SetText(choice.text);
    }
}

ItemList ItemsOf(const ListField& list) {
    std::vector<ListItem> items;
    items.reserve(static_cast<std::size_t>(list.Count()));
    for (int i = 0; i < list.Count(); ++i) items.push_back({list.Text(i), list.ItemData(i)});
    ItemList copy;
    copy.Add(items);
    return copy;
}

}  // namespace

void frmMain::mnuOpenEntry_Click() {
    RunCommand("fMoe", [&](StepLabel& step) {
        const std::string path = AskForEntryFile(kFileMustExist | kHideReadOnly, *menu_.mnuOpenEntry);
        if (!path.empty()) OpenEntryFile(path, step);
    });
}

void frmMain::mnuSaveEntry_Click() {
    RunCommand("fMse", [&](StepLabel& step) {
        const std::string path = AskForEntryFile(kAskBeforeReplacing | kHideReadOnly, *menu_.mnuSaveEntry);
        if (!path.empty()) SaveEntryFile(path, step);
    });
}

std::string frmMain::AskForEntryFile(int flags, const wxMenuItem& item) {
    const FileFilters filters = UsableFilters(GetString("IDS_FLTR_ENTRY"), 1);
    return services_.fileDialog.Open({.flags = flags,
                                      .filters = filters.text,
                                      .preselected = filters.preselected,
                                      .start = entryPath_,
                                      .title = MainMenu::TitleOf(item)});
}

void frmMain::OpenEntryFile(const std::string& path, StepLabel& step) {
    step = "01";
    const EntryFile file = ParseEntryFile(services_.host.Files().ReadAll(path));
    if (HasErrors(file.findings)) return TellFindings("IDS_MSG_ENTRY_REFUSED", path, file.findings);
    const FileEntry* entry = ChooseEntry(file);
    if (entry == nullptr) return;
    step = "02";
    const OpenedEntry opened = OpenEntry(*entry, ShownLists(), schemaVersion_, services_.events);
    if (HasErrors(opened.findings)) return TellFindings("IDS_MSG_ENTRY_REFUSED", path, opened.findings);
    step = "03";
    ShowOpened(*entry, opened.form);
    entryPath_ = path;
    ShowOpenedFile(path, *entry);
    if (!opened.findings.empty()) TellFindings("IDS_MSG_ENTRY_NOTED", path, opened.findings);
}

/// The one entry of a file, or the one that the user chooses; nullptr when he chooses none.
const FileEntry* frmMain::ChooseEntry(const EntryFile& file) {
    if (file.entries.size() == 1) return &file.entries.front();
    std::vector<std::string> names;
    for (const FileEntry& entry : file.entries) names.push_back(ShownWord(entry.name));
    frmChoose box(this, MainMenu::TitleOf(*menu_.mnuOpenEntry), GetString("IDS_MSG_ENTRY_CHOOSE"), names);
    const std::optional<std::size_t> chosen = box.Ask();
    return chosen ? &file.entries[*chosen] : nullptr;
}

/// The numbers that a write has found belong to the entry that was there before.
void frmMain::ShowOpened(const FileEntry& entry, const EntryForm& form) {
    clsManufacturer& manufacturer = records_.TavDB().Manufacturer();
    clsDevice& device = records_.TavDB().Device();
    manufacturer.ForgetNumbers();
    device.ForgetNumbers();
    opened_.reset();
    if (schemaVersion_ >= kCurrentSchema) {
        ShowCurrentSchemaPart(form);
    } else {
        KeepUnshown(entry, manufacturer, device);
        opened_ = entry;
    }
    for (const std::size_t box : {kManufacturerIdBox, kManufacturerNameBox, kDeviceIdBox, kDeviceNameBox,
                                  kDllBox, kTemplateBox, kDeviceHelpBox, kBlockHelpBox})
        controls_.txtMain[box]->SetText(form.txtMain[box]);
    controls_.cboDevRev->SetText(form.cboDevRev);
    controls_.cboDDRev->SetText(form.cboDDRev);
    controls_.cboHARTRev->SetText(form.cboHARTRev);
    std::vector<std::string> versions;
    for (const OfferedVersion& version : form.lstTAVVersionSupport) versions.push_back(version.text);
    controls_.lstTAVVersionSupport->SelectOnly(versions);
    SetControlStates();  // the versions are no change that a handler sees
}

/// The protocol comes first: it decides which of the others may hold anything.
void frmMain::ShowCurrentSchemaPart(const EntryForm& form) {
    Choose(*controls_.cboDeviceProtocol, form.cboDeviceProtocol);
    Choose(*controls_.cboDeviceCategory, form.cboDeviceCategory);
    Choose(*controls_.cboMinorCategory, form.cboMinorCategory);
    for (const std::size_t box : kCurrentSchemaBoxes) controls_.txtMain[box]->SetText(form.txtMain[box]);
}

/// What the entry opened last holds for a current schema, once the window has one.
void frmMain::ShowRestOfOpened() {
    if (!opened_) return;
    const OpenedEntry opened = OpenEntry(*opened_, ShownLists(), schemaVersion_, services_.events);
    ShowCurrentSchemaPart(opened.form);
    opened_.reset();
    if (!opened.findings.empty()) TellFindings("IDS_MSG_ENTRY_NOTED", entryPath_, opened.findings);
}

void frmMain::ShowOpenedFile(const std::string& path, const FileEntry& entry) {
    const std::string file = path.substr(path.find_last_of("/\\") + 1);
    const std::string opened = ShownWord(file) + " [" + ShownWord(entry.name) + "]";
    controls_.lblStatus->SetLabelText(ToWx(FillParam(GetString("IDS_STA_OPENED"), opened)));
}

ReferenceLists frmMain::ShownLists() const {
    return {ItemsOf(*controls_.cboDeviceProtocol), ItemsOf(*controls_.cboDeviceCategory),
            ItemsOf(*controls_.cboMinorCategory)};
}

void frmMain::TellFindings(const char* key, const std::string& path, const std::vector<Finding>& findings) {
    const FindingLines lines = LinesOf(path, findings, kMostFindings);
    std::string text = GetString(key) + "\n\n" + lines.text;
    if (lines.more != 0)
        text += "\n" + FillParam(GetString("IDS_MSG_ENTRY_MORE"), std::to_string(lines.more));
    services_.messages.Show(ShownText(text), "", {});
}

void frmMain::DropFiles(const std::vector<std::string>& paths) {
    RunCommand("fMdf", [&](StepLabel& step) {
        std::vector<DroppedFile> files;
        files.reserve(paths.size());
        for (const std::string& path : paths) files.push_back(LookAt(path));
        const DropPlan plan = PlanDrop(files);
        if (!plan.ini.empty()) TakePath(kIniPathBox, plan.ini);
        if (!plan.ddInstall.empty()) TakePath(kDDInstallPathBox, plan.ddInstall);
        if (!plan.refused.empty()) TellRefused(plan);
        if (!plan.entry.empty()) OpenEntryFile(plan.entry, step);
    });
}

/// A file that cannot be read tells nothing of itself but its name.
DroppedFile frmMain::LookAt(const std::string& path) {
    constexpr std::size_t kBeginning = 65536;
    IFiles& files = services_.host.Files();
    DroppedFile file{.path = path, .isFile = files.Exists(path), .holdsEntryKey = false};
    if (!file.isFile) return file;
    try {
        file.holdsEntryKey = HoldsEntryKey(files.ReadBeginning(path, kBeginning));
    } catch (const RunTimeError&) {
        file.isFile = PlanDrop({file}).refused.empty();
    }
    return file;
}

void frmMain::TellRefused(const DropPlan& plan) {
    const auto reason = [](DropRefusal refusal) {
        switch (refusal) {
            case DropRefusal::NoFile:
                return GetString("IDS_MSG_DROP_NO_FILE");
            case DropRefusal::Several:
                return GetString("IDS_MSG_DROP_SEVERAL");
            case DropRefusal::Unknown:
                break;
        }
        return GetString("IDS_MSG_DROP_UNKNOWN");
    };
    std::string text = GetString("IDS_MSG_DROP_REFUSED") + "\n";
    for (const auto& [path, refusal] : plan.refused)
        text.append("\n").append(ShownWord(path)).append(": ").append(reason(refusal));
    services_.messages.Show(text, "", {});
}

void frmMain::SaveEntryFile(const std::string& path, StepLabel& step) {
    step = "01";
    const FileEntry unshown =
        opened_ ? *opened_ : UnshownOf(records_.TavDB().Manufacturer(), records_.TavDB().Device());
    const std::string text = EntryText(ToFileEntry(controls_.Read(), schemaVersion_, unshown));
    step = "02";
    IFiles& files = services_.host.Files();
    const auto lock = files.Lock(path);
    if (files.Exists(path) && !MayBeEntryFile(files.ReadAll(path))) {
        services_.messages.Show(FillParam(GetString("IDS_MSG_ENTRY_NO_REPLACE"), path), "", {});
        return;
    }
    step = "03";
    files.Replace(path, text);
    entryPath_ = path;
}

}  // namespace ventlock
