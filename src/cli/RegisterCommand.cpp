#include "cli/RegisterCommand.h"

#include <algorithm>
#include <string>

#include "cli/EntryWrite.h"
#include "cli/OneTransaction.h"
#include "cli/RegisterPlan.h"
#include "cli/ReportCases.h"
#include "cli/Restarts.h"

namespace ventlock {
namespace {

/// Writes an entry to the database, with as many starts as it takes, and tells how that came out.
bool WriteDatabase(RegisterRun& run, const PlannedEntry& planned, EntryWrite& entry) {
    Restarts restarts(Restarts::Of::Entry);
    TargetResult result = entry.TryDatabase(false);
    while (!result.isWritten && entry.MayStartAnew() && restarts.StartAnew(run.services.Journal())) {
        const std::string text = TitleOf(planned) + ": another program was first; the entry is started anew.";
        run.services.Log().Log(text, {}, {}, Variant(int{kLogToFile}));
        result = entry.TryDatabase(restarts.MetLeftRow());
    }
    entry.TellDatabase(result, restarts.Count());
    return result.isWritten;
}

/// True when the entry is in all targets that were asked for.
bool Write(RegisterRun& run, const PlannedEntry& planned) {
    EntryWrite entry(run, planned);
    entry.TellTitle();
    bool isWritten = true;
    if (run.options.targets.database) {
        isWritten = WriteDatabase(run, planned, entry);
    } else {
        entry.GatherForFiles();
    }
    isWritten = entry.WriteFiles(isWritten);
    run.console.document["entries"].push_back(entry.TakeDocument());
    return isWritten;
}

ExitCode WriteOneByOne(RegisterRun& run) {
    bool isAllWritten = true;
    std::size_t done = 0;
    for (const PlannedEntry& entry : run.plan.Entries()) {
        run.console.ShowProgress(done++, run.plan.Entries().size());
        isAllWritten = Write(run, entry) && isAllWritten;
    }
    return isAllWritten ? ExitCode::Done : ExitCode::TargetFailed;
}

/// Tells, of several entries, how many are in all their targets now; nothing when nobody knows.
void TellSum(Console& console, bool isDryRun) {
    const nlohmann::ordered_json& entries = console.document.at("entries");
    if (entries.size() < 2 || TransactionStatus(console.document) == "unknown") return;
    const std::string wanted = isDryRun ? "planned" : "written";
    const auto isWhole = [&](const nlohmann::ordered_json& entry) {
        const auto& targets = entry.at("targets");
        return std::all_of(targets.begin(), targets.end(), [&](const nlohmann::ordered_json& target) {
            return target.value("status", std::string()) == wanted;
        });
    };
    const auto count = std::count_if(entries.begin(), entries.end(), isWhole);
    console.WriteNews(std::to_string(count) + " of " + std::to_string(entries.size()) + " entries" +
                      (isDryRun ? " would be written" : " written"));
}

}  // namespace

ExitCode RunRegister(Services& services, const RegisterOptions& options, Console& console) {
    console.document["dryRun"] = options.isDryRun;
    RegisterPlan plan(services, options, console);
    plan.Prepare();
    console.document["entries"] = nlohmann::ordered_json::array();
    RegisterRun run{services, options, plan, console};
    const ExitCode code = options.isOneTransaction ? RegisterInOneTransaction(run) : WriteOneByOne(run);
    TellSum(console, options.isDryRun);
    return code;
}

}  // namespace ventlock
