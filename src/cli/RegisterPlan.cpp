#include "cli/RegisterPlan.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/ShownText.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "db/ReferenceLists.h"
#include "db/SchemaVersion.h"
#include "entry/SameDevice.h"

namespace ventlock {

std::string TitleOf(const PlannedEntry& entry) {
    return ShownWord("[" + entry.source->name + "] " + entry.path) + ":" + std::to_string(entry.source->line);
}

RegisterPlan::RegisterPlan(Services& services, const PlanOptions& options, Console& console)
    : services_(services), options_(options), console_(console) {}

void RegisterPlan::Prepare() {
    NoteTargets();
    Prepare(LoadEntryFiles(services_, options_.files, console_));
}

void RegisterPlan::Prepare(std::vector<LoadedEntryFile> files) {
    TakeEntries(std::move(files));
    // What holds for every schema comes first: an entry that is wrong anyway needs no database to be refused.
    std::vector<FileFindings> findings = CheckEntries(kOldSchema);
    EndOnErrors(findings);
    if (!options_.isReadOnly) RequireTargets();
    if (options_.targets.database) {
        ConnectDatabase();
        findings = CheckEntries(database_.schemaVersion);
        if (database_.schemaVersion >= kCurrentSchema) {
            for (PlannedEntry& entry : entries_) {
                findings.push_back({entry.path, ChooseFromLists(*entry.source, database_.lists,
                                                                database_.schemaVersion, entry.form)});
            }
        }
        EndOnErrors(findings);
    }
    WriteFindings(findings);
}

/// Where the entries are to go.
void RegisterPlan::NoteTargets() {
    auto& targets = console_.document["targets"] = nlohmann::ordered_json::object();
    if (options_.targets.database) targets["database"] = services_.DataSourceText();
    if (options_.targets.ini) targets["ini"] = options_.iniPath;
    if (options_.targets.ddInstall) targets["ddinstall"] = options_.ddInstallPath;
}

void RegisterPlan::TakeEntries(std::vector<LoadedEntryFile> files) {
    files_ = std::move(files);
    std::vector<FileFindings> findings;
    for (const LoadedEntryFile& file : files_) findings.push_back({file.path, file.content.findings});
    EndOnErrors(findings);
    const TargetPaths paths{options_.iniPath, options_.ddInstallPath};
    for (const LoadedEntryFile& file : files_) {
        for (const FileEntry& entry : file.content.entries) {
            entries_.push_back({file.path, &entry, ToForm(entry, paths, services_.Events())});
        }
    }
}

void RegisterPlan::RequireTargets() {
    const auto require = [&](bool isWanted, const std::string& name, const std::string& path,
                             std::string_view naming) {
        if (!isWanted) return;
        try {
            services_.Files().RequireReplaceable(path);
        } catch (const RunTimeError& error) {
            throw CliError(CodeOf(error), (path.empty() ? name : path) + ": " + error.what(), {},
                           FileAdvice(error.Number(), naming));
        }
    };
    require(options_.targets.ini, "Pyx.ini", options_.iniPath, kIniPathNaming);
    require(options_.targets.ddInstall, "Ddinstal.ini", options_.ddInstallPath, kDDInstallPathNaming);
}

void RegisterPlan::ConnectDatabase() {
    services_.Connect(database_.facade, database_.schemaVersion);
    if (database_.schemaVersion < kCurrentSchema) return;
    ReferenceLists& lists = database_.lists;
    if (LoadReferenceLists(*database_.facade, lists.protocols, lists.majorCategories, lists.minorCategories))
        return;
    throw CliError(ExitCode::Unreachable,
                   services_.DataSourceText() + ": its protocols and categories cannot be read",
                   services_.TakeDetails(), StatementAdvice(services_.Journal().Diagnostics()));
}

std::vector<FileFindings> RegisterPlan::CheckEntries(std::int16_t schemaVersion) {
    CheckContext context;
    context.targets = options_.targets;
    context.schemaVersion = schemaVersion;
    std::optional<ProfileFile> ini;
    std::optional<ProfileFile> ddInstall;
    if (options_.targets.ini) context.ini = &ini.emplace(EncodingOfTarget(services_, options_.iniPath));
    if (options_.targets.ddInstall)
        context.ddInstall = &ddInstall.emplace(EncodingOfTarget(services_, options_.ddInstallPath));
    std::vector<FileFindings> findings;
    SameDevices sameDevices;
    for (const PlannedEntry& entry : entries_) {
        if (auto same = sameDevices.Take(entry.path, *entry.source))
            findings.push_back({entry.path, {*std::move(same)}});
        findings.push_back({entry.path, CheckEntry(*entry.source, context)});
    }
    return findings;
}

void RegisterPlan::EndOnErrors(const std::vector<FileFindings>& findings) {
    const bool isWrong = std::any_of(findings.begin(), findings.end(),
                                     [](const FileFindings& file) { return HasErrors(file.findings); });
    if (!isWrong) return;
    WriteFindings(findings);
    const std::string undone = options_.isReadOnly ? "compared" : "written";
    throw CliError(ExitCode::WrongCall, "the entry files hold errors; nothing was " + undone, {},
                   "Mend what the findings name and run the command again.");
}

void RegisterPlan::WriteFindings(const std::vector<FileFindings>& findings) {
    auto& list = console_.document["findings"] = nlohmann::ordered_json::array();
    for (const FileFindings& file : findings) {
        for (const Finding& finding : file.findings) {
            list.push_back(Console::FindingJson(file.path, finding));
            const bool isNews = finding.severity == Severity::Warning;
            if (!console_.isJson && !(isNews && console_.isQuiet)) {
                console_.WriteProblem(FindingLine(file.path, finding));
            }
        }
    }
}

}  // namespace ventlock
