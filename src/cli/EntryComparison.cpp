#include "cli/EntryComparison.h"

#include <utility>

#include "base/ShownText.h"
#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/DatabaseComparison.h"
#include "cli/EntryFiles.h"
#include "db/SchemaVersion.h"

namespace ventlock {
namespace {

std::string Quoted(const std::string& text) {
    return "\"" + ShownWord(text) + "\"";
}

}  // namespace

std::string DifferenceText(const Difference& difference) {
    switch (difference.kind) {
        case Difference::Kind::Missing:
            return difference.place + ": missing" +
                   (difference.expected.empty() ? "" : "; expected " + difference.expected);
        case Difference::Kind::Repeated:
            return difference.place + ": " + (difference.item.empty() ? "" : difference.item + " ") +
                   "stands " + difference.found.value_or("") + " times";
        case Difference::Kind::Value:
            break;
    }
    return difference.place + ": " + difference.item + ": expected " + Quoted(difference.expected) +
           ", found " + (difference.found ? Quoted(*difference.found) : "nothing");
}

ProfileFile ReadTarget(Services& services, const std::string& path, std::string_view naming) {
    std::string bytes;
    try {
        bytes = services.Files().ReadAll(path);
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::FileNotFound) {
            throw CliError(CodeOf(error), path + ": " + error.what(), {}, FileAdvice(error.Number(), naming));
        }
    }
    return {std::move(bytes), services.Profiles().Page()};
}

std::vector<Difference> CompareDatabase(Services& services, RegisterPlan& plan, EntryObjects& objects) {
    services.Messages().Take();
    services.Journal().Clear();
    const std::int16_t schemaVersion = plan.Database().schemaVersion;
    std::vector<std::string> details;
    objects.PrepareForDatabase();
    if (objects.IsReady() && objects.IsGathered() && objects.Facade().Update()) {
        const std::vector<JournalEntry> statements = services.Journal().Entries();
        try {
            return CompareRows(*services.Connection(), statements, objects.Facade(), schemaVersion);
        } catch (const RunTimeError& error) {
            details.emplace_back(error.what());
        }
    }
    for (const std::string& detail : services.TakeDetails()) details.push_back(detail);
    throw CliError(ExitCode::TargetFailed, "the entry cannot be compared", details,
                   StatementAdvice(services.Journal().Diagnostics(), schemaVersion < kCurrentSchema));
}

}  // namespace ventlock
