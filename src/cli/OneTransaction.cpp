#include "cli/OneTransaction.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "cli/Advice.h"
#include "cli/CliError.h"
#include "cli/Restarts.h"
#include "db/NewRow.h"
#include "db/SchemaVersion.h"
#include "db/Tables.h"
#include "platform/Casing.h"
#include "platform/odbc/DriverAnswers.h"

namespace ventlock {
namespace {

class OneTransaction {
 public:
    explicit OneTransaction(RegisterRun& run) : run_(run) {}

    ExitCode Run() {
        for (;;) {
            Begin();
            const bool isWritten = WriteRows();
            if (isWritten && Commit()) return WriteFiles();
            const bool isRolledBack = connection_.Rollback();
            if (!isRolledBack || !StartAnew()) return isWritten ? TellCommit(isRolledBack) : TellEntry();
        }
    }

 private:
    void Begin() {
        Forget();
        if (connection_.BeginTrans(run_.plan.Database().schemaVersion)) return;
        const std::vector<std::string> details = run_.services.TakeDetails();
        const std::vector<std::string> diagnostics = run_.services.Journal().Diagnostics();
        if (connection_.Transaction() != nullptr) connection_.Rollback();
        const bool isOffered = !odbc::TellNoTransactions(diagnostics);
        throw CliError(isOffered ? ExitCode::TargetFailed : ExitCode::Unreachable,
                       place_ + ": no transaction can be begun, nothing was written", details,
                       TransactionAdvice(diagnostics));
    }

    /// False when an entry, the last one of `entries_`, was refused.
    bool WriteRows() {
        entries_.clear();
        results_.clear();
        for (const PlannedEntry& planned : run_.plan.Entries()) {
            run_.console.ShowProgress(entries_.size(), run_.plan.Entries().size());
            const bool takesOver = behindLeftRows_.contains(entries_.size());
            entries_.push_back(std::make_unique<EntryWrite>(run_, planned));
            results_.push_back(entries_.back()->TryDatabase(takesOver));
            if (!results_.back().isWritten) return false;
        }
        return true;
    }

    bool Commit() {
        Forget();
        if (connection_.CommitTrans()) return true;
        refusal_ = run_.services.TakeDetails();
        return false;
    }

    /// To be asked after a rollback.
    bool StartAnew() {
        const StatementJournal& journal = run_.services.Journal();
        // Rows of the old schema have no numbers that another start could choose anew.
        const bool isStoredAlready =
            run_.plan.Database().schemaVersion < kCurrentSchema && odbc::TellDuplicate(journal.Diagnostics());
        if (isStoredAlready || !restarts_.StartAnew(journal)) return false;
        if (restarts_.MetLeftRow() && IsManufacturer(journal.Entries().back().statement)) {
            behindLeftRows_.insert(entries_.size() - 1);
        }
        run_.services.Log().Log("Another program was first; the transaction is started anew.", {}, {},
                                Variant(int{kLogToFile}));
        return true;
    }

    /// True for the statement that a left row can be in the way of.
    static bool IsManufacturer(const std::string& statement) {
        const std::optional<NewRow> row = RowOf(statement);
        return row && row->table == UpperCase(tables::kManufacturers);
    }

    ExitCode WriteFiles() {
        NoteEnd(run_.options.isDryRun ? "planned" : "committed");
        bool isAllWritten = true;
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            EntryWrite& entry = *entries_[i];
            run_.console.ShowProgress(i, entries_.size());
            entry.TellTitle();
            entry.TellDatabase(results_[i], 0);
            isAllWritten = entry.WriteFiles(true) && isAllWritten;
            run_.console.document["entries"].push_back(entry.TakeDocument());
        }
        return isAllWritten ? ExitCode::Done : ExitCode::TargetFailed;
    }

    /// The last entry was refused for good.
    ExitCode TellEntry() {
        NoteEnd("rolled back");
        for (std::size_t i = 0; i + 1 < entries_.size(); ++i) NoteUnwritten(*entries_[i], i, "rolled back");
        EntryWrite& refused = *entries_.back();
        refused.TellTitle();
        refused.TellDatabase(results_.back(), 0);
        refused.WriteFiles(false);
        run_.console.document["entries"].push_back(refused.TakeDocument());
        const auto& planned = run_.plan.Entries();
        for (std::size_t i = entries_.size(); i < planned.size(); ++i) {
            EntryWrite untried(run_, planned[i]);
            untried.NoteDatabase("skipped", {}, 0);
            untried.WriteFiles(false);
            run_.console.document["entries"].push_back(untried.TakeDocument());
        }
        return ExitCode::TargetFailed;
    }

    ExitCode TellCommit(bool isRolledBack) {
        const char* const status = isRolledBack ? "rolled back" : "unknown";
        NoteEnd(status);
        for (std::size_t i = 0; i < entries_.size(); ++i) NoteUnwritten(*entries_[i], i, status);
        run_.console.WriteError(
            isRolledBack
                ? CliError(ExitCode::TargetFailed, place_ + ": the commit was refused, nothing was written",
                           refusal_, StatementAdvice(run_.services.Journal().Diagnostics()))
                : CliError(ExitCode::TargetFailed, place_ + ": the connection was lost during the commit",
                           refusal_,
                           "The database has kept all entries or none. Look with \"ventlock-cli database "
                           "list devices\", and run the command again when they are not there."));
        return ExitCode::TargetFailed;
    }

    void NoteUnwritten(EntryWrite& entry, std::size_t i, const char* status) {
        entry.NoteDatabase(status, results_[i], 0);
        entry.WriteFiles(false);
        run_.console.document["entries"].push_back(entry.TakeDocument());
        if (run_.console.isJson) return;
        run_.console.WriteProblem("ventlock-cli: " + entry.Title() + ": " + place_ + ": " + status);
    }

    void NoteEnd(const char* status) {
        run_.console.document["transaction"] = {{"status", status}, {"restarts", restarts_.Count()}};
    }

    /// What is logged and what drivers say from now on belongs to the next call.
    void Forget() {
        run_.services.Messages().Take();
        run_.services.Journal().Clear();
    }

    RegisterRun& run_;
    clsConnection& connection_ = run_.services.SharedConnection();
    const std::string place_ = run_.services.DataSourceText();
    Restarts restarts_{Restarts::Of::Transaction};
    std::vector<std::unique_ptr<EntryWrite>> entries_;  ///< of this start, as far as it came
    std::vector<TargetResult> results_;                 ///< of each of them
    std::set<std::size_t> behindLeftRows_;              ///< entries that a left row was in the way of
    std::vector<std::string> refusal_;                  ///< of the commit
};

}  // namespace

ExitCode RegisterInOneTransaction(RegisterRun& run) {
    return OneTransaction(run).Run();
}

}  // namespace ventlock
