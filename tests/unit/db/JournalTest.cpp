#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/DatabaseOf.h"
#include "db/StatementJournal.h"
#include "support/DbWorld.h"
#include "support/DriverAnswers.h"
#include "support/LogEntry.h"
#include "support/Raised.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using testing::StrCaseEq;

constexpr const char* kAcme = "INSERT INTO Manufacturers VALUES (1, 'Acme', '') ";

/// "kind statement" and " failed", an entry a line.
std::string Text(const StatementJournal& journal) {
    std::string text;
    for (const JournalEntry& entry : journal.Entries()) {
        switch (entry.kind) {
            case JournalEntry::Kind::Snapshot:
                text += "read ";
                break;
            case JournalEntry::Kind::Change:
                text += "change ";
                break;
            case JournalEntry::Kind::NewRecord:
                text += "record ";
                break;
        }
        text += "<" + entry.statement + ">" + (entry.failed ? " failed\n" : "\n");
    }
    return text;
}

/// "name=value" a field of a new record, texts in quotes.
std::string Values(const JournalEntry& entry) {
    std::string text;
    for (const RecordField& field : entry.values) {
        const auto* number = std::get_if<double>(&field.value);
        text += field.name + "=" +
                (number != nullptr ? std::to_string(static_cast<int>(*number))
                                   : "'" + std::get<std::string>(field.value) + "'") +
                " ";
    }
    return text;
}

TEST(Journal, HoldsEveryCallInOrderAsItWasSent) {
    DbWorld world;
    IConnection& connection = DatabaseOf(&world.Objects());
    connection.OpenRecordset("select *   from MfrProtocols ", RecordsetType::Snapshot);
    connection.Execute(kAcme);
    connection.OpenRecordset("SELECT *   FROM Manufacturers ", RecordsetType::Snapshot);
    EXPECT_EQ(Text(world.Journal()),
              "read <select *   from MfrProtocols >\n"
              "change <INSERT INTO Manufacturers VALUES (1, 'Acme', '') >\n"
              "read <SELECT *   FROM Manufacturers >\n");
    EXPECT_THAT(world.Journal().Diagnostics(), IsEmpty());
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|\n")
        << "and every call reaches the database";
}

TEST(Journal, HandsTheRowsOnUnchanged) {
    DbWorld world;
    world.Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', NULL), (2, '', 'x')");
    const auto rows = OpenSnapshot(&world.Objects(), "SELECT *   FROM Manufacturers ");
    EXPECT_THAT(rows->Columns(),
                ElementsAre(StrCaseEq("TavMfrNameId"), StrCaseEq("Name"), StrCaseEq("Description")));
    EXPECT_EQ(rows->RecordCount(), 2U);
    EXPECT_EQ(rows->Column("Name").Text(), "Acme");
    EXPECT_TRUE(rows->Column("Description").IsNull());
}

TEST(Journal, MarksTheCallThatFailedAndNoOther) {
    DbWorld world;
    IConnection& connection = DatabaseOf(&world.Objects());
    connection.Execute(kAcme);
    EXPECT_EQ(NumberRaisedBy([&] { connection.Execute(kAcme); }), 3146);
    EXPECT_EQ(NumberRaisedBy(
                  [&] { connection.OpenRecordset("SELECT *   FROM Nothing ", RecordsetType::Snapshot); }),
              3146);
    connection.OpenRecordset("SELECT *   FROM Manufacturers ", RecordsetType::Snapshot);
    EXPECT_EQ(Text(world.Journal()),
              "change <INSERT INTO Manufacturers VALUES (1, 'Acme', '') >\n"
              "change <INSERT INTO Manufacturers VALUES (1, 'Acme', '') > failed\n"
              "read <SELECT *   FROM Nothing > failed\n"
              "read <SELECT *   FROM Manufacturers >\n");
}

TEST(Journal, KeepsWhatTheDriverSaidOfTheLastFailure) {
    DbWorld world;
    IConnection& connection = DatabaseOf(&world.Objects());
    connection.Execute(kAcme);
    const std::string description = DescriptionRaisedBy([&] { connection.Execute(kAcme); });
    ASSERT_THAT(world.Journal().Diagnostics(), SizeIs(1));
    EXPECT_THAT(world.Journal().Diagnostics().front(), DriverSays(Refusal::TakenKey));
    EXPECT_EQ(description, "ODBC--call failed. " + world.Journal().Diagnostics().front());
    connection.OpenRecordset("SELECT *   FROM Manufacturers ", RecordsetType::Snapshot);
    EXPECT_THAT(world.Journal().Diagnostics(), SizeIs(1)) << "a success takes nothing back";
}

