#include "cli/VerifyCommand.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/EntryComparison.h"
#include "cli/RegisterPlan.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;

std::string_view KindWord(Difference::Kind kind) {
    switch (kind) {
        case Difference::Kind::Missing:
            return "missing";
        case Difference::Kind::Repeated:
            return "repeated";
        case Difference::Kind::Value:
            break;
    }
    return "value";
}

Json DocumentOf(const Difference& difference) {
    return {{"kind", KindWord(difference.kind)},
            {"place", difference.place},
            {"item", difference.item},
            {"expected", difference.expected},
            {"found", difference.found ? Json(*difference.found) : Json()},
            {"text", DifferenceText(difference)}};
}

class Verification {
 public:
    Verification(Services& services, const PlanOptions& options, Console& console)
        : services_(services), options_(options), console_(console), plan_(services, options, console) {}

    ExitCode Run() {
        plan_.Prepare();
        if (options_.targets.ini) ini_ = ReadTarget(services_, options_.iniPath, kIniPathNaming);
        if (options_.targets.ddInstall) {
            ddInstall_ = ReadTarget(services_, options_.ddInstallPath, kDDInstallPathNaming);
        }
        console_.document["entries"] = Json::array();
        std::size_t done = 0;
        for (const PlannedEntry& entry : plan_.Entries()) {
            console_.ShowProgress(done++, plan_.Entries().size());
            Compare(entry);
        }
        console_.document["differences"] = differences_;
        const std::string failed = failures_ == 0 ? "" : ", " + std::to_string(failures_) + " not compared";
        console_.WriteNews(Counted(differences_, "difference") + failed);
        return differences_ == 0 && failures_ == 0 ? ExitCode::Done : ExitCode::TargetFailed;
    }

 private:
    void Compare(const PlannedEntry& entry) {
        title_ = TitleOf(entry);
        targets_ = Json::object();
        EntryObjects objects(services_, plan_, entry);
        if (options_.targets.database) {
            Compare("database", services_.DataSourceText(),
                    [&] { return CompareDatabase(services_, plan_, objects); });
        } else {
            objects.Gather();
        }
        clsManufacturer& manufacturer = objects.Facade().Manufacturer();
        clsDevice& device = objects.Facade().Device();
        if (ini_) {
            Compare("ini", options_.iniPath,
                    [&] { return objects.PyxConfig().Compare(*ini_, manufacturer, device); });
        }
        if (ddInstall_) {
            Compare("ddinstall", options_.ddInstallPath,
                    [&] { return objects.DDInstall().Compare(*ddInstall_, manufacturer, device); });
        }
        console_.document["entries"].push_back({{"name", entry.source->name},
                                                {"file", entry.path},
                                                {"line", entry.source->line},
                                                {"targets", std::move(targets_)}});
    }

    /// A target that cannot be compared does not keep the others from it.
    void Compare(const char* key, const std::string& place,
                 const std::function<std::vector<Difference>()>& compare) {
        try {
            Tell(key, place, compare());
        } catch (const CliError& error) {
            TellFailure(key, place, error);
        } catch (const RunTimeError& error) {
            TellFailure(key, place, CliError(ExitCode::TargetFailed, error.what(), error.Diagnostics()));
        }
    }

    void TellFailure(const char* key, const std::string& place, const CliError& error) {
        ++failures_;
        const std::string text = place + ": " + error.what();
        std::vector<std::string> messages = error.Details();
        if (messages.empty()) messages.push_back(text);
        targets_[key] = {{"target", place},
                         {"status", "failed"},
                         {"messages", std::move(messages)},
                         {"advice", error.Advice()}};
        console_.WriteError(CliError(error.Code(), title_ + ": " + text, error.Details(), error.Advice()));
    }

    void Tell(const char* key, const std::string& place, const std::vector<Difference>& differences) {
        Json& json = targets_[key] = {{"target", place}};
        json["status"] = differences.empty() ? "same" : "different";
        json["differences"] = Json::array();
        const std::string where = title_ + ": " + place + ": ";
        if (differences.empty()) return console_.WriteNews(where + "same");
        differences_ += differences.size();
        for (const Difference& difference : differences) {
            json["differences"].push_back(DocumentOf(difference));
            console_.WriteLine(where + DifferenceText(difference));
        }
    }

    Services& services_;
    const PlanOptions& options_;
    Console& console_;
    RegisterPlan plan_;
    std::optional<ProfileFile> ini_;
    std::optional<ProfileFile> ddInstall_;
    std::string title_;  ///< of the entry under comparison
    Json targets_;       ///< its part of the document
    std::size_t differences_ = 0;
    std::size_t failures_ = 0;  ///< targets that could not be compared
};

}  // namespace

ExitCode RunVerify(Services& services, const PlanOptions& options, Console& console) {
    return Verification(services, options, console).Run();
}

}  // namespace ventlock
