#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <thread>

#include "e2e/Refused.h"
#include "support/MariadbServer.h"
#include "support/PostgresServer.h"

namespace ventlock::test {
namespace {

const std::vector<std::string> kOneByOne = {"register", "entry.ini", "--db"};
const std::vector<std::string> kTogether = {"register", "entry.ini", "--db", "--one-transaction"};

std::string ThreeManufacturers() {
    return "[A]\nManID=26\nManName=Acme\nDevID=7\nDevName=Flow\nDLLName=d\nTemplateName=t\n"
           "[B]\nManID=27\nManName=Best\nDevID=8\nDevName=Level\nDLLName=d\nTemplateName=t\n"
           "[C]\nManID=28\nManName=Core\nDevID=9\nDevName=Heat\nDLLName=d\nTemplateName=t\n";
}

/// Entries in which manufacturers, their protocols, types, revisions and new categories come again.
std::string ManyEntries(int count, int first = 0) {
    std::string text;
    for (int i = first; i < first + count; ++i) {
        const std::string manufacturer = std::to_string(10 + i % 7);
        text += "[E" + std::to_string(i) + "]\nManID=" + manufacturer + "\nManName=Maker " + manufacturer +
                "\nManDesc=in entry " + std::to_string(i) + "\nProtocol=" +
                (i % 3 == 0 ? "Conventional\nMajorCategory=Major " + std::to_string(i % 4) +
                                  "\nMinorCategory=" + (i % 2 == 0 ? "Übung" : "ÜBUNG")
                            : "HART") +
                "\nDevID=" + std::to_string(i * i % 40) + "\nDevName=Device " + std::to_string(i) +
                "\nDevRev=" + std::to_string(1 + i % 2) + "\nDevRevName=Rev\n";
    }
    return text;
}

/// A database of which it does not matter whether it outlives a failure of power: the disk is not waited for.
void MakeFastDatabase(const World& world, const std::string& schema = "current") {
    world.MakeDatabase(schema);
    std::string sources = ReadBytes(world.UserDataSources());
    sources.insert(sources.find("FKSupport"), "SyncPragma=OFF\n");
    WriteBytes(world.UserDataSources(), sources);
}

/// The status of each entry's target, in order.
std::vector<std::string> StatusesOf(const nlohmann::ordered_json& document, const std::string& target) {
    std::vector<std::string> statuses;
    for (const auto& entry : document["entries"]) statuses.push_back(entry["targets"][target]["status"]);
    return statuses;
}

void Refuse(const World& world, const std::string& manufacturer) {
    world.Database().Execute("CREATE TRIGGER no BEFORE INSERT ON Manufacturers WHEN NEW.Name = '" +
                             manufacturer + "' BEGIN SELECT RAISE(ABORT, 'not this one'); END");
}

/// Lets the program come no further than to the revision of this number.
void StopAtRevision(const World& world, int number) {
    OdbcProbe database = world.Database();
    database.Execute(
        "CREATE VIEW endless AS WITH RECURSIVE c (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) "
        "SELECT n FROM c");
    database.Execute("CREATE TRIGGER stop AFTER INSERT ON DeviceRevisions WHEN NEW.TavDevRevId = " +
                     std::to_string(number) + " BEGIN SELECT count(*) FROM endless; END");
}

/// How many of the traced statements begin so.
int Traced(const World& world, const std::string& begin) {
    const auto statements = world.TracedStatements();
    return static_cast<int>(std::count_if(statements.begin(), statements.end(),
                                          [&](const std::string& text) { return text.starts_with(begin); }));
}

void WaitUntil(const std::string& what, const std::function<bool()>& isSo) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!isSo()) {
        ASSERT_LT(std::chrono::steady_clock::now(), limit) << what;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

TEST(OneTransaction, GivesTheRowsOfHundredsOfEntriesThatAreWrittenOneByOne) {
    const World oneByOne;
    const World together;
    for (const World* world : {&oneByOne, &together}) {
        MakeFastDatabase(*world);
        world->Write("entry.ini", ManyEntries(30));
        ASSERT_EQ(world->Run(kOneByOne).exitCode, 0);
        world->Write("entry.ini", ManyEntries(300, 20));
    }
    ASSERT_EQ(oneByOne.Run(kOneByOne).exitCode, 0);
    const ProgramResult result = together.Run(kTogether);
    EXPECT_EQ(result.exitCode, 0);
    std::istringstream warnings(result.err);  // the devices repeat, which keeps none from being written
    for (std::string line; std::getline(warnings, line);) {
        EXPECT_NE(line.find(": warning [same-device] "), std::string::npos) << line;
    }
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 301);
    EXPECT_TRUE(result.out.ends_with("\n300 of 300 entries written\n"));
    EXPECT_EQ(result.out.substr(0, result.out.find('\n')), "[E20] entry.ini:1: data source \"PYX\": written");
    EXPECT_EQ(together.AllRows(), oneByOne.AllRows());
}

TEST(OneTransaction, GivesTheRowsOfTheOldSchemaToo) {
    std::string entries;
    for (int i = 1; i <= 200; ++i) {
        const std::string number = std::to_string(i);
        entries += "[E" + number + "]\nManID=" + number + "\nManName=M'" + number + "\nDevID=" + number +
                   "\nDevName=D\n";
    }
    const World oneByOne;
    const World together;
    for (const World* world : {&oneByOne, &together}) {
        MakeFastDatabase(*world, "old");
        world->Write("entry.ini", entries);
    }
    ASSERT_EQ(oneByOne.Run(kOneByOne).exitCode, 0);
    EXPECT_EQ(together.Run(kTogether).exitCode, 0);
    EXPECT_EQ(together.AllRows(), oneByOne.AllRows());

    const std::string rows = together.AllRows();
    const auto document = DocumentOf(together.Run(With(kTogether, {"--json"})).out);
    EXPECT_EQ(document["transaction"]["restarts"], 0) << "its rows are there for good";
    EXPECT_EQ(document["transaction"]["status"], "rolled back");
    EXPECT_EQ(together.AllRows(), rows);
}

TEST(OneTransaction, WritesTheFilesThatEntriesOneByOneGive) {
    const World oneByOne;
    const World together;
    for (const World* world : {&oneByOne, &together}) {
        world->MakeDatabase();
        world->Write("entry.ini", ThreeManufacturers());
    }
    const ProgramResult expected = oneByOne.Run(kRegisterEntry);
    const ProgramResult result = together.Run(With(kRegisterEntry, {"--one-transaction"}));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, expected.out);
    EXPECT_EQ(result.err, "");
    for (const char* const file : {"Pyx.ini", "Pyx.ini.bak", "Ddinstal.ini", "Ddinstal.ini.bak"}) {
        EXPECT_EQ(together.Read(file), oneByOne.Read(file)) << file;
    }
    EXPECT_EQ(together.AllRows(), oneByOne.AllRows());
}

