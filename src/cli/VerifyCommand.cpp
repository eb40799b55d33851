#include "cli/VerifyCommand.h"

#include <optional>
#include <utility>
#include <vector>

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
        if (options_.targets.ini) ini_ = ReadTarget(services_, options_.iniPath);
        if (options_.targets.ddInstall) ddInstall_ = ReadTarget(services_, options_.ddInstallPath);
        console_.document["entries"] = Json::array();
        std::size_t done = 0;
        for (const PlannedEntry& entry : plan_.Entries()) {
            console_.ShowProgress(done++, plan_.Entries().size());
            Compare(entry);
        }
        console_.document["differences"] = differences_;
        console_.WriteNews(std::to_string(differences_) + " differences");
        return isSame_ ? ExitCode::Done : ExitCode::TargetFailed;
    }

 private:
    void Compare(const PlannedEntry& entry) {
        title_ = "[" + entry.source->name + "] " + entry.path + ":" + std::to_string(entry.source->line);
        targets_ = Json::object();
        EntryObjects objects(services_, plan_, entry);
        if (options_.targets.database) {
            CompareRowsOf(objects);
        } else {
            objects.Gather();
        }
        clsManufacturer& manufacturer = objects.Facade().Manufacturer();
        clsDevice& device = objects.Facade().Device();
        if (ini_) Tell("ini", options_.iniPath, objects.PyxConfig().Compare(*ini_, manufacturer, device));
        if (ddInstall_) {
            Tell("ddinstall", options_.ddInstallPath,
                 objects.DDInstall().Compare(*ddInstall_, manufacturer, device));
        }
        console_.document["entries"].push_back({{"name", entry.source->name},
                                                {"file", entry.path},
                                                {"line", entry.source->line},
                                                {"targets", std::move(targets_)}});
    }

    void CompareRowsOf(EntryObjects& objects) {
        const std::string place = services_.DataSourceText();
        try {
            Tell("database", place, CompareDatabase(services_, plan_, objects));
        } catch (const CliError& error) {
            isSame_ = false;
            targets_["database"] = {{"target", place},
                                    {"status", "failed"},
                                    {"messages", error.Details()},
                                    {"advice", error.Advice()}};
            console_.WriteError(CliError(error.Code(), title_ + ": " + place + ": " + error.what(),
                                         error.Details(), error.Advice()));
        }
    }

    void Tell(const char* key, const std::string& place, const std::vector<Difference>& differences) {
        Json& json = targets_[key] = {{"target", place}};
        json["status"] = differences.empty() ? "same" : "different";
        json["differences"] = Json::array();
        const std::string where = title_ + ": " + place + ": ";
        if (differences.empty()) return console_.WriteNews(where + "same");
        isSame_ = false;
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
    bool isSame_ = true;
};

}  // namespace

ExitCode RunVerify(Services& services, const PlanOptions& options, Console& console) {
    return Verification(services, options, console).Run();
}

}  // namespace ventlock
