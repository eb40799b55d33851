#include "db/StatementJournal.h"

#include <utility>

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "db/DryRunConnection.h"
#include "platform/InsertStatement.h"

namespace ventlock {
namespace {

std::string ValueText(const RecordValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? "'" + *text + "'" : DecimalText(std::get<double>(value));
}

class JournalConnection final : public IConnection {
 private:
    template <class Call>
    auto Noted(JournalEntry entry, Call&& call) {
        journal_.Add(std::move(entry));
        try {
            return std::forward<Call>(call)();
        } catch (const RunTimeError& error) {
            journal_.LastFailed(error.Diagnostics());
            throw;
        }
    }

 public:
    JournalConnection(std::unique_ptr<IConnection> inner, StatementJournal& journal)
        : inner_(std::move(inner)), journal_(journal) {}

    std::unique_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override {
        if (type == RecordsetType::Dynaset) return OpenTable(std::string(source));
        return Noted({JournalEntry::Kind::Snapshot, std::string(source), {}, false},
                     [&] { return inner_->OpenRecordset(source, type); });
    }

    void Execute(std::string_view statement) override {
        Noted({JournalEntry::Kind::Change, std::string(statement), {}, false},
              [&] { inner_->Execute(statement); });
    }

    void BeginTrans() override {
        NotedFailure([&] { inner_->BeginTrans(); });
    }
    void CommitTrans() override {
        NotedFailure([&] { inner_->CommitTrans(); });
    }
    void Rollback() override {
        NotedFailure([&] { inner_->Rollback(); });
    }
    ConnectionFacts Facts() override { return inner_->Facts(); }

 private:
    /// Calls that are no statements.
    template <class Call>
    void NotedFailure(Call&& call) {
        try {
            std::forward<Call>(call)();
        } catch (const RunTimeError& error) {
            journal_.CallFailed(error.Diagnostics());
            throw;
        }
    }

    std::unique_ptr<Recordset> OpenTable(const std::string& table) {
        const std::shared_ptr<Recordset> inner = inner_->OpenRecordset(table, RecordsetType::Dynaset);
        return std::make_unique<Recordset>([this, table, inner](const std::vector<RecordField>& record) {
            Noted({JournalEntry::Kind::NewRecord, InsertStatement(table, record), record, false}, [&] {
                inner->AddNew();
                for (const RecordField& field : record) inner->Set(field.name, field.value);
                inner->Update();
            });
        });
    }

    std::unique_ptr<IConnection> inner_;
    StatementJournal& journal_;
};

class JournalWorkspace final : public IWorkspace {
 public:
    JournalWorkspace(std::unique_ptr<IWorkspace> inner, StatementJournal& journal, StatementMode mode)
        : inner_(std::move(inner)), journal_(journal), mode_(mode) {}

    std::unique_ptr<IConnection> OpenConnection(std::string_view name, std::optional<int> options,
                                                bool readOnly, std::string_view connect) override {
        try {
            std::unique_ptr<IConnection> connection =
                inner_->OpenConnection(name, options, readOnly, connect);
            if (mode_ != StatementMode::Run) {
                const bool showsNewRows = mode_ == StatementMode::DryRun;
                connection = std::make_unique<DryRunConnection>(std::move(connection), showsNewRows);
            }
            return std::make_unique<JournalConnection>(std::move(connection), journal_);
        } catch (const RunTimeError& error) {
            journal_.CallFailed(error.Diagnostics());
            throw;
        }
    }

 private:
    std::unique_ptr<IWorkspace> inner_;
    StatementJournal& journal_;
    StatementMode mode_;
};

class JournalEngine final : public IDBEngine {
 public:
    JournalEngine(std::unique_ptr<IDBEngine> inner, StatementJournal& journal, StatementMode mode)
        : inner_(std::move(inner)), journal_(journal), mode_(mode) {}

    std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                std::string_view password, WorkspaceType type) override {
        return std::make_unique<JournalWorkspace>(inner_->CreateWorkspace(name, user, password, type),
                                                  journal_, mode_);
    }

 private:
    std::unique_ptr<IDBEngine> inner_;
    StatementJournal& journal_;
    StatementMode mode_;
};

}  // namespace

std::string StatementLine(const JournalEntry& call) {
    std::string line = call.statement;
    for (std::size_t i = 0; i < call.values.size(); ++i) {
        line += (i == 0 ? "  -- " : ", ") + ValueText(call.values[i].value);
    }
    return line;
}

void StatementJournal::Clear() {
    entries_.clear();
    diagnostics_.clear();
}

void StatementJournal::LastFailed(const std::vector<std::string>& diagnostics) {
    entries_.back().failed = true;
    diagnostics_ = diagnostics;
}

EngineFactory Journaled(EngineFactory createEngine, StatementJournal& journal, StatementMode mode) {
    return [createEngine = std::move(createEngine), &journal, mode]() -> std::unique_ptr<IDBEngine> {
        return std::make_unique<JournalEngine>(createEngine(), journal, mode);
    };
}

}  // namespace ventlock
