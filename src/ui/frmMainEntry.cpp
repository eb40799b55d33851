// The entry on its way between settings, records and fields, and the change to another data source.

#include <wx/utils.h>

#include "base/Numbers.h"
#include "base/Text.h"
#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "core/modCommonTools.h"
#include "core/modLocalization.h"
#include "db/ReferenceLists.h"
#include "db/SchemaVersion.h"
#include "entry/EntrySettings.h"
#include "entry/GatherEntry.h"
#include "entry/VersionList.h"
#include "ui/Captions.h"
#include "ui/ControlNames.h"
#include "ui/WxText.h"
#include "ui/frmMain.h"

namespace ventlock {
namespace {

/// Index of the item with this id; an id that no item data can hold is one that no item carries.
int IndexOfId(const IList& list, double id) {
    try {
        return FindListItemData(list, ToInteger(id));
    } catch (const RunTimeError&) {
        return -1;
    }
}

void SelectById(ListField& list, const std::string& id) {
    if (list.Count() > 0) list.Select(IndexOfId(list, NumericValue(id)));
}

/// The item that had been chosen, by its id, in a list that was loaded again.
void Reselect(ListField& list, const ListChoice& choice) {
    if (choice.index >= 0) list.Select(IndexOfId(list, choice.itemData));
}

void Reselect(EditableList& list, const ListChoice& choice) {
    if (choice.index >= 0) {
        list.Select(IndexOfId(list, choice.itemData));
    } else {
        list.SetText(choice.text);
    }
}

}  // namespace

bool frmMain::GatherEntry() {
    return ventlock::GatherEntry(controls_.Read(), schemaVersion_, &oAppObjects_, records_.TavDB(),
                                 records_.DDInstall(), records_.PyxConfig());
}

void frmMain::SettingsToEntry() {
    isSettingsRead_ = ventlock::SettingsToEntry(oAppObjects_, records_, place_, offeredVersions_);
}

void frmMain::LoadFormText(int mode) {
    Guarded(&oAppObjects_, "fMotf", [&](StepLabel& step) {
        if (mode == kCaptions) LoadCaptions();
        if (mode == kContents) LoadEntry(step);
    });
}

void frmMain::SetCaptions(const std::vector<Caption>& captions) {
    for (const Caption& caption : captions)
        caption.set(GetString(std::string(caption.key)) + std::string(caption.suffix));
}

void frmMain::LoadCaptions() {
    captionsLoading_ = true;
    try {
        SetCaptions(Captions(*this, menu_, controls_));
    } catch (...) {
        captionsLoading_ = false;
        SetControlStates();
        throw;
    }
    captionsLoading_ = false;
    hasCaptions_ = true;
    SetControlStates();
}

void frmMain::LoadMoreCaptions() {
    SetCaptions(ToolCaptions(menu_));
    SetCaptions(ListCaptions(controls_));
    NameControls(controls_, menu_);
}

void frmMain::LoadEntry(StepLabel& step) {
    step = "01";
    std::vector<ListItem> versions;
    for (std::string& version : ParseVersionList(offeredVersions_, services_.events, &oAppObjects_))
        versions.push_back({std::move(version)});
    controls_.lstTAVVersionSupport->Add(versions);

    step = "02";
    const clsManufacturer& manufacturer = records_.TavDB().Manufacturer();
    const clsDevice& device = records_.TavDB().Device();
    const clsDDInstall& ddInstall = records_.DDInstall();
    const auto show = [&](std::size_t box, const std::string& text) {
        controls_.txtMain[box]->SetText(text);
    };
    show(kManufacturerIdBox, manufacturer.ManID);
    show(kManufacturerNameBox, manufacturer.Name);
    show(kDeviceIdBox, device.DevID);
    show(kDeviceNameBox, device.DevName);
    show(kDllBox, ddInstall.DeviceDLL);
    show(kTemplateBox, ddInstall.Template);
    show(kDeviceHelpBox, ddInstall.DeviceHelp);
    show(kBlockHelpBox, ddInstall.BlockHelp);
    controls_.cboDevRev->SetText(device.DevRev);
    controls_.cboDDRev->SetText(device.DDRev);
    controls_.cboHARTRev->SetText(device.ProtRev);
    show(kDataSourceBox, oAppObjects_.Get<clsSettings>(kSettingsKey).DSN);
    show(kDDInstallPathBox, ddInstall.IniPath);
    show(kIniPathBox, records_.PyxConfig().IniPath);
    SelectVersions(records_.TavDB().LastTAVVersions);

    if (schemaVersion_ >= kCurrentSchema) ShowCurrentSchemaFields(step);
    isEntryShown_ = true;
    SetControlStates();  // the selections above are no changes that a handler sees
}

void frmMain::ShowCurrentSchemaFields(StepLabel& step) {
    const clsManufacturer& manufacturer = records_.TavDB().Manufacturer();
    const clsDevice& device = records_.TavDB().Device();
    step = "03";
    controls_.txtMain[kManufacturerDescriptionBox]->SetText(manufacturer.Desc);
    step = "03.1";
    SelectById(*controls_.cboDeviceProtocol, manufacturer.ProtID);
    step = "03.2";
    controls_.txtMain[kDeviceDescriptionBox]->SetText(device.DevDesc);
    controls_.txtMain[kRevisionNameBox]->SetText(device.RevName);
    controls_.txtMain[kRevisionDescriptionBox]->SetText(device.RevDesc);
    step = "03.3";
    SelectById(*controls_.cboDeviceCategory, device.MajCatID);
    SelectById(*controls_.cboMinorCategory, device.MinCatID);
}

bool frmMain::SelectVersions(const std::string& versions) {
    Guarded(&oAppObjects_, "fMsv", [&](StepLabel&) {
        VersionField& list = *controls_.lstTAVVersionSupport;
        for (const std::string& version : ParseVersionList(versions, services_.events, &oAppObjects_)) {
            const int index = FindListText(list, version);
            if (index >= 0) list.Select(index);
        }
    });
    return true;
}

void frmMain::cmdSwitchDSN_Click() {
    RunCommand([&] {
        const wxBusyCursor busyCursor;
        ShowBusy();
        Guarded(&oAppObjects_, "fMsd", [&](StepLabel& step) { SwitchDataSource(step); });
        ShowConnection();
        SetControlStates();  // whether it is connected decides what can be used
    });
}

void frmMain::SwitchDataSource(StepLabel& step) {
    const std::int16_t schemaBefore = schemaVersion_;
    isConnected_ = false;
    StoreDataSource(step);
    step = "03";
    records_.ReplaceTavDB();
    step = "04";
    SettingsToEntry();
    step = "05";
    isConnected_ = ConnectDatabase();
    if (!isConnected_) oAppObjects_.Get<clsLog>(kLogKey).Log("Unable to connect to database.");
    controls_.txtMain[kDataSourceBox]->SetText(oAppObjects_.Get<clsSettings>(kSettingsKey).DSN);
    if (!isConnected_ || schemaVersion_ < kCurrentSchema) return;
    step = "06";
    ReloadReferenceLists();
    if (schemaBefore >= kCurrentSchema) return;
    ShowCurrentSchemaFields(step);  // never filled so far
    ShowRestOfOpened();
}

// When the file refuses the name, the one that it holds is read back and connected to; the field then shows
// that one.
void frmMain::StoreDataSource(StepLabel& step) {
    step = "01";
    auto& settings = oAppObjects_.Get<clsSettings>(kSettingsKey);
    settings.DSN = Trim(controls_.txtMain[kDataSourceBox]->Text());
    step = "02";
    try {
        services_.profiles.Write(settings.INIPath, kDataSourceSection, kDataSourceKey, settings.DSN);
    } catch (const RunTimeError& error) {
        ReportError(&oAppObjects_, "fMsd", step, error);
    }
}

void frmMain::ReloadReferenceLists() {
    const EntryForm before = controls_.Read();
    controls_.cboDeviceProtocol->Clear();
    controls_.cboDeviceCategory->Clear();
    controls_.cboMinorCategory->Clear();
    // A load that fails has logged why and leaves the lists behind it empty.
    LoadReferenceLists(records_.TavDB(), *controls_.cboDeviceProtocol, *controls_.cboDeviceCategory,
                       *controls_.cboMinorCategory);
    Reselect(*controls_.cboDeviceProtocol, before.cboDeviceProtocol);
    Reselect(*controls_.cboDeviceCategory, before.cboDeviceCategory);
    Reselect(*controls_.cboMinorCategory, before.cboMinorCategory);
}

void frmMain::ShowBusy() {
    if (hasCaptions_) controls_.lblStatus->SetLabelText(ToWx(GetString("IDS_STA_BUSY")));
}

void frmMain::ShowConnection() {
    if (!hasCaptions_) return;
    const std::string dataSource = oAppObjects_.Get<clsSettings>(kSettingsKey).DSN;
    std::string text = FillParam(GetString("IDS_STA_NOT_CONNECTED"), dataSource);
    if (isConnected_) {
        const char* schema =
            schemaVersion_ < kCurrentSchema ? "IDS_STA_SCHEMA_OLD" : "IDS_STA_SCHEMA_CURRENT";
        text = FillParam(GetString("IDS_STA_CONNECTED"), dataSource) + ", " + GetString(schema);
    }
    controls_.lblStatus->SetLabelText(ToWx(text));
}

}  // namespace ventlock
