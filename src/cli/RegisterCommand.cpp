#include "cli/RegisterCommand.h"

#include <memory>
#include <utility>

#include "base/Numbers.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/RegisterPlan.h"
#include "cli/Restarts.h"
#include "cli/UnifiedDiff.h"
#include "db/SchemaVersion.h"
#include "entry/GatherEntry.h"
#include "files/clsDDInstall.h"
#include "files/clsPyxConfig.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;

/// How one target of one entry came out.
struct TargetResult {
    bool isWritten = false;
    std::vector<std::string> messages;  ///< what was logged on the way, driver records last
    std::string advice;
};

std::string ValueText(const RecordValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? "'" + *text + "'" : DecimalText(std::get<double>(value));
}

/// Writes one entry after the other, each with fresh objects: records and writers keep what they found.
class EntryWriter {
 public:
    EntryWriter(Services& services, const RegisterOptions& options, RegisterPlan& plan, Console& console)
        : services_(services), options_(options), plan_(plan), console_(console) {}

    /// True when the entry is in all targets that were asked for.
    bool Write(const PlannedEntry& entry) {
        Begin();
        const std::string title =
            "[" + entry.source->name + "] " + entry.path + ":" + std::to_string(entry.source->line);
        if (options_.isDryRun) console_.WriteLine(title);
        Json targets = Json::object();
        bool isWritten = true;
        const auto write = [&](bool isWanted, const char* key, const std::string& place, auto&& body) {
            if (!isWanted) return;
            Json& json = targets[key] = {{"target", place}};
            if (!isWritten) {
                json["status"] = "skipped";
                return;
            }
            services_.Messages().Take();
            services_.Journal().Clear();
            const TargetResult result = body(json);
            isWritten = result.isWritten;
            json["status"] = isWritten ? (options_.isDryRun ? "planned" : "written") : "failed";
            json["messages"] = result.messages;
            Tell(title, place, result);
        };
        write(options_.targets.database, "database", services_.DataSourceText(),
              [&](Json& json) { return WriteDatabase(entry, json); });
        if (!options_.targets.database) Gather(entry);
        write(options_.targets.ini, "ini", options_.iniPath, [&](Json& json) { return WriteIni(json); });
        write(options_.targets.ddInstall, "ddinstall", options_.ddInstallPath,
              [&](Json& json) { return WriteDDInstall(json); });
        console_.document["entries"].push_back({{"name", entry.source->name},
                                                {"file", entry.path},
                                                {"line", entry.source->line},
                                                {"targets", std::move(targets)}});
        return isWritten;
    }

 private:
    void Begin() {
        const bool isFirst = !facade_;
        ConnectedDatabase& database = plan_.Database();
        // The facade of the start has passed its check; it writes the first entry.
        isReady_ = isFirst && database.facade != nullptr;
        facade_ = isReady_ ? std::move(database.facade) : std::make_unique<clsTavDB>(services_.Events());
        pyxConfig_ = std::make_unique<clsPyxConfig>(services_.Profiles());
        pyxConfig_->Init(services_.Objects(), 2);
        ddInstall_ = std::make_unique<clsDDInstall>(services_.Profiles());
        ddInstall_->Init(services_.Objects(), 2);
        ddInstall_->DDVersion = services_.Settings().DDVersion();
    }

    void Gather(const PlannedEntry& entry) {
        GatherEntry(entry.form, plan_.Database().schemaVersion, &services_.Objects(), *facade_, *ddInstall_,
                    *pyxConfig_);
    }

    /// The facade with its records set up. The schema is looked at again: another program may have changed
    /// it.
    bool MakeReady() {
        if (isReady_) return true;
        isReady_ = facade_->Init(services_.Objects(), 2);
        if (isReady_) services_.Journal().Clear();  // what follows is the entry's own
        return isReady_;
    }

    TargetResult WriteDatabase(const PlannedEntry& entry, Json& json) {
        Json& statements = json["statements"] = Json::array();
        Restarts restarts;
        TargetResult result = TryDatabase(entry, restarts, statements);
        while (!result.isWritten && MayStartAnew() && restarts.StartAnew(services_.Journal())) {
            NoteRestart(entry);
            Begin();
            result = TryDatabase(entry, restarts, statements);
        }
        if (restarts.Count() > 0) json["restarts"] = restarts.Count();
        return result;
    }

    /// One start of an entry, with the objects that Begin has made.
    TargetResult TryDatabase(const PlannedEntry& entry, const Restarts& restarts, Json& statements) {
        const bool isReady = MakeReady();
        Gather(entry);
        // A category that could not be found or made is an error of its own; going on would store another
        // one.
        isGathered_ = services_.Journal().Diagnostics().empty() && services_.Messages().IsEmpty();
        if (isReady && isGathered_ && restarts.MetLeftRow()) TakeOverLeftManufacturer();
        TargetResult result;
        result.isWritten = isReady && isGathered_ && facade_->Update();
        if (!result.isWritten) {
            result.advice = StatementAdvice(services_.Journal().Diagnostics(),
                                            plan_.Database().schemaVersion < kCurrentSchema);
        }
        result.messages = services_.TakeDetails();
        NoteStatements(statements);
        return result;
    }

