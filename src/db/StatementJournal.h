#pragma once

#include <string>
#include <vector>

#include "db/clsConnection.h"
#include "platform/Recordset.h"

namespace ventlock {

/// One call that reached the database.
struct JournalEntry {
    enum class Kind { Snapshot, Change, NewRecord };
    Kind kind = Kind::Snapshot;
    std::string statement;            ///< as it was sent
    std::vector<RecordField> values;  ///< bound values of a new record
    bool failed = false;
};

/// The call in one line: its statement, then the values bound to it, such as "...  -- 38, 'Acme'".
std::string StatementLine(const JournalEntry& call);

/// Every statement of a run in order, and what drivers said about those that failed.
class StatementJournal {
 public:
    [[nodiscard]] const std::vector<JournalEntry>& Entries() const noexcept { return entries_; }

    /// All records of the last failure, in the driver's order; empty when nothing has failed.
    [[nodiscard]] const std::vector<std::string>& Diagnostics() const noexcept { return diagnostics_; }

    /// Begins anew.
    void Clear();

    void Add(JournalEntry entry) { entries_.push_back(std::move(entry)); }
    void LastFailed(const std::vector<std::string>& diagnostics);

    /// For a call that is no statement: a connect, the begin or the end of a transaction.
    void CallFailed(const std::vector<std::string>& diagnostics) { diagnostics_ = diagnostics; }

 private:
    std::vector<JournalEntry> entries_;
    std::vector<std::string> diagnostics_;
};

enum class StatementMode {
    Run,     ///< statements run
    DryRun,  ///< reads run, changes are only kept in memory, see DryRunConnection
    Note,    ///< reads run, changes are noted in the journal and nothing more
};

/// The engines of `createEngine` with every connection's calls written into `journal`, which must outlive
/// them.
EngineFactory Journaled(EngineFactory createEngine, StatementJournal& journal, StatementMode mode);

}  // namespace ventlock