TEST(OneTransaction, ReadsEveryTableOnceAndSendsTheOtherStatementsAsTheyAre) {
    const auto changesOf = [](const World& world) {
        std::vector<std::string> changes;
        for (const std::string& text : world.TracedStatements()) {
            const bool isChange =
                text.starts_with("INSERT") || text.starts_with("UPDATE") || text.starts_with("update");
            const bool isClaim = text.find("WHERE 1 = 0") != std::string::npos;
            if (isChange && !isClaim) changes.push_back(text);
        }
        return changes;
    };
    const World oneByOne;
    const World together;
    for (const World* world : {&oneByOne, &together}) {
        MakeFastDatabase(*world);
        world->Write("entry.ini", ManyEntries(40));
        world->TraceStatements();
    }
    ASSERT_EQ(oneByOne.Run(kOneByOne).exitCode, 0);
    ASSERT_EQ(together.Run(kTogether).exitCode, 0);
    EXPECT_EQ(changesOf(together), changesOf(oneByOne));
    for (const char* const table : {"MfrProtocols", "DeviceTypes", "DeviceRevisions"}) {
        EXPECT_EQ(Traced(together, std::string("select *   from ") + table), 1) << table;
        EXPECT_GE(Traced(oneByOne, std::string("select *   from ") + table), 40) << table;
    }
    EXPECT_EQ(Traced(together, "SELECT *   FROM DeviceCategories"), 1);
}

TEST(OneTransaction, ARefusedEntryInTheMiddleLeavesNothingAnywhere) {
    const World world;
    world.MakeDatabase();
    Refuse(world, "Best");
    world.Write("entry.ini", ThreeManufacturers());
    const auto before = world.Snapshot();
    const std::string rows = world.AllRows();
    const ProgramResult result = world.Run(With(kRegisterEntry, {"--one-transaction"}));

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "0 of 3 entries written\n");
    EXPECT_EQ(result.err,
              "ventlock-cli: [A] entry.ini:1: data source \"PYX\": rolled back\n"
              "ventlock-cli: [B] entry.ini:8: data source \"PYX\": the entry was not written\n"
              "  MANins-02.1a: ODBC--call failed. [HY000] [SQLite]not this one (19) (19) (3146)\n"
              "  driver: [HY000] [SQLite]not this one (19) (19)\n"
              "  Check the entry with \"ventlock-cli check\" and the database with \"ventlock-cli database "
              "info\".\n");
    EXPECT_EQ(world.AllRows(), rows);
    EXPECT_EQ(world.Snapshot(), before);
}

