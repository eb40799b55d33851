#include "cli/ExportCommand.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "base/DeviceTexts.h"
#include "base/Numbers.h"
#include "base/ShownText.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/EntryComparison.h"
#include "cli/EntryFiles.h"
#include "cli/RegisterPlan.h"
#include "core/modCommonTools.h"
#include "db/StoredDevices.h"
#include "entry/EntryFile.h"
#include "files/EntryNames.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;

struct ChoiceOption {
    std::string_view name;
    std::string_view key;
    std::optional<std::string> DeviceChoice::*text;
    bool isHexadecimal;
};

constexpr auto kChoiceOptions =
    std::to_array<ChoiceOption>({{"--man-id", "ManID", &DeviceChoice::manufacturer, true},
                                 {"--dev-id", "DevID", &DeviceChoice::type, true},
                                 {"--dev-rev", "DevRev", &DeviceChoice::revision, true},
                                 {"--prot-id", "ProtID", &DeviceChoice::protocol, false}});

std::string TextAt(const DeviceTexts& device, std::string_view key) {
    const auto found = device.find(key);
    return found == device.end() ? std::string() : found->second;
}

std::string RequireId(const ChoiceOption& option, const std::string& text) {
    const char* const digits = option.isHexadecimal ? "0123456789ABCDEFabcdef" : "0123456789";
    if (text.empty() || text.size() > kMostIdDigits || text.find_first_not_of(digits) != std::string::npos) {
        throw CliError(
            ExitCode::WrongCall, std::string(option.name) + " \"" + text + "\" is no id", {},
            option.isHexadecimal ? "Give hexadecimal digits, 0A for one." : "Give decimal digits.");
    }
    return option.isHexadecimal ? HexText(HexToNumber(text)) : DecimalText(NumericValue(text));
}

class Export {
 public:
    Export(Services& services, const ExportOptions& options, Console& console)
        : services_(services), options_(options), console_(console) {}

    ExitCode Run() {
        const std::vector<std::pair<std::string, std::string>> more = MoreTexts();
        if (options_.output) RequireNewFile();
        ReadSource();
        Choose();
        if (options_.isList) return List();
        if (devices_.size() != 1) RefuseChoice();
        FileEntry entry = EntryOf(devices_.front());
        for (const auto& [key, text] : more) Set(entry, key, text);
        const std::string text = TextOf(entry);
        TellLosses(text);
        Write(entry, text);
        return ExitCode::Done;
    }

 private:
    /// Keys in their own spelling, and their texts.
    std::vector<std::pair<std::string, std::string>> MoreTexts() const {
        std::vector<std::pair<std::string, std::string>> more;
        for (const std::string& given : options_.more) {
            const std::size_t at = given.find('=');
            const std::string name = given.substr(0, at);
            const auto keys = EntryKeys();
            const auto key = std::find_if(keys.begin(), keys.end(), [&](const EntryKey& known) {
                return EqualIgnoringCase(known.name, name);
            });
            if (at == std::string::npos || key == keys.end()) {
                throw CliError(ExitCode::WrongCall, "--set \"" + given + "\" is no KEY=VALUE of an entry", {},
                               "The keys are those of entry files, DLLName=flow.dll for one.");
            }
            more.emplace_back(key->name, given.substr(at + 1));
        }
        return more;
    }

    [[nodiscard]] std::string OutputPath() const { return services_.Absolute(*options_.output); }

    void RequireNewFile() const {
        IFiles& files = services_.Machine().Files();
        try {
            files.RequireReplaceable(OutputPath());
        } catch (const RunTimeError& error) {
            RefuseFile(error);
        }
        if (!options_.mayReplace && files.Exists(OutputPath())) {
            throw CliError(ExitCode::WrongCall, *options_.output + " exists", {},
                           "Name a new file, or replace this one with --force.");
        }
        RequireNoneOfOthers();
    }

    /// The file to be replaced, under whatever name, is not the source or another target.
    void RequireNoneOfOthers() const {
        IFiles& files = services_.Machine().Files();
        try {
            if (!files.Exists(OutputPath()) || MayBeEntryFile(files.ReadAll(OutputPath()))) return;
        } catch (const RunTimeError& error) {
            RefuseFile(error);
        }
        throw CliError(ExitCode::WrongCall, *options_.output + " is no entry file", {},
                       "Name another file, or remove this one.");
    }

