#include "cli/SettingsCommands.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/Numbers.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/EntryFiles.h"
#include "core/OwnFiles.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

using NamedValues = std::vector<std::pair<std::string, std::string>>;

/// A setting that is kept elsewhere than the rows of StoredSettings.
struct OtherSetting {
    std::string_view name;
    std::string clsSettings::*property;
    bool isChanged;  ///< by a command; the others stand in the program's own INI file
};

constexpr std::array kOtherSettings = {
    OtherSetting{kDataSourceKey, &clsSettings::DSN, true},
    OtherSetting{"Language", &clsSettings::Language, true},
    OtherSetting{"DDVersion", &clsSettings::DDInstallVersion, false},
    OtherSetting{"TAVVersionSupport", &clsSettings::TAVVersions, false},
};

NamedValues AllSettings(clsSettings& settings) {
    NamedValues values;
    for (const SettingRow& row : StoredSettings()) {
        values.emplace_back(row.writtenName, settings.SettingText(row));
    }
    for (const OtherSetting& other : kOtherSettings)
        values.emplace_back(other.name, settings.*other.property);
    for (const LateSetting& late : LateSettings()) values.emplace_back(late.name, settings.LateText(late));
    return values;
}

/// A target's path counts from another folder in the window than on the command line, unless it is absolute.
bool IsTargetPath(const SettingRow& row) {
    const auto* property = std::get_if<SettingRow::TextProperty>(&row.property);
    return property != nullptr &&
           (*property == &clsSettings::INIPath || *property == &clsSettings::DDInstallPath);
}

/// Where to change what the program's own INI file says. One that is yet to be made takes the place of the
/// one beside the program as a whole.
std::string OwnIniAdvice(IPaths& paths, IFiles& files) {
    const std::string changed = OwnIniPathToChange(paths);
    const std::string read = OwnIniPath(paths, files);
    if (read == changed || !files.Exists(read)) return "Change it in " + changed + ".";
    return "Copy " + read + " to " + changed + ", which is then read in its place, and change it there.";
}

void WarnOfLanguage(const TavDictionary& dictionary, const std::string& language, Console& console) {
    if (language.empty()) return;  // the system's is taken
    const std::string shown = dictionary.ShownLanguage(language);
    if (shown.empty() || shown == UpperCase(language)) return;
    console.WriteWarning("the dictionaries have no language " + language + "; " + shown + " is shown");
}

[[noreturn]] void RefuseName(const std::string& name) {
    throw CliError(ExitCode::WrongCall, "there is no setting \"" + name + "\"", {},
                   "List them with \"ventlock-cli settings list\".");
}

}  // namespace

std::vector<std::string> SettingNames(bool isToChange) {
    std::vector<std::string> names;
    for (const SettingRow& row : StoredSettings()) names.emplace_back(row.writtenName);
    for (const OtherSetting& other : kOtherSettings) {
        if (other.isChanged || !isToChange) names.emplace_back(other.name);
    }
    for (const LateSetting& late : LateSettings()) names.emplace_back(late.name);
    return names;
}

ExitCode ListSettings(Services& services, Console& console) {
    auto& json = console.document["settings"] = nlohmann::ordered_json::object();
    for (const auto& [name, value] : AllSettings(services.Settings())) {
        json[name] = value;
        console.WriteLine(std::string(name).append("=").append(value));
    }
    return ExitCode::Done;
}

ExitCode GetSetting(Services& services, const std::string& name, Console& console) {
    for (const auto& [known, value] : AllSettings(services.Settings())) {
        if (!EqualIgnoringCase(known, name)) continue;
        console.document["name"] = known;
        console.document["value"] = value;
        console.WriteLine(value);
        return ExitCode::Done;
    }
    RefuseName(name);
}

ExitCode SetSetting(Services& services, const std::string& name, const std::string& value, Console& console) {
    clsSettings& settings = services.Settings();
    if (EqualIgnoringCase(name, kDataSourceKey)) {
        try {
            services.Profiles().Write(settings.INIPath, kDataSourceSection, kDataSourceKey, value);
        } catch (const RunTimeError& error) {
            throw CliError(CodeOf(error), settings.INIPath + ": " + error.what(), {},
                           FileAdvice(error.Number()));
        }
        console.WriteNews(std::string(kDataSourceKey) + "=" + value);
        return ExitCode::Done;
    }
    for (const OtherSetting& own : kOtherSettings) {
        if (own.isChanged || !EqualIgnoringCase(name, own.name)) continue;
        throw CliError(
            ExitCode::WrongCall,
            std::string(own.name) + " is no setting of this user; it stands in the program's own INI file",
            {}, OwnIniAdvice(services.Machine().Paths(), services.Machine().Files()));
    }
    RegistryStatus status = kRegistrySuccess;
    bool isAnywhere = false;
    const bool isLanguage = EqualIgnoringCase(name, "Language");
    if (isLanguage) {
        status = settings.StoreLanguage(value);
    } else {
        const SettingRow* row = FindSetting(name);
        const LateSetting* late = FindLateSetting(name);
        if (row == nullptr && late == nullptr) RefuseName(name);
        isAnywhere = row != nullptr && IsTargetPath(*row) && services.Absolute(value) != value;
        try {
            if (row != nullptr ? row->IsNumber() : late->isNumber) ToInteger(RequireNumber(value));
            status = row != nullptr ? settings.StoreSetting(*row, value) : settings.StoreLate(*late, value);
        } catch (const RunTimeError& error) {
            throw CliError(ExitCode::WrongCall, name + " \"" + value + "\": " + error.what(), {},
                           "Give a whole number from -32768 to 32767.");
        }
    }
    if (status != kRegistrySuccess) {
        throw CliError(ExitCode::TargetFailed,
                       name + " was not stored; the settings store answered " + std::to_string(status), {},
                       "Check that you may write the settings store.");
    }
    console.WriteNews(name + "=" + value);
    if (isLanguage) WarnOfLanguage(services.Dictionary(), value, console);
    if (isAnywhere) {
        console.WriteWarning(
            name +
            " is relative: here it counts from the working folder, in the window from the program's folder");
    }
    return ExitCode::Done;
}

}  // namespace ventlock
