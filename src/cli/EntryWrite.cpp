#include "cli/EntryWrite.h"

#include <optional>
#include <utility>

#include "cli/Advice.h"
#include "cli/CliError.h"
#include "db/SchemaVersion.h"
#include "files/TargetDiff.h"

namespace ventlock {

EntryWrite::EntryWrite(RegisterRun& run, const PlannedEntry& entry)
    : run_(run), entry_(entry), title_(TitleOf(entry)) {}

void EntryWrite::MakeObjects() {
    objects_ = std::make_unique<EntryObjects>(run_.services, run_.plan, entry_);
}

void EntryWrite::GatherForFiles() {
    MakeObjects();
    objects_->Gather();
}

TargetResult EntryWrite::TryDatabase(bool takesOverLeftRow) {
    Services& services = run_.services;
    services.Messages().Take();
    services.Journal().Clear();
    MakeObjects();
    objects_->PrepareForDatabase();
    const bool isPrepared = objects_->IsReady() && objects_->IsGathered();
    if (isPrepared && takesOverLeftRow) TakeOverLeftManufacturer();
    TargetResult result;
    result.isWritten = isPrepared && objects_->Facade().Update();
    if (!result.isWritten) {
        result.advice = StatementAdvice(services.Journal().Diagnostics(),
                                        run_.plan.Database().schemaVersion < kCurrentSchema);
    }
    result.messages = services.TakeDetails();
    NoteStatements();
    return result;
}

/// Rows of the old schema have no numbers that another start could choose anew; categories do.
bool EntryWrite::MayStartAnew() const {
    return !objects_->IsGathered() || run_.plan.Database().schemaVersion >= kCurrentSchema;
}

/// A new manufacturer's row is inserted before the protocol row that leads to it. A program that was ended in
/// between has left a row that no search finds and whose number every new manufacturer is given. The row
/// becomes this entry's own; the update that refreshes a known manufacturer does that.
void EntryWrite::TakeOverLeftManufacturer() {
    clsManufacturer& manufacturer = objects_->Facade().Manufacturer();
    manufacturer.MfrProtocolID();  // searched now and kept
    if (manufacturer.MfrProtocolFound == 0) manufacturer.MfrNameFound = 1;
}

void EntryWrite::NoteStatements() {
    for (const JournalEntry& call : run_.services.Journal().Entries()) {
        statements_.push_back(StatementLine(call));
    }
}

void EntryWrite::TellTitle() {
    if (run_.options.isDryRun) run_.console.WriteLine(title_);
}

void EntryWrite::NoteDatabase(std::string_view status, const TargetResult& result, int restarts) {
    Json& json = targets_["database"] = {{"target", run_.services.DataSourceText()}};
    json["statements"] = statements_;
    if (restarts > 0) json["restarts"] = restarts;
    NoteResult(json, status, result);
}

void EntryWrite::NoteResult(Json& json, std::string_view status, const TargetResult& result) {
    json["status"] = status;
    json["messages"] = result.messages;
    if (!result.advice.empty()) json["advice"] = result.advice;
}

void EntryWrite::TellDatabase(const TargetResult& result, int restarts) {
    const bool isDryRun = run_.options.isDryRun;
    NoteDatabase(!result.isWritten ? "failed" : isDryRun ? "planned" : "written", result, restarts);
    if (isDryRun) {
        for (const Json& line : statements_) run_.console.WriteLine(line.get<std::string>());
    }
    Tell(run_.services.DataSourceText(), result);
}

bool EntryWrite::WriteFiles(bool isWritten) {
    const RegisterOptions& options = run_.options;
    const auto write = [&](bool isWanted, const char* key, const std::string& path, auto&& work) {
        if (!isWanted) return;
        Json& json = targets_[key] = {{"target", path}};
        if (!isWritten) {
            json["status"] = "skipped";
            return;
        }
        run_.services.Messages().Take();
        run_.services.Journal().Clear();
        const TargetResult result = WriteFile(path, json, work);
        isWritten = result.isWritten;
        NoteResult(json, isWritten ? (options.isDryRun ? "planned" : "written") : "failed", result);
        Tell(path, result);
    };
    write(options.targets.ini, "ini", options.iniPath, [&] {
        return objects_->PyxConfig().Insert(objects_->Facade().Manufacturer(), objects_->Facade().Device());
    });
    write(options.targets.ddInstall, "ddinstall", options.ddInstallPath, [&] {
        return objects_->DDInstall().WriteDDInstall(objects_->Facade().Manufacturer(),
                                                    objects_->Facade().Device());
    });
    return isWritten;
}

template <class Work>
TargetResult EntryWrite::WriteFile(const std::string& path, Json& json, Work&& work) {
    std::optional<TargetDiff> target;
    if (run_.options.isDryRun) target.emplace(run_.services.Profiles(), path);
    TargetResult result;
    result.isWritten = std::forward<Work>(work)();
    result.messages = run_.services.TakeDetails();
    if (!result.isWritten) result.advice = FileAdvice(ErrorNumber::PathFileAccessError);
    if (target && result.isWritten) {
        const std::string diff = target->Text();
        json["diff"] = diff;
        result.staysAsItIs = diff.empty();
        if (!diff.empty()) run_.console.WriteLine(diff.substr(0, diff.size() - 1));
    }
    return result;
}

void EntryWrite::Tell(const std::string& place, const TargetResult& result) {
    Console& console = run_.console;
    if (!result.isWritten) {
        console.WriteError(CliError(ExitCode::TargetFailed,
                                    title_ + ": " + place + ": the entry was not written", result.messages,
                                    result.advice));
        return;
    }
    const char* const end = !run_.options.isDryRun ? ": written"
                            : result.staysAsItIs   ? ": would stay as it is"
                                                   : ": would be written";
    console.WriteNews(title_ + ": " + place + end);
    if (console.isJson) return;
    const std::string where = "ventlock-cli: " + title_ + ": " + place + ": ";
    for (const std::string& message : result.messages) console.WriteProblem(where + message);
}

nlohmann::ordered_json EntryWrite::TakeDocument() {
    return {{"name", entry_.source->name},
            {"file", entry_.path},
            {"line", entry_.source->line},
            {"targets", std::move(targets_)}};
}

}  // namespace ventlock