    [[noreturn]] void RefuseFile(const RunTimeError& error) const {
        throw CliError(CodeOf(error), *options_.output + ": " + error.what(), {}, FileAdvice(error.Number()));
    }

    void ReadSource() {
        if (!options_.isDatabase) {
            const ProfileFile file = RequireTarget();
            devices_ = clsDDInstall(services_.Profiles()).Devices(file);
            source_ = options_.ddInstallPath;
            return;
        }
        source_ = services_.DataSourceText();
        std::unique_ptr<clsTavDB> facade;
        std::int16_t schemaVersion = 0;
        services_.Connect(facade, schemaVersion);
        try {
            devices_ = StoredDevices(*services_.Connection(), schemaVersion);
        } catch (const RunTimeError& error) {
            throw CliError(ExitCode::TargetFailed, source_ + ": " + error.what(), services_.TakeDetails(),
                           StatementAdvice(error.Diagnostics()));
        }
    }

    /// The source file, which must be there.
    ProfileFile RequireTarget() {
        try {
            return {services_.Files().ReadAll(options_.ddInstallPath), services_.Profiles().Page()};
        } catch (const RunTimeError& error) {
            const bool isMissing = error.Number() == ErrorNumber::FileNotFound;
            throw CliError(isMissing ? ExitCode::Unreachable : CodeOf(error),
                           options_.ddInstallPath + ": " + error.what(), {},
                           FileAdvice(error.Number(), kDDInstallPathNaming));
        }
    }

    void Choose() {
        for (const ChoiceOption& option : kChoiceOptions) {
            const std::optional<std::string>& given = options_.choice.*option.text;
            if (!given) continue;
            const std::string id = RequireId(option, *given);
            std::erase_if(devices_,
                          [&](const DeviceTexts& device) { return TextAt(device, option.key) != id; });
        }
    }

    ExitCode List() {
        constexpr auto kColumns =
            std::to_array<std::string_view>({"ManID", "DevID", "DevRev", "ProtID", "ManName", "DevName"});
        const auto write = [&](auto&& textOf) {
            std::string line;
            for (const std::string_view column : kColumns)
                line.append(ShownWord(textOf(column))).append("\t");
            line.pop_back();
            console_.WriteLine(line);
        };
        auto& list = console_.document["devices"] = Json::array();
        write([](std::string_view column) { return column; });
        for (const DeviceTexts& device : devices_) {
            write([&](std::string_view column) { return TextAt(device, column); });
            list.push_back(device);
        }
        return ExitCode::Done;
    }

    [[noreturn]] void RefuseChoice() const {
        if (devices_.empty()) {
            throw CliError(ExitCode::WrongCall, source_ + ": there is no such device", {},
                           "List what is there with --list.");
        }
        constexpr std::size_t kMostShown = 20;
        std::vector<std::string> matches;
        for (const DeviceTexts& device : devices_) {
            if (matches.size() == kMostShown) {
                matches.push_back("and " + std::to_string(devices_.size() - kMostShown) + " more");
                break;
            }
            std::string line;
            for (const ChoiceOption& option : kChoiceOptions) {
                const std::string id = TextAt(device, option.key);
                if (!id.empty()) line.append(option.name).append(" ").append(id).append(" ");
            }
            matches.push_back(line + " " + ShownWord(TextAt(device, "ManName")) + ", " +
                              ShownWord(TextAt(device, "DevName")));
        }
        throw CliError(ExitCode::WrongCall,
                       source_ + ": " + std::to_string(devices_.size()) + " devices match", matches,
                       "Choose one with --man-id, --dev-id, --dev-rev and --prot-id.");
    }

    /// A list's item is told by its name or its id: the one that is given takes the other's place.
    static void Set(FileEntry& entry, const std::string& key, const std::string& text) {
        constexpr auto kEither = std::to_array<std::pair<std::string_view, std::string_view>>(
            {{"Protocol", "ProtID"}, {"MajorCategory", "DevCatID"}, {"MinorCategory", "DevMinCatID"}});
        for (const auto& [name, id] : kEither) {
            if (key == name) entry.values.erase(std::string(id));
            if (key == id) entry.values.erase(std::string(name));
        }
        entry.values[key] = {text, 0};
    }

