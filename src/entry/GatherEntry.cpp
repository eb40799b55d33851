#include "entry/GatherEntry.h"

#include "base/Text.h"
#include "core/Guarded.h"
#include "db/SchemaVersion.h"
#include "entry/ResourceNames.h"
#include "entry/VersionList.h"

namespace ventlock {
namespace {

std::string Trimmed(const std::string& text) {
    return std::string(Trim(text));
}

std::string CategoryId(const ListChoice& choice, std::int16_t kind, clsTavDB& tavDB) {
    if (choice.index >= 0) return std::to_string(choice.itemData);
    const std::string text = Trimmed(choice.text);
    return text.empty() ? "0" : tavDB.GetCategoryID(text, kind);
}

void GatherFileNames(const EntryForm& form, clsDDInstall& ddInstall, clsPyxConfig& pyxConfig) {
    ddInstall.DeviceDLL = DllName(form.txtMain[kDllBox]);
    pyxConfig.DeviceDLL = ddInstall.DeviceDLL;
    ddInstall.Template = TemplateName(form.txtMain[kTemplateBox]);
    ddInstall.DeviceHelp = HelpFileName(form.txtMain[kDeviceHelpBox]);
    pyxConfig.DeviceHelp = ddInstall.DeviceHelp;
    ddInstall.BlockHelp = HelpFileName(form.txtMain[kBlockHelpBox]);
    pyxConfig.BlockHelp = ddInstall.BlockHelp;
}

/// What only the current schema has columns for.
void GatherCurrentSchema(const EntryForm& form, clsTavDB& tavDB) {
    clsManufacturer& manufacturer = tavDB.Manufacturer();
    clsDevice& device = tavDB.Device();
    // Without a choice the protocol that the record holds is kept.
    if (form.cboDeviceProtocol.index >= 0)
        manufacturer.ProtID = std::to_string(form.cboDeviceProtocol.itemData);
    device.MajCatID = CategoryId(form.cboDeviceCategory, kMajorCategory, tavDB);
    device.MinCatID = CategoryId(form.cboMinorCategory, kMinorCategory, tavDB);
    device.CatID = tavDB.GetDevCatID(device.MajCatID, device.MinCatID);
    manufacturer.Desc = Trimmed(form.txtMain[kManufacturerDescriptionBox]);
    device.DevDesc = Trimmed(form.txtMain[kDeviceDescriptionBox]);
    device.RevName = Trimmed(form.txtMain[kRevisionNameBox]);
    device.RevDesc = Trimmed(form.txtMain[kRevisionDescriptionBox]);
}

}  // namespace

bool GatherEntry(const EntryForm& form, std::int16_t schemaVersion, const AppObjects* oAppObjects,
                 clsTavDB& tavDB, clsDDInstall& ddInstall, clsPyxConfig& pyxConfig) {
    return Guarded(oAppObjects, "fMge", false, [&](StepLabel&) {
        ddInstall.IniPath = form.txtMain[kDDInstallPathBox];
        pyxConfig.IniPath = form.txtMain[kIniPathBox];

        clsManufacturer& manufacturer = tavDB.Manufacturer();
        clsDevice& device = tavDB.Device();
        manufacturer.ManID = Trimmed(form.txtMain[kManufacturerIdBox]);
        device.ManID = manufacturer.ManID;
        manufacturer.Name = Trimmed(form.txtMain[kManufacturerNameBox]);
        GatherFileNames(form, ddInstall, pyxConfig);
        device.DevID = Trimmed(form.txtMain[kDeviceIdBox]);
        device.DevName = Trimmed(form.txtMain[kDeviceNameBox]);
        device.DevRev = Trimmed(form.cboDevRev);
        device.DDRev = Trimmed(form.cboDDRev);
        device.ProtRev = Trimmed(form.cboHARTRev);
        if (schemaVersion >= kCurrentSchema) GatherCurrentSchema(form, tavDB);
        ddInstall.TAVVersionSupport = SelectedVersions(form);
        tavDB.LastTAVVersions = ddInstall.TAVVersionSupport;
        return true;
    });
}

}  // namespace ventlock
