#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/EntryFiles.h"
#include "cli/PlanOptions.h"
#include "cli/Services.h"
#include "entry/EntryForm.h"
#include "entry/EntryToForm.h"

namespace ventlock {

/// One entry on its way into the targets.
struct PlannedEntry {
    std::string path;                   ///< of its file, as named in the call
    const FileEntry* source = nullptr;  ///< owned by the plan
    EntryForm form;
};

/// "[name] file:line", as messages name an entry, on one line whatever the file is called.
std::string TitleOf(const PlannedEntry& entry);

/// The connected database and what its lists hold.
struct ConnectedDatabase {
    std::unique_ptr<clsTavDB> facade;  ///< that of the start
    std::int16_t schemaVersion = 0;    ///< 0 when no database is written to
    ReferenceLists lists;
};

/// Everything that is looked at before the first write. What it is made from must outlive it.
class RegisterPlan {
 public:
    RegisterPlan(Services& services, const PlanOptions& options, Console& console);

    /// Reads and checks entries and targets, and connects. Targets and findings go to the console.
    /// @throws CliError 1, 2 or 3 at the first group of errors.
    void Prepare();

    /// The same for entry files that are read already.
    void Prepare(std::vector<LoadedEntryFile> files);

    [[nodiscard]] const std::vector<PlannedEntry>& Entries() const noexcept { return entries_; }
    [[nodiscard]] ConnectedDatabase& Database() noexcept { return database_; }

 private:
    void NoteTargets();
    void TakeEntries(std::vector<LoadedEntryFile> files);
    void RequireTargets();
    void ConnectDatabase();
    [[nodiscard]] std::vector<FileFindings> CheckEntries(std::int16_t schemaVersion);
    void EndOnErrors(const std::vector<FileFindings>& findings);
    void WriteFindings(const std::vector<FileFindings>& findings);

    Services& services_;
    const PlanOptions& options_;
    Console& console_;
    std::vector<LoadedEntryFile> files_;
    std::vector<PlannedEntry> entries_;
    ConnectedDatabase database_;
};

}  // namespace ventlock