TEST(OneTransaction, TheDocumentTellsOfEveryEntryOfARefusedOne) {
    const World world;
    world.MakeDatabase();
    Refuse(world, "Best");
    world.Write("entry.ini", ThreeManufacturers());
    const ProgramResult result = world.Run(With(kRegisterEntry, {"--one-transaction", "--json"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
    const auto document = DocumentOf(result.out);
    EXPECT_EQ(document["exitCode"], 1);
    EXPECT_EQ(document["transaction"]["status"], "rolled back");
    EXPECT_EQ(document["error"]["text"], "[B] entry.ini:8: data source \"PYX\": the entry was not written");
    EXPECT_EQ(StatusesOf(document, "database"),
              (std::vector<std::string>{"rolled back", "failed", "skipped"}));
    EXPECT_EQ(StatusesOf(document, "ini"), (std::vector<std::string>{"skipped", "skipped", "skipped"}));
    EXPECT_EQ(StatusesOf(document, "ddinstall"), (std::vector<std::string>{"skipped", "skipped", "skipped"}));
}

TEST(OneTransaction, TheDocumentTellsOfEveryEntryOfACommittedOne) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", ThreeManufacturers());
    const auto document = DocumentOf(world.Run(With(kRegisterEntry, {"--one-transaction", "--json"})).out);
    EXPECT_EQ(document["exitCode"], 0);
    EXPECT_EQ(document["transaction"]["status"], "committed");
    EXPECT_EQ(document["transaction"]["restarts"], 0);
    const std::vector<std::string> written(3, "written");
    for (const char* const target : {"database", "ini", "ddinstall"}) {
        EXPECT_EQ(StatusesOf(document, target), written);
    }
    EXPECT_EQ(document["entries"][1]["targets"]["database"]["statements"].size(), 4U)
        << "no table is read again";
}

TEST(OneTransaction, ARefusedCommitLeavesNothingAnywhere) {
    const World world;
    world.MakeDatabase();
    world.Database().Execute(
        "CREATE TABLE leads (n INTEGER REFERENCES Manufacturers (TavMfrNameId) DEFERRABLE INITIALLY "
        "DEFERRED)");
    world.Database().Execute(
        "CREATE TRIGGER lead AFTER INSERT ON DeviceRevisions BEGIN INSERT INTO leads VALUES (99); END");
    world.Write("entry.ini", ThreeManufacturers());
    const auto before = world.Snapshot();
    const std::string rows = world.AllRows();
    const ProgramResult result = world.Run(With(kRegisterEntry, {"--one-transaction"}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "0 of 3 entries written\n");
    EXPECT_EQ(result.err.substr(0, result.err.find("\n  ")),
              "ventlock-cli: [A] entry.ini:1: data source \"PYX\": rolled back\n"
              "ventlock-cli: [B] entry.ini:8: data source \"PYX\": rolled back\n"
              "ventlock-cli: [C] entry.ini:15: data source \"PYX\": rolled back\n"
              "ventlock-cli: data source \"PYX\": the commit was refused, nothing was written");
    EXPECT_NE(result.err.find("  CONNcom-00: ODBC--call failed."), std::string::npos) << result.err;
    EXPECT_EQ(world.AllRows(), rows);
    EXPECT_EQ(world.Snapshot(), before);
}

/// A program that is ended in the middle of its transaction, by this signal.
class EndedTransaction : public testing::TestWithParam<int> {};

TEST_P(EndedTransaction, LeavesNothingAndIsWrittenWholeTheNextTime) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", ManyEntries(60));
    const std::string rows = world.AllRows();
    StopAtRevision(world, 30);
    world.TraceStatements();
    RunningProgram program(world.Call(kTogether));
    WaitUntil("the 30th revision", [&] { return Traced(world, "INSERT INTO DeviceRevisions") + 1 >= 30; });
    kill(program.Process(), GetParam());
    EXPECT_EQ(program.Wait().exitCode, -1);

    world.Database().Execute("DROP TRIGGER stop");
    world.Database().Execute("DROP VIEW endless");
    EXPECT_EQ(world.AllRows(), rows);
    EXPECT_EQ(world.Run(kTogether).exitCode, 0);
    const World whole;
    MakeFastDatabase(whole);
    whole.Write("entry.ini", ManyEntries(60));
    ASSERT_EQ(whole.Run(kOneByOne).exitCode, 0);
    EXPECT_EQ(world.AllRows(), whole.AllRows());
}

INSTANTIATE_TEST_SUITE_P(By, EndedTransaction, testing::Values(SIGKILL, SIGINT), [](const auto& signal) {
    return signal.param == SIGKILL ? "ThePowerOfTheSystem" : "TheUserAtTheTerminal";
});

/// Two programs at once, whose entries have their manufacturers in common; `rows` looks at their database.
void ExpectBothWhole(const World& world, const std::function<std::string(const std::string&)>& rows) {
    constexpr int kEntries = 60;
    std::vector<std::unique_ptr<RunningProgram>> programs;
    for (int program = 0; program < 2; ++program) {
        const std::string file = "entry" + std::to_string(program) + ".ini";
        std::string entries;
        for (int i = 0; i < kEntries; ++i) {
            entries += "[E" + std::to_string(i) + "]\nManID=" + std::to_string(20 + i % 3) +
                       "\nManName=M\nDevID=" + std::to_string(100 * program + i) + "\nDevName=D\n";
        }
        world.Write(file, entries);
        programs.push_back(std::make_unique<RunningProgram>(
            world.Call({"register", file, "--db", "--one-transaction", "--json"})));
    }
    for (const auto& program : programs) {
        const ProgramResult result = program->Wait();
        EXPECT_EQ(result.exitCode, 0) << result.out;
        EXPECT_EQ(DocumentOf(result.out)["transaction"]["status"], "committed");
    }
    EXPECT_EQ(rows("SELECT count(*), count(DISTINCT TavMfrNameId) FROM MfrProtocols"), "3|3\n");
    EXPECT_EQ(rows("SELECT count(*), count(DISTINCT TavDevTypeId), max(TavDevTypeId) FROM DeviceTypes"),
              "120|120|120\n");
    EXPECT_EQ(rows("SELECT count(*), count(DISTINCT TavDevTypeId) FROM DeviceRevisions"), "120|120\n");
}

TEST(OneTransaction, TwoProgramsAtOnceAreBothWrittenWhole) {
    const World world;
    world.MakeDatabase();
    ExpectBothWhole(world, [&](const std::string& sql) { return world.Rows(sql); });
}

/// The same on a server, which refuses one of them instead of letting it wait.
template <class Server>
void ExpectBothWholeOnServer() {
    Server server;
    ServerDatabase database(server);
    const World world;
    std::string source = "[PYX]\nDriver=" + server.Driver() + "\n";
    for (const auto& [name, value] : server.SettingsFor(database.OwnName())) {
        source.append(name).append("=").append(value).append("\n");
    }
    WriteBytes(world.UserDataSources(), source);
    ExpectBothWhole(world, [&](const std::string& sql) { return database.Rows(sql); });
}

TEST(OneTransaction, TwoProgramsAtOnceAreBothWrittenWholeOnPostgresql) {
    ExpectBothWholeOnServer<PostgresServer>();
}

TEST(OneTransaction, TwoProgramsAtOnceAreBothWrittenWholeOnMariadb) {
    ExpectBothWholeOnServer<MariadbServer>();
}

TEST(OneTransaction, WaitsForAnotherProgramThatWritesAndSeesItsRows) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", kFlowEntry);
    world.TraceStatements();
    OdbcProbe other = world.Database();
    other.Execute("BEGIN IMMEDIATE");
    other.Execute("INSERT INTO Manufacturers VALUES (1, 'Theirs', '')");
    other.Execute("INSERT INTO MfrProtocols VALUES (1, 1, 0, '99')");
    RunningProgram program(world.Call(With(kTogether, {"--json"})));
    WaitUntil("the claim", [&] { return Traced(world, "UPDATE Manufacturers    SET Name = Name") >= 1; });
    other.Execute("COMMIT");
    const ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 0) << result.out;
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Theirs|\n2|Acme|Acme Inc\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|99\n2|2|0|38\n");
}

