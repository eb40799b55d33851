#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "support/FakeRegistry.h"
#include "unit/entry/ProgramRun.h"

namespace ventlock::test {

/// Where a value of the settings goes in a run of the program, and whether it comes back from there.
struct EntryTarget {
    using Text = std::function<std::string&(ProgramRun&)>;
    using Number = std::function<std::int16_t&(ProgramRun&)>;

    std::string name;
    std::string setting;  ///< name of the value where it is stored
    std::variant<Text, Number> place;
    bool isStoredBack = true;

    [[nodiscard]] std::string Of(ProgramRun& run) const {
        if (const auto* number = std::get_if<Number>(&place)) return std::to_string((*number)(run));
        return std::get<Text>(place)(run);
    }
    void Change(ProgramRun& run) const {
        if (const auto* number = std::get_if<Number>(&place)) {
            ++(*number)(run);
        } else {
            std::get<Text>(place)(run) += " changed";
        }
    }
};

inline void PrintTo(const EntryTarget& row, std::ostream* out) {
    *out << row.name;
}

inline EntryTarget::Text Facade(std::string clsTavDB::*field) {
    return [field](ProgramRun& run) -> std::string& { return run.records.TavDB().*field; };
}
inline EntryTarget::Text Manufacturer(std::string clsManufacturer::*field) {
    return [field](ProgramRun& run) -> std::string& { return run.records.TavDB().Manufacturer().*field; };
}
inline EntryTarget::Text Device(std::string clsDevice::*field) {
    return [field](ProgramRun& run) -> std::string& { return run.records.TavDB().Device().*field; };
}
inline EntryTarget::Text DDInstall(std::string clsDDInstall::*field) {
    return [field](ProgramRun& run) -> std::string& { return run.records.DDInstall().*field; };
}
inline EntryTarget::Text PyxConfig(std::string clsPyxConfig::*field) {
    return [field](ProgramRun& run) -> std::string& { return run.records.PyxConfig().*field; };
}

/// All targets, in the order of the copy.
inline std::vector<EntryTarget> EntryTargets() {
    constexpr bool kOneWay = false;
    using Run = ProgramRun;
    return {
        {"FacadeDBPath", "DBPath", Facade(&clsTavDB::DBPath)},
        {"WindowLeft", "WindowLeft", [](Run& run) -> std::int16_t& { return run.place.left; }},
        {"WindowTop", "WindowTop", [](Run& run) -> std::int16_t& { return run.place.top; }},
        {"ManufacturerManID", "ManID", Manufacturer(&clsManufacturer::ManID)},
        {"ManufacturerName", "ManName", Manufacturer(&clsManufacturer::Name)},
        {"ManufacturerDesc", "ManDesc", Manufacturer(&clsManufacturer::Desc)},
        {"ManufacturerProtID", "ProtID", Manufacturer(&clsManufacturer::ProtID)},
        {"DDInstallTemplate", "TemplateName", DDInstall(&clsDDInstall::Template)},
        {"DDInstallDeviceDLL", "DLLName", DDInstall(&clsDDInstall::DeviceDLL)},
        {"DDInstallDeviceHelp", "DevHelp", DDInstall(&clsDDInstall::DeviceHelp)},
        {"DDInstallBlockHelp", "BlkHelp", DDInstall(&clsDDInstall::BlockHelp)},
        {"PyxConfigDeviceDLL", "DLLName", PyxConfig(&clsPyxConfig::DeviceDLL), kOneWay},
        {"PyxConfigDeviceHelp", "DevHelp", PyxConfig(&clsPyxConfig::DeviceHelp), kOneWay},
        {"PyxConfigBlockHelp", "BlkHelp", PyxConfig(&clsPyxConfig::BlockHelp), kOneWay},
        {"DeviceDevID", "DevID", Device(&clsDevice::DevID)},
        {"DeviceDevName", "DevName", Device(&clsDevice::DevName)},
        {"DeviceDevDesc", "DevDesc", Device(&clsDevice::DevDesc)},
        {"DeviceDevRev", "DevRev", Device(&clsDevice::DevRev)},
        {"DeviceDDRev", "DDRev", Device(&clsDevice::DDRev)},
        {"DeviceProtRev", "ProtRev", Device(&clsDevice::ProtRev)},
        {"DeviceRevName", "DevRevName", Device(&clsDevice::RevName)},
        {"DeviceRevDesc", "DevRevDesc", Device(&clsDevice::RevDesc)},
        {"DeviceMajCatID", "DevCatID", Device(&clsDevice::MajCatID)},
        {"DeviceMinCatID", "DevMinCatID", Device(&clsDevice::MinCatID)},
        {"DDInstallIniPath", "DDInstallPath", DDInstall(&clsDDInstall::IniPath)},
        {"PyxConfigIniPath", "INIPath", PyxConfig(&clsPyxConfig::IniPath)},
        {"DDInstallDDVersion", "DDVersion",
         [](Run& run) -> std::int16_t& { return run.records.DDInstall().DDVersion; }, kOneWay},
        {"OfferedVersions", "TAVVersionSupport", [](Run& run) -> std::string& { return run.offeredVersions; },
         kOneWay},
        {"FacadeLastTAVVersions", "TAVVersions", Facade(&clsTavDB::LastTAVVersions)},
        {"Language", "Language", [](Run&) -> std::string& { return gsLanguage; }, kOneWay},
    };
}

/// A stored entry: text or decimal number by the name of the value. "DDVersion" and "TAVVersionSupport" are
/// those of the program's own INI file.
using StoredEntry = std::map<std::string, std::string>;

/// 27 values, each unlike the others and unlike its default.
inline StoredEntry Flow() {
    return {{"DBPath", "/db/flow.mdb"},
            {"WindowLeft", "150"},
            {"WindowTop", "-60"},
            {"ManID", "26"},
            {"ManName", "Acme"},
            {"ManDesc", "Acme Inc"},
            {"ProtID", "12"},
            {"TemplateName", "flow.mrg"},
            {"DLLName", "flow.dll"},
            {"DevHelp", "flow.hlp"},
            {"BlkHelp", "block.hlp"},
            {"DevID", "7"},
            {"DevName", "Flow"},
            {"DevDesc", "Flow meter"},
            {"DevRev", "0A"},
            {"DDRev", "02"},
            {"ProtRev", "06"},
            {"DevRevName", "R1"},
            {"DevRevDesc", "First"},
            {"DevCatID", "3"},
            {"DevMinCatID", "4"},
            {"DDInstallPath", "/targets/Ddinstal.ini"},
            {"INIPath", "/targets/Pyx.ini"},
            {"DDVersion", "5"},
            {"TAVVersionSupport", "5.0, 6.0, 7.0"},
            {"TAVVersions", "5.0, 6.0"},
            {"Language", "DE"}};
}

/// Another entry, of which every value is unlike that of Flow.
inline StoredEntry Level() {
    StoredEntry entry = Flow();
    for (auto& [name, text] : entry) text += "1";
    return entry;
}

/// Stores an entry as a run of the program finds it.
inline void Store(const StoredEntry& entry, FakeRegistry& registry, const Machine& machine) {
    WriteBytes(machine.OwnIni(),
               "[DDInstall]\r\nDDVersion=" + entry.at("DDVersion") +
                   "\r\n[TAVVersionSupport]\r\nTAVVersionSupport=" + entry.at("TAVVersionSupport") + "\r\n");
    const std::string root(kSettingsRoot);
    registry.PutText(RegistryRoot::LocalMachine, root + "Settings", "Language", entry.at("Language"));
    for (const SettingRow& row : StoredSettings()) {
        const auto value = entry.find(std::string(row.writtenName));
        if (value == entry.end()) continue;
        const std::string key = root + std::string(row.section);
        if (row.IsNumber()) {
            registry.PutNumber(RegistryRoot::LocalMachine, key, row.name,
                               static_cast<std::uint32_t>(std::stoi(value->second)));
        } else {
            registry.PutText(RegistryRoot::LocalMachine, key, row.name, value->second);
        }
    }
}

}  // namespace ventlock::test
