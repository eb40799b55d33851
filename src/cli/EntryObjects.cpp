#include "cli/EntryObjects.h"

#include <utility>

#include "entry/GatherEntry.h"

namespace ventlock {

EntryObjects::EntryObjects(Services& services, RegisterPlan& plan, const PlannedEntry& entry)
    : services_(services),
      plan_(plan),
      entry_(entry),
      // The facade of the start has passed its check; the first to come writes with it.
      facade_(std::move(plan.Database().facade)),
      isReady_(facade_ != nullptr),
      pyxConfig_(services.Profiles()),
      ddInstall_(services.Profiles()) {
    if (!isReady_) facade_ = std::make_unique<clsTavDB>(services.Events());
    pyxConfig_.Init(services.Objects(), 2);
    ddInstall_.Init(services.Objects(), 2);
    ddInstall_.DDVersion = services.Settings().DDVersion();
}

void EntryObjects::PrepareForDatabase() {
    StatementJournal& journal = services_.Journal();
    if (!isReady_) {
        isReady_ = facade_->Init(services_.Objects(), 2);
        if (isReady_) journal.Clear();  // what follows is the entry's own
    }
    Gather();
    // A category that could not be found or made is an error of its own; going on would store another one.
    isGathered_ = journal.Diagnostics().empty() && services_.Messages().IsEmpty();
}

void EntryObjects::Gather() {
    GatherEntry(entry_.form, plan_.Database().schemaVersion, &services_.Objects(), *facade_, ddInstall_,
                pyxConfig_);
}

}  // namespace ventlock