TEST(OneTransaction, ADatabaseThatAnotherProgramKeepsIsToldAndNothingIsWritten) {
    const World world;
    world.MakeDatabase();
    std::string sources = ReadBytes(world.UserDataSources());
    sources.replace(sources.find("Timeout=10000"), 13, "Timeout=1");
    WriteBytes(world.UserDataSources(), sources);
    world.Write("entry.ini", ThreeManufacturers());
    OdbcProbe other = world.Database();
    other.Execute("BEGIN IMMEDIATE");
    const ProgramResult result = world.Run(kTogether);
    other.Execute("ROLLBACK");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.substr(0, result.err.find('\n')),
              "ventlock-cli: data source \"PYX\": no transaction can be begun, nothing was written");
    EXPECT_NE(result.err.find("  Another program holds the database. End it or wait until it is done, then "
                              "run the command again.\n"),
              std::string::npos)
        << result.err;
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "");
}

TEST(OneTransaction, RowsThatEndedProgramsLeftDoNotStopNewManufacturers) {
    const World world;
    world.MakeDatabase();
    world.Database().Execute("INSERT INTO Manufacturers VALUES (1, 'Left', 'by an ended program')");
    world.Database().Execute("INSERT INTO Manufacturers VALUES (3, 'Left', 'by another one')");
    world.Write("entry.ini", ThreeManufacturers());
    const ProgramResult result = world.Run(kTogether);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|\n2|Best|\n3|Core|\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n2|2|0|39\n3|3|0|40\n");
}

