#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

class Transaction : public ::testing::Test {
 protected:
    /// A row of its own for each number.
    void Insert(int number) {
        connection_->Execute("INSERT INTO Manufacturers VALUES (" + std::to_string(number) + ", 'A', 'B')");
    }
    std::string Numbers() { return database_.Rows("SELECT TavMfrNameId FROM Manufacturers"); }

    SqliteDatabase database_{DeviceSchema::Current, {{"Timeout", "1"}}};
    Engine engine_;
    std::unique_ptr<IConnection> connection_ = engine_.Open(database_.ConnectString());
};

TEST_F(Transaction, NobodySeesItsRowsBeforeTheCommit) {
    connection_->BeginTrans();
    Insert(1);
    Insert(2);
    EXPECT_EQ(Numbers(), "");
    EXPECT_EQ(RowsOf(*Snapshot(*connection_, "SELECT count(*) FROM Manufacturers")), "2\n") << "but itself";
    connection_->CommitTrans();
    EXPECT_EQ(Numbers(), "1\n2\n");
}

TEST_F(Transaction, StatementsBehindItsEndAreCommittedByThemselves) {
    connection_->BeginTrans();
    Insert(1);
    connection_->CommitTrans();
    Insert(2);
    EXPECT_EQ(Numbers(), "1\n2\n");
    connection_->BeginTrans();
    Insert(3);
    connection_->Rollback();
    Insert(4);
    EXPECT_EQ(Numbers(), "1\n2\n4\n");
}

TEST_F(Transaction, ARollbackLeavesNothingOfItsNewRecordsEither) {
    connection_->BeginTrans();
    Insert(1);
    const auto table = connection_->OpenRecordset("Manufacturers", RecordsetType::Dynaset);
    table->AddNew();
    table->Set("TavMfrNameId", 2.0);
    table->Set("Name", std::string("A"));
    table->Set("Description", std::string("B"));
    table->Update();
    connection_->Rollback();
    EXPECT_EQ(Numbers(), "");
}

TEST_F(Transaction, AClosedConnectionHasRolledItBack) {
    connection_->BeginTrans();
    Insert(1);
    connection_.reset();
    EXPECT_EQ(Numbers(), "");
    database_.Execute("INSERT INTO Manufacturers VALUES (9, 'free', 'again')");
}

TEST_F(Transaction, ARefusedStatementDoesNotEndIt) {
    connection_->BeginTrans();
    Insert(1);
    EXPECT_EQ(NumberRaisedBy([&] { Insert(1); }), 3146);
    EXPECT_EQ(Numbers(), "");
    connection_->Rollback();
    EXPECT_EQ(Numbers(), "");
}

TEST_F(Transaction, WhatItHasReadNobodyChangesUntilItsEnd) {
    connection_->BeginTrans();
    EXPECT_EQ(RowsOf(*Snapshot(*connection_, "SELECT count(*) FROM Manufacturers")), "0\n");
    const auto other = engine_.Open(database_.ConnectString());
    EXPECT_EQ(DiagnosticsOf([&] { other->Execute("INSERT INTO Manufacturers VALUES (7, 'A', 'B')"); }),
              Texts{"[HY000] [SQLite]database is locked (5) (5)"});
    EXPECT_EQ(RowsOf(*Snapshot(*connection_, "SELECT count(*) FROM Manufacturers")), "0\n");
    connection_->Rollback();
    other->Execute("INSERT INTO Manufacturers VALUES (7, 'A', 'B')");
    EXPECT_EQ(Numbers(), "7\n");
}

TEST_F(Transaction, OneThatHasReadIsRefusedItsFirstChangeWhileAnotherWrites) {
    connection_->BeginTrans();
    Snapshot(*connection_, "SELECT * FROM Manufacturers");
    const auto other = engine_.Open(database_.ConnectString());
    other->BeginTrans();
    other->Execute("INSERT INTO Manufacturers VALUES (7, 'A', 'B')");
    EXPECT_EQ(DiagnosticsOf([&] { Insert(1); }), Texts{"[HY000] [SQLite]database is locked (5) (5)"});
    connection_->Rollback();
    other->CommitTrans();
    EXPECT_EQ(Numbers(), "7\n");
}

TEST_F(Transaction, ACommitThatFailsCanBeRolledBack) {
    database_.Execute(
        "CREATE TABLE leads (to_row INTEGER REFERENCES Manufacturers (TavMfrNameId) "
        "DEFERRABLE INITIALLY DEFERRED)");
    connection_->BeginTrans();
    Insert(1);
    connection_->Execute("INSERT INTO leads VALUES (5)");
    EXPECT_EQ(DiagnosticsOf([&] { connection_->CommitTrans(); }).size(), 1U);
    EXPECT_EQ(Numbers(), "");
    connection_->Rollback();
    Insert(2);
    EXPECT_EQ(Numbers(), "2\n");
}

}  // namespace
}  // namespace ventlock::test
