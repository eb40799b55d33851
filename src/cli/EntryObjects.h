#pragma once

#include <memory>

#include "cli/RegisterPlan.h"
#include "cli/Services.h"
#include "files/clsDDInstall.h"
#include "files/clsPyxConfig.h"

namespace ventlock {

/// The records and writers of one entry. They keep what they have found, so that every start of an entry has
/// its own.
class EntryObjects {
 public:
    /// All arguments must outlive it.
    EntryObjects(Services& services, RegisterPlan& plan, const PlannedEntry& entry);

    /// Sets the records up for the database and fills everything from the entry. The schema is looked at
    /// again: another program may have changed it. The journal then holds what the gathering asked of the
    /// database.
    void PrepareForDatabase();

    /// Fills everything for an entry that goes into files only.
    void Gather();

    /// Whether the facade can write to the database, and whether the entry's categories are found or made.
    [[nodiscard]] bool IsReady() const noexcept { return isReady_; }
    [[nodiscard]] bool IsGathered() const noexcept { return isGathered_; }

    [[nodiscard]] clsTavDB& Facade() noexcept { return *facade_; }
    [[nodiscard]] clsPyxConfig& PyxConfig() noexcept { return pyxConfig_; }
    [[nodiscard]] clsDDInstall& DDInstall() noexcept { return ddInstall_; }

 private:
    Services& services_;
    RegisterPlan& plan_;
    const PlannedEntry& entry_;
    std::unique_ptr<clsTavDB> facade_;
    bool isReady_ = false;
    bool isGathered_ = false;
    clsPyxConfig pyxConfig_;
    clsDDInstall ddInstall_;
};

}  // namespace ventlock
