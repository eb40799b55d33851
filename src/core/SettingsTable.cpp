#include "core/SettingsTable.h"

#include <array>

#include "core/clsSettings.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

constexpr SettingRow Row(std::string_view step, std::string_view section, std::string_view name,
                         std::string clsSettings::*property, std::string_view defaultText) {
    return {step, section, name, section, name, property, property, defaultText};
}

constexpr SettingRow Number(std::string_view step, std::string_view section, std::string_view name,
                            std::int16_t clsSettings::*property, std::string_view defaultText) {
    return {step, section, name, section, name, property, property, defaultText};
}

constexpr SettingRow WrittenAs(SettingRow row, std::string_view section, std::string_view name) {
    row.writtenSection = section;
    row.writtenName = name;
    return row;
}

constexpr SettingRow SavedFrom(SettingRow row, std::string clsSettings::*property) {
    row.savedProperty = property;
    return row;
}

using S = clsSettings;

// "ErrLogPath", "INIPath" and "DBPath" have defaults that depend on the machine: clsSettings fills them in.
constexpr auto kRows = std::to_array<SettingRow>({
    Number("01", "Settings", "WindowTop", &S::WindowTop, "0"),
    Number("01", "Settings", "WindowLeft", &S::WindowLeft, "0"),
    Number("01", "Settings", "WindowHeight", &S::WindowHeight, "0"),
    Number("01", "Settings", "WindowWidth", &S::WindowWidth, "0"),
    WrittenAs(Number("01", "Settings", "Windowstate", &S::WindowState, "0"), "Settings", "WindowState"),
    Row("02", "ErrorLog", "ErrLogPath", &S::ErrLogPath, ""),
    Number("02", "ErrorLog", "ErrLogLevel", &S::ErrLogLevel, "3"),
    Number("02", "ErrorLog", "DebugMode", &S::DebugMode, "0"),
    WrittenAs(Row("03", "paths", "DDInstallPath", &S::DDInstallPath, "A:\\Ddinstal.ini"), "Paths",
              "DDInstallPath"),
    WrittenAs(Row("03.1", "paths", "INIPath", &S::INIPath, ""), "Paths", "INIPath"),
    Row("03.2", "Paths", "DBPath", &S::DBPath, "C:\\TAV\\DB\\pyxall.mdb"),
    Row("04", "Settings", "ManID", &S::ManID, ""),
    Row("04", "Settings", "ManName", &S::ManName, ""),
    Row("04", "Settings", "ManDesc", &S::ManDesc, ""),
    Row("04", "Settings", "ProtID", &S::ProtID, "0"),
    Row("04", "Settings", "TemplateName", &S::MRGPath, ""),
    Row("04", "Settings", "DLLName", &S::DLLName, ""),
    Row("04", "Settings", "DevHelp", &S::DevHelp, ""),
    Row("04", "Settings", "BlkHelp", &S::BlkHelp, ""),
    Row("04", "Settings", "DevID", &S::DevID, ""),
    Row("04", "Settings", "DevName", &S::DevName, ""),
    Row("04", "Settings", "DevDesc", &S::DevDesc, ""),
    Row("04", "Settings", "DevRev", &S::DevRev, "01"),
    Row("04", "Settings", "DDRev", &S::DDRev, "01"),
    Row("04", "Settings", "DevRevName", &S::RevName, ""),
    Row("04", "Settings", "DevRevDesc", &S::RevDesc, ""),
    Row("04", "Settings", "ProtRev", &S::ProtRev, "05"),
    Row("04", "Settings", "DevCatID", &S::DevCatID, "0"),
    Row("04", "Settings", "DevMinCatID", &S::DevMinCatID, "0"),
    SavedFrom(Row("04", "Settings", "TAVVersions", &S::TAVVersions, "5.0"), &S::LastTAVVersions),
});

constexpr std::array<std::string_view, 30> kSaveOrder = {
    "WindowTop",   "WindowLeft", "WindowHeight", "WindowWidth",   "WindowState", "ErrLogPath",
    "ErrLogLevel", "DebugMode",  "DBPath",       "DDInstallPath", "INIPath",     "ManID",
    "ManName",     "ManDesc",    "ProtID",       "DevID",         "DevName",     "DevDesc",
    "DevRev",      "DDRev",      "ProtRev",      "DevRevName",    "DevRevDesc",  "DevCatID",
    "DevMinCatID", "DLLName",    "TemplateName", "DevHelp",       "BlkHelp",     "TAVVersions",
};
static_assert(kRows.size() == kSaveOrder.size());

constexpr auto kLateSettings = std::to_array<LateSetting>({
    {kRecentDDInstallPaths, false},
    {kRecentINIPaths, false},
    {kLogWindowLeft, true},
    {kLogWindowTop, true},
});

}  // namespace

std::span<const SettingRow> StoredSettings() {
    return kRows;
}

std::span<const LateSetting> LateSettings() {
    return kLateSettings;
}

const LateSetting* FindLateSetting(std::string_view name) {
    for (const LateSetting& setting : kLateSettings) {
        if (EqualIgnoringCase(setting.name, name)) return &setting;
    }
    return nullptr;
}

std::span<const std::string_view> SaveOrder() {
    return kSaveOrder;
}

const SettingRow* FindSetting(std::string_view name) {
    for (const SettingRow& row : kRows) {
        if (EqualIgnoringCase(row.writtenName, name)) return &row;
    }
    return nullptr;
}

}  // namespace ventlock
