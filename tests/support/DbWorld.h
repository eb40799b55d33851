#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/modLocalization.h"
#include "db/StatementJournal.h"
#include "db/clsConnection.h"
#include "platform/odbc/OdbcEngine.h"
#include "support/FailingEngine.h"
#include "support/LoggedApp.h"
#include "support/TestedDatabase.h"

namespace ventlock::test {

/// The dictionary texts that the database part logs.
inline constexpr const char* kNoSupport = "The version of the device database is not supported.";
inline constexpr const char* kNoRead = "The version of the device database could not be read.";

/// A device database of the tested product, connected through the real driver, and the shared service objects
/// "Log" and "Connection" with the program's English dictionary. Every statement goes through a journal.
class DbWorld {
 public:
    /// Connects at once; statements of before the test's own are none.
    explicit DbWorld(DeviceSchema schema = DeviceSchema::Current, StatementMode mode = StatementMode::Run,
                     DatabaseTimeLimits limits = {})
        : database_(NewDeviceDatabase(schema)),
          connection_(std::make_shared<clsConnection>(Engines(mode, limits))) {
        auto dictionary = std::make_shared<TavDictionary>(app_.Files());
        EXPECT_TRUE(dictionary->Load(
            {VENTLOCK_SOURCE_FOLDER "/data/QorStandard.dct", VENTLOCK_SOURCE_FOLDER "/data/Ventlock.dct"}));
        UseDictionary(dictionary);
        gsLanguage = "EN";
        Objects().Add(kConnectionKey, connection_);
        EXPECT_TRUE(Connect(Dsn()));
    }
    ~DbWorld() {
        UseDictionary(nullptr);
        gsLanguage.clear();
    }
    DbWorld(const DbWorld&) = delete;
    DbWorld& operator=(const DbWorld&) = delete;

    AppObjects& Objects() { return app_.Objects(); }
    clsConnection& Connection() { return *connection_; }
    bool Connect(const std::string& dataSource) { return connection_->Init(Objects(), 2, dataSource); }
    [[nodiscard]] const std::string& Dsn() const { return database_->Dsn(); }

    /// What the records and the facade yield to; the engine has others.
    FakeEvents& Events() { return events_; }

    /// What happens again and again while the program waits for the database.
    void WhileWaiting(std::function<void()> action) { engineEvents_.action = std::move(action); }

    const StatementJournal& Journal() { return journal_; }

    /// The statements sent since the last call, in order, those that failed too. A record added to an open
    /// table is "INSERT INTO <table> (<columns>) VALUES (?, ...)"; its values are in the journal.
    std::vector<std::string> Statements() {
        std::vector<std::string> statements;
        for (; told_ < journal_.Entries().size(); ++told_)
            statements.push_back(journal_.Entries()[told_].statement);
        return statements;
    }

    /// All log entries so far, as the message box showed them and the file holds them.
    std::vector<std::string> Entries() { return app_.Entries(); }

    /// Sets up or looks at the database beside the program's connection; rows are "a|b|NULL\n" each.
    void Execute(std::string_view sql) { database_->Execute(sql); }
    std::string Rows(std::string_view sql) { return database_->Rows(sql); }
    DeviceDatabase& Database() { return *database_; }

    /// Takes all keys, checks and references from tables and keeps their rows. A table that refers to one of
    /// them must stand before it.
    void Loosen(std::initializer_list<std::string> tables) {
        for (const std::string& table : tables) database_->Loosen(table);
    }

    /// Makes a statement fail without the database, for what a real one cannot be brought to.
    StatementFailure& Failure() { return failure_; }

 private:
    struct WaitingEvents final : IEvents {
        std::function<void()> action;
        void Yield() override {
            if (action) action();
        }
    };

    EngineFactory Engines(StatementMode mode, DatabaseTimeLimits limits) {
        return Journaled(
            Failing([this, limits] { return CreateOdbcEngine(engineEvents_, limits); }, failure_), journal_,
            mode);
    }

    LoggedApp app_;
    std::unique_ptr<DeviceDatabase> database_;
    WaitingEvents engineEvents_;
    FakeEvents events_;
    StatementFailure failure_;
    StatementJournal journal_;
    std::size_t told_ = 0;
    std::shared_ptr<clsConnection> connection_;
};

}  // namespace ventlock::test