    static FileEntry EntryOf(const DeviceTexts& device) {
        FileEntry entry;
        entry.name = DeviceKey(TextAt(device, "ManID"), TextAt(device, "DevID"), TextAt(device, "DevRev"));
        entry.line = 1;
        for (const auto& [key, text] : device) entry.values[key] = {text, 0};
        return entry;
    }

    static std::string TextOf(const FileEntry& entry) {
        try {
            return EntryText(entry);
        } catch (const RunTimeError& error) {
            throw CliError(ExitCode::TargetFailed,
                           std::string("the device cannot be exported: ") + error.what(), {},
                           "Mend the text in the source.");
        }
    }

    /// Compares the entry with its source in the way of a registration.
    void TellLosses(const std::string& text) {
        PlanOptions options{{}, {}, "", options_.ddInstallPath, true};
        (options_.isDatabase ? options.targets.database : options.targets.ddInstall) = true;
        const std::string name = options_.output.value_or("stdout");
        try {
            RegisterPlan plan(services_, options, console_);
            plan.Prepare({{name, ParseEntryFile(text)}});
            EntryObjects objects(services_, plan, plan.Entries().front());
            if (options_.isDatabase) return TellLosses(CompareDatabase(services_, plan, objects));
            objects.Gather();
            clsTavDB& facade = objects.Facade();
            TellLosses(objects.DDInstall().Compare(
                ReadTarget(services_, options_.ddInstallPath, kDDInstallPathNaming), facade.Manufacturer(),
                facade.Device()));
            TellChangedForm(objects);
        } catch (const CliError& error) {
            if (error.Code() != ExitCode::WrongCall) throw;  // nothing is known of the entry then
            console_.WriteWarning("the entry cannot be registered in its source as it is: " +
                                  std::string(error.what()));
        }
    }

    /// A registration writes the same texts, but perhaps without quotes and blanks around them. Tried on
    /// files that only these services see; one that cannot be written is none that it could change.
    void TellChangedForm(EntryObjects& objects) {
        const std::string before = services_.Files().ReadAll(options_.ddInstallPath);
        clsTavDB& facade = objects.Facade();
        if (!objects.DDInstall().WriteDDInstall(facade.Manufacturer(), facade.Device())) return;
        if (services_.Files().ReadAll(options_.ddInstallPath) != before) {
            console_.WriteWarning("a registration would write some of the source's lines in another form");
        }
    }

    void TellLosses(const std::vector<Difference>& differences) {
        for (const Difference& difference : differences) {
            console_.WriteWarning("a registration would change the source: " + DifferenceText(difference));
        }
    }

    void Write(const FileEntry& entry, const std::string& text) {
        console_.document["entry"] = {{"name", entry.name}, {"values", Json::object()}};
        Json& values = console_.document["entry"]["values"];
        for (const auto& [key, value] : entry.values) values[key] = value.text;
        console_.document["text"] = text;
        if (!options_.output) {
            if (!console_.isJson && ShownText(text) != text) {
                throw CliError(ExitCode::WrongCall, "the entry holds control characters", {},
                               "Write it to a file with --output.");
            }
            console_.WriteLine(text.substr(0, text.size() - 1));
            return;
        }
        try {
            IFiles& files = services_.Machine().Files();
            const auto lock = files.Lock(OutputPath());
            RequireNewFile();
            files.Replace(OutputPath(), text);
        } catch (const RunTimeError& error) {
            RefuseFile(error);
        }
        console_.document["file"] = OutputPath();
        console_.WriteNews(*options_.output + ": written");
    }

    Services& services_;
    const ExportOptions& options_;
    Console& console_;
    std::string source_;  ///< as messages name it
    std::vector<DeviceTexts> devices_;
};

}  // namespace

ExitCode RunExport(Services& services, const ExportOptions& options, Console& console) {
    return Export(services, options, console).Run();
}

}  // namespace ventlock