TEST(Journal, KeepsAllDiagnosticsOfAFailureThoughTheLogTellsTheFirst) {
    DbWorld world;
    const std::vector<std::string> said{"[42000] First (1)", "[01000] Second (2)", "[HY000] Third (3)"};
    world.Failure().FailAt("SELECT *   FROM Manufacturers ", 1, RunTimeError::OdbcCallFailed(said));
    const std::string description =
        DescriptionRaisedBy([&] { OpenSnapshot(&world.Objects(), "SELECT *   FROM Manufacturers "); });
    EXPECT_EQ(description, "ODBC--call failed. [42000] First (1)");
    EXPECT_EQ(world.Journal().Diagnostics(), said);
    world.Failure().FailAt(kAcme, 1, RunTimeError::OdbcCallFailed({"[HY000] Other (4)"}));
    EXPECT_EQ(NumberRaisedBy([&] { DatabaseOf(&world.Objects()).Execute(kAcme); }), 3146);
    EXPECT_THAT(world.Journal().Diagnostics(), ElementsAre("[HY000] Other (4)")) << "the last failure's only";
    EXPECT_EQ(Text(world.Journal()),
              "read <SELECT *   FROM Manufacturers > failed\n"
              "change <INSERT INTO Manufacturers VALUES (1, 'Acme', '') > failed\n");
}

TEST(Journal, KeepsWhatAFailedConnectSaid) {
    DbWorld world;
    EXPECT_FALSE(world.Connect("nowhere"));
    ASSERT_THAT(world.Journal().Diagnostics(), SizeIs(1));
    EXPECT_THAT(world.Journal().Diagnostics().front(), StartsWith("[IM002] "));
    EXPECT_THAT(world.Entries(), ElementsAre("CONNconn-02: ODBC--call failed. " +
                                             world.Journal().Diagnostics().front() + " (3146)"));
    EXPECT_THAT(world.Journal().Entries(), IsEmpty()) << "a connect is no statement";
}

TEST(Journal, ANewRecordIsOneEntryWithItsValues) {
    DbWorld world(DeviceSchema::Old);
    const auto table = DatabaseOf(&world.Objects()).OpenRecordset("MfrIds", RecordsetType::Dynaset);
    EXPECT_THAT(world.Journal().Entries(), IsEmpty()) << "opening the table runs nothing";
    table->AddNew();
    table->Set("DevMfrId", 38.0);
    table->Set("MfrIdName", std::string("O'Neil?"));
    table->Update();
    EXPECT_EQ(Text(world.Journal()), "record <INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)>\n");
    EXPECT_EQ(Values(world.Journal().Entries().front()), "DevMfrId=38 MfrIdName='O'Neil?' ");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrIds"), "38|O'Neil?\n");
}

TEST(Journal, ARefusedRecordIsMarkedAndItsDiagnosticsAreKept) {
    DbWorld world(DeviceSchema::Old);
    world.Execute("INSERT INTO MfrIds VALUES (38, 'Acme')");
    const auto table = DatabaseOf(&world.Objects()).OpenRecordset("MfrIds", RecordsetType::Dynaset);
    table->AddNew();
    table->Set("DevMfrId", 38.0);
    EXPECT_EQ(NumberRaisedBy([&] { table->Update(); }), 3146);
    EXPECT_EQ(Text(world.Journal()), "record <INSERT INTO MfrIds (DevMfrId) VALUES (?)> failed\n");
    ASSERT_THAT(world.Journal().Diagnostics(), SizeIs(1));
    EXPECT_EQ(world.Rows("SELECT * FROM MfrIds"), "38|Acme\n");
}

TEST(Journal, GoesOnAcrossANewConnection) {
    DbWorld world;
    const auto other = NewDeviceDatabase();
    DatabaseOf(&world.Objects()).Execute(kAcme);
    ASSERT_TRUE(world.Connect(other->Dsn()));
    DatabaseOf(&world.Objects()).Execute(kAcme);
    EXPECT_EQ(Text(world.Journal()),
              "change <INSERT INTO Manufacturers VALUES (1, 'Acme', '') >\n"
              "change <INSERT INTO Manufacturers VALUES (1, 'Acme', '') >\n");
}

TEST(Journal, ClearBeginsAnew) {
    const auto database = NewDeviceDatabase();
    FakeEvents events;
    StatementJournal journal;
    const auto connection =
        Journaled([&] { return CreateOdbcEngine(events, {}); }, journal, StatementMode::Run)()
            ->CreateWorkspace("", "sa", "", WorkspaceType::Odbc)
            ->OpenConnection("", std::nullopt, false, database->ConnectString());
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("nonsense"); }), 3146);
    EXPECT_EQ(Text(journal), "change <nonsense> failed\n");
    journal.Clear();
    EXPECT_THAT(journal.Entries(), IsEmpty());
    EXPECT_THAT(journal.Diagnostics(), IsEmpty());
    connection->Execute(kAcme);
    EXPECT_EQ(Text(journal), "change <INSERT INTO Manufacturers VALUES (1, 'Acme', '') >\n");
}

TEST(Journal, TellsTheFactsOfTheConnectionBelow) {
    DbWorld world;
    const ConnectionFacts facts = DatabaseOf(&world.Objects()).Facts();
    EXPECT_EQ(facts.product, NameOf(TestedProduct()));
    EXPECT_EQ(facts.database, world.Database().OwnName());
}

}  // namespace
}  // namespace ventlock::test