TEST(OneTransaction, OfADryRunShowsWhatItWouldWriteAndWritesNothing) {
    const World world;
    world.MakeDatabase();
    world.Write("entry.ini", ThreeManufacturers());
    const auto before = world.Snapshot();
    const auto planned =
        DocumentOf(world.Run(With(kRegisterEntry, {"--one-transaction", "--dry-run", "--json"})).out);
    const std::string text = world.Run(With(kRegisterEntry, {"--one-transaction", "--dry-run"})).out;
    EXPECT_EQ(world.Snapshot(), before);
    EXPECT_EQ(planned["exitCode"], 0);
    EXPECT_EQ(planned["transaction"]["status"], "planned");
    EXPECT_EQ(StatusesOf(planned, "ddinstall"), std::vector<std::string>(3, "planned"));
    EXPECT_EQ(
        text.substr(text.find("[B]"), text.find("--- ", text.find("[B]")) - text.find("[B]")),
        "[B] entry.ini:8\n"
        "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (2, 'Best', '') \n"
        "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) VALUES (2, 2, "
        "0, '39') \n"
        "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) "
        "VALUES (2, 2, '8', 'Level', '') \n"
        "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
        "DeviceCategoryId, Name, Description) VALUES (2, 2, '1', 0, '', '') \n"
        "[B] entry.ini:8: data source \"PYX\": would be written\n");

    const auto real = DocumentOf(world.Run(With(kRegisterEntry, {"--one-transaction", "--json"})).out);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(planned["entries"][i]["targets"]["database"]["statements"],
                  real["entries"][i]["targets"]["database"]["statements"]);
    }
}

TEST(OneTransaction, WithoutTheDatabaseIsAWrongCall) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    for (const std::vector<std::string>& targets : std::vector<std::vector<std::string>>{{"--ini"}, {}}) {
        ExpectRefused(world, With({"register", "entry.ini", "--one-transaction"}, targets), 2,
                      "ventlock-cli: --one-transaction is for the database, which is no target of this call\n"
                      "  Add --db, or leave --one-transaction out.\n");
    }
    ExpectRefusedAsDocument(world, {"register", "entry.ini", "--one-transaction", "--ini"}, 2,
                            "--one-transaction is for the database, which is no target of this call");
}

TEST(OneTransaction, ADriverThatHasNoneIsToldAndNothingIsWritten) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    WriteBytes(world.UserDataSources(), "[PYX]\nDriver=" VENTLOCK_MOCK_DRIVER "\n");
    ExpectRefused(world, With(kRegisterEntry, {"--one-transaction"}), 3,
                  "ventlock-cli: data source \"PYX\": no transaction can be begun, nothing was written\n"
                  "  CONNbeg-01: ODBC--call failed. [HYC00] The driver offers no serializable transactions "
                  "(0) (3146)\n"
                  "  driver: [HYC00] The driver offers no serializable transactions (0)\n"
                  "  The data source's driver cannot keep other programs out until all entries are written. "
                  "Leave --one-transaction out: every entry is written by itself then.\n");
}

}  // namespace
}  // namespace ventlock::test
