#include "entry/EntrySettings.h"

#include "core/Guarded.h"
#include "core/clsSettings.h"
#include "core/modLocalization.h"

namespace ventlock {
namespace {

void ToManufacturer(const clsSettings& settings, clsManufacturer& manufacturer) {
    manufacturer.ManID = settings.ManID;
    manufacturer.Name = settings.ManName;
    manufacturer.Desc = settings.ManDesc;
    manufacturer.ProtID = settings.ProtID;
}

void ToDevice(const clsSettings& settings, clsDevice& device) {
    device.DevID = settings.DevID;
    device.DevName = settings.DevName;
    device.DevDesc = settings.DevDesc;
    device.DevRev = settings.DevRev;
    device.DDRev = settings.DDRev;
    device.ProtRev = settings.ProtRev;
    device.RevName = settings.RevName;
    device.RevDesc = settings.RevDesc;
    device.MajCatID = settings.DevCatID;
    device.MinCatID = settings.DevMinCatID;
}

void FromManufacturer(const clsManufacturer& manufacturer, clsSettings& settings) {
    settings.ManID = manufacturer.ManID;
    settings.ManName = manufacturer.Name;
    settings.ManDesc = manufacturer.Desc;
    settings.ProtID = manufacturer.ProtID;
}

void FromDevice(const clsDevice& device, clsSettings& settings) {
    settings.DevID = device.DevID;
    settings.DevName = device.DevName;
    settings.DevDesc = device.DevDesc;
    settings.DevRev = device.DevRev;
    settings.DDRev = device.DDRev;
    settings.ProtRev = device.ProtRev;
    settings.RevName = device.RevName;
    settings.RevDesc = device.RevDesc;
    settings.DevCatID = device.MajCatID;
    settings.DevMinCatID = device.MinCatID;
}

}  // namespace

bool SettingsToEntry(const AppObjects& oAppObjects, EntryRecords& records, IWindowPlace& place,
                     std::string& offeredVersions) {
    return Guarded(&oAppObjects, "fMste", false, [&](StepLabel&) {
        auto& settings = oAppObjects.Get<clsSettings>(kSettingsKey);
        const bool isRead = settings.Init(oAppObjects, 2);

        clsTavDB& tavDB = records.TavDB();
        clsDDInstall& ddInstall = records.DDInstall();
        clsPyxConfig& pyxConfig = records.PyxConfig();
        tavDB.DBPath = settings.DBPath;
        place.Move(settings.WindowLeft, settings.WindowTop);
        ToManufacturer(settings, tavDB.Manufacturer());
        ddInstall.Template = settings.MRGPath;
        ddInstall.DeviceDLL = pyxConfig.DeviceDLL = settings.DLLName;
        ddInstall.DeviceHelp = pyxConfig.DeviceHelp = settings.DevHelp;
        ddInstall.BlockHelp = pyxConfig.BlockHelp = settings.BlkHelp;
        ToDevice(settings, tavDB.Device());
        ddInstall.IniPath = settings.DDInstallPath;
        pyxConfig.IniPath = settings.INIPath;
        ddInstall.DDVersion = settings.DDVersion();
        offeredVersions = settings.TAVVersions;
        tavDB.LastTAVVersions = settings.LastTAVVersions;
        gsLanguage = settings.Language;
        return isRead;
    });
}

bool EntryToSettings(const AppObjects& oAppObjects, EntryRecords& records, const IWindowPlace& place) {
    return Guarded(&oAppObjects, "fMets", false, [&](StepLabel&) {
        auto& settings = oAppObjects.Get<clsSettings>(kSettingsKey);
        const clsDDInstall& ddInstall = records.DDInstall();
        settings.WindowLeft = place.Left();
        settings.WindowTop = place.Top();
        FromManufacturer(records.TavDB().Manufacturer(), settings);
        FromDevice(records.TavDB().Device(), settings);
        settings.DLLName = ddInstall.DeviceDLL;
        settings.MRGPath = ddInstall.Template;
        settings.DevHelp = ddInstall.DeviceHelp;
        settings.BlkHelp = ddInstall.BlockHelp;
        settings.LastTAVVersions = records.TavDB().LastTAVVersions;
        settings.DBPath = records.TavDB().DBPath;
        settings.DDInstallPath = ddInstall.IniPath;
        settings.INIPath = records.PyxConfig().IniPath;
        return settings.SaveSettings();
    });
}

}  // namespace ventlock
