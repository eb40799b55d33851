#include "cli/RegisterCommand.h"

#include "cli/EntryWrite.h"
#include "cli/OneTransaction.h"
#include "cli/RegisterPlan.h"
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

}  // namespace

ExitCode RunRegister(Services& services, const RegisterOptions& options, Console& console) {
    console.document["dryRun"] = options.isDryRun;
    RegisterPlan plan(services, options, console);
    plan.Prepare();
    console.document["entries"] = nlohmann::ordered_json::array();
    RegisterRun run{services, options, plan, console};
    if (options.isOneTransaction) return RegisterInOneTransaction(run);
    bool isAllWritten = true;
    std::size_t done = 0;
    for (const PlannedEntry& entry : plan.Entries()) {
        console.ShowProgress(done++, plan.Entries().size());
        isAllWritten = Write(run, entry) && isAllWritten;
    }
    return isAllWritten ? ExitCode::Done : ExitCode::TargetFailed;
}

}  // namespace ventlock