    /// Rows of the old schema have no numbers that another start could choose anew; categories do.
    [[nodiscard]] bool MayStartAnew() const {
        return !isGathered_ || plan_.Database().schemaVersion >= kCurrentSchema;
    }

    void NoteRestart(const PlannedEntry& entry) {
        auto& log = services_.Objects().Get<clsLog>(kLogKey);
        const std::string text = "[" + entry.source->name + "] " + entry.path +
                                 ": another program was first; the entry is started anew.";
        log.Log(text, {}, {}, Variant(int{kLogToFile}));
    }

    /// A new manufacturer's row is inserted before the protocol row that leads to it. A program that was
    /// ended in between has left a row that no search finds and whose number every new manufacturer is given.
    /// The row becomes this entry's own; the update that refreshes a known manufacturer does that.
    void TakeOverLeftManufacturer() {
        clsManufacturer& manufacturer = facade_->Manufacturer();
        manufacturer.MfrProtocolID();  // searched now and kept
        if (manufacturer.MfrProtocolFound == 0) manufacturer.MfrNameFound = 1;
    }

    /// Adds the statements of this start.
    void NoteStatements(Json& statements) {
        for (const JournalEntry& call : services_.Journal().Entries()) {
            std::string line = call.statement;
            for (std::size_t i = 0; i < call.values.size(); ++i) {
                line += (i == 0 ? "  -- " : ", ") + ValueText(call.values[i].value);
            }
            statements.push_back(line);
            if (options_.isDryRun) console_.WriteLine(line);
        }
    }

    template <class Work>
    TargetResult WriteFile(const std::string& path, Json& json, Work&& work) {
        const bool existed = services_.Files().Exists(path);
        const std::string before = options_.isDryRun ? Shown(path, existed) : std::string();
        TargetResult result;
        result.isWritten = std::forward<Work>(work)();
        result.messages = services_.TakeDetails();
        if (!result.isWritten) result.advice = FileAdvice(ErrorNumber::PathFileAccessError);
        if (options_.isDryRun && result.isWritten) {
            const std::string diff = UnifiedDiff(before, Shown(path, true), path, existed);
            json["diff"] = diff;
            if (!diff.empty()) console_.WriteLine(diff.substr(0, diff.size() - 1));
        }
        return result;
    }

    TargetResult WriteIni(Json& json) {
        return WriteFile(options_.iniPath, json,
                         [&] { return pyxConfig_->Insert(facade_->Manufacturer(), facade_->Device()); });
    }

    TargetResult WriteDDInstall(Json& json) {
        return WriteFile(options_.ddInstallPath, json, [&] {
            return ddInstall_->WriteDDInstall(facade_->Manufacturer(), facade_->Device());
        });
    }

    /// A target file as text for a diff.
    std::string Shown(const std::string& path, bool exists) {
        const std::string bytes = exists ? services_.Files().ReadAll(path) : std::string();
        return ProfileFile(bytes, services_.Profiles().Page()).Text();
    }

    void Tell(const std::string& title, const std::string& place, const TargetResult& result) {
        if (!result.isWritten) {
            console_.WriteError(CliError(ExitCode::TargetFailed,
                                         title + ": " + place + ": the entry was not written",
                                         result.messages, result.advice));
            return;
        }
        console_.WriteNews(title + ": " + place + (options_.isDryRun ? ": would be written" : ": written"));
        if (console_.isJson) return;
        const std::string where = "ventlock-cli: " + title + ": " + place + ": ";
        for (const std::string& message : result.messages) console_.WriteProblem(where + message);
    }

    Services& services_;
    const RegisterOptions& options_;
    RegisterPlan& plan_;
    Console& console_;
    std::unique_ptr<clsTavDB> facade_;
    bool isReady_ = false;     ///< the facade can write to the database
    bool isGathered_ = false;  ///< the entry's categories are found or made
    std::unique_ptr<clsPyxConfig> pyxConfig_;
    std::unique_ptr<clsDDInstall> ddInstall_;
};

}  // namespace

ExitCode RunRegister(Services& services, const RegisterOptions& options, Console& console) {
    console.document["dryRun"] = options.isDryRun;
    RegisterPlan plan(services, options, console);
    plan.Prepare();
    console.document["entries"] = Json::array();
    EntryWriter writer(services, options, plan, console);
    bool isAllWritten = true;
    std::size_t done = 0;
    for (const PlannedEntry& entry : plan.Entries()) {
        console.ShowProgress(done++, plan.Entries().size());
        isAllWritten = writer.Write(entry) && isAllWritten;
    }
    return isAllWritten ? ExitCode::Done : ExitCode::TargetFailed;
}

}  // namespace ventlock
