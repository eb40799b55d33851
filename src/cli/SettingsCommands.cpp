#include "cli/SettingsCommands.h"

#include <utility>
#include <vector>

#include "base/Numbers.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/EntryFiles.h"
#include "core/OwnFiles.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

using NamedValues = std::vector<std::pair<std::string, std::string>>;

NamedValues AllSettings(const clsSettings& settings) {
    NamedValues values;
    for (const SettingRow& row : StoredSettings()) {
        values.emplace_back(row.writtenName, settings.SettingText(row));
    }
    values.emplace_back(kDataSourceKey, settings.DSN);
    values.emplace_back("Language", settings.Language);
    values.emplace_back("DDVersion", settings.DDInstallVersion);
    values.emplace_back("TAVVersionSupport", settings.TAVVersions);
    return values;
}

[[noreturn]] void RefuseName(const std::string& name) {
    throw CliError(ExitCode::WrongCall, "there is no setting \"" + name + "\"", {},
                   "List them with \"ventlock-cli settings list\".");
}

}  // namespace

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
    for (const char* const own : {"DDVersion", "TAVVersionSupport"}) {
        if (!EqualIgnoringCase(name, own)) continue;
        throw CliError(
            ExitCode::WrongCall,
            std::string(own) + " is no setting of this user; it stands in the program's own INI file", {},
            "Change it in " + OwnIniPath(services.Machine().Paths(), services.Machine().Files()) + ".");
    }
    RegistryStatus status = kRegistrySuccess;
    if (EqualIgnoringCase(name, "Language")) {
        status = settings.StoreLanguage(value);
    } else {
        const SettingRow* row = FindSetting(name);
        if (row == nullptr) RefuseName(name);
        try {
            if (row->IsNumber()) ToInteger(RequireNumber(value));
            status = settings.StoreSetting(*row, value);
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
    return ExitCode::Done;
}

}  // namespace ventlock
