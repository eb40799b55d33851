#include "entry/EntrySettings.h"

#include <array>
#include <utility>

#include "core/Guarded.h"
#include "core/clsSettings.h"
#include "core/modLocalization.h"

namespace ventlock {
namespace {

/// A setting and the field of a record that it is kept in; the copy takes both ways.
template <class Record>
using SettingField = std::pair<std::string clsSettings::*, std::string Record::*>;

constexpr auto kManufacturerFields = std::to_array<SettingField<clsManufacturer>>({
    {&clsSettings::ManID, &clsManufacturer::ManID},
    {&clsSettings::ManName, &clsManufacturer::Name},
    {&clsSettings::ManDesc, &clsManufacturer::Desc},
    {&clsSettings::ProtID, &clsManufacturer::ProtID},
});

constexpr auto kDeviceFields = std::to_array<SettingField<clsDevice>>({
    {&clsSettings::DevID, &clsDevice::DevID},
    {&clsSettings::DevName, &clsDevice::DevName},
    {&clsSettings::DevDesc, &clsDevice::DevDesc},
    {&clsSettings::DevRev, &clsDevice::DevRev},
    {&clsSettings::DDRev, &clsDevice::DDRev},
    {&clsSettings::ProtRev, &clsDevice::ProtRev},
    {&clsSettings::RevName, &clsDevice::RevName},
    {&clsSettings::RevDesc, &clsDevice::RevDesc},
    {&clsSettings::DevCatID, &clsDevice::MajCatID},
    {&clsSettings::DevMinCatID, &clsDevice::MinCatID},
});

template <class Fields, class Record>
void Load(const Fields& fields, const clsSettings& settings, Record& record) {
    for (const auto& [setting, field] : fields) record.*field = settings.*setting;
}

template <class Fields, class Record>
void Store(const Fields& fields, const Record& record, clsSettings& settings) {
    for (const auto& [setting, field] : fields) settings.*setting = record.*field;
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
        Load(kManufacturerFields, settings, tavDB.Manufacturer());
        ddInstall.Template = settings.MRGPath;
        ddInstall.DeviceDLL = pyxConfig.DeviceDLL = settings.DLLName;
        ddInstall.DeviceHelp = pyxConfig.DeviceHelp = settings.DevHelp;
        ddInstall.BlockHelp = pyxConfig.BlockHelp = settings.BlkHelp;
        Load(kDeviceFields, settings, tavDB.Device());
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
        Store(kManufacturerFields, records.TavDB().Manufacturer(), settings);
        Store(kDeviceFields, records.TavDB().Device(), settings);
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
