#include <gtest/gtest.h>

#include <filesystem>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

/// From now on another program takes the number of the table's next row just before it is inserted, `times`
/// times; "rival" are the values that it inserts. The refused statement leaves the other program's row.
void LetOthersTakeNumbers(const World& world, const std::string& table, const std::string& number,
                          const std::string& rival, int times) {
    OdbcProbe database = world.Database();
    const std::string sql =
        database.Rows("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = '" + table + "'");
    std::string yielding = sql.substr(0, sql.rfind('\n'));
    const std::string key = "PRIMARY KEY (" + number + ")";
    ASSERT_NE(yielding.find(key), std::string::npos) << yielding;
    yielding.replace(yielding.find(key), key.size(), key + " ON CONFLICT FAIL");
    database.Execute("PRAGMA foreign_keys=OFF");
    database.Execute("CREATE TABLE kept AS SELECT * FROM " + table);
    database.Execute("DROP TABLE " + table);
    database.Execute(yielding);
    database.Execute("INSERT INTO " + table + " SELECT * FROM kept");
    database.Execute("CREATE TABLE rivals (n INTEGER)");
    for (int i = 0; i < times; ++i) database.Execute("INSERT INTO rivals VALUES (" + std::to_string(i) + ")");
    database.Execute("CREATE TRIGGER rival BEFORE INSERT ON " + table +
                     " WHEN EXISTS (SELECT * FROM rivals) BEGIN "
                     "DELETE FROM rivals WHERE n = (SELECT max(n) FROM rivals); "
                     "INSERT INTO " +
                     table + " VALUES (" + rival + "); END");
}

constexpr const char* kRivalType =
    "NEW.TavDevTypeId, NEW.MfrProtocolId, 1000 + NEW.TavDevTypeId, 'theirs', ''";

const std::vector<std::string> kRegister = {"register", "entry.ini", "--db"};

TEST(TakenNumber, TheEntryIsStartedAnewAndGetsTheNextOne) {
    const World world;
    world.MakeDatabase();
    LetOthersTakeNumbers(world, "DeviceTypes", "TavDevTypeId", kRivalType, 3);
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result = world.Run(kRegister);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "[Flow] entry.ini:1: data source \"PYX\": written\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceTypes"),
              "1|1|1001|theirs|\n2|1|1002|theirs|\n3|1|1003|theirs|\n4|1|7|Flow|Flow meter\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|4|1|0|R1|First\n");
}

TEST(TakenNumber, TheDocumentHoldsTheRestartsAndTheStatementsOfEveryStart) {
    const World world;
    world.MakeDatabase();
    LetOthersTakeNumbers(world, "DeviceTypes", "TavDevTypeId", kRivalType, 1);
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result = world.Run(With(kRegister, {"--json"}));

    EXPECT_EQ(result.exitCode, 0);
    const auto target = DocumentOf(result.out)["entries"][0]["targets"]["database"];
    EXPECT_EQ(target["status"], "written");
    EXPECT_EQ(target["messages"].size(), 0U);
    EXPECT_EQ(target.value("restarts", 0), 1);
    std::vector<std::string> changes;
    for (const auto& statement : target["statements"]) {
        const auto text = statement.get<std::string>();
        if (!text.starts_with("select") && !text.starts_with("SELECT")) {
            changes.push_back(text.substr(0, text.find("  ")));
        }
    }
    EXPECT_EQ(changes, (std::vector<std::string>{"INSERT INTO Manufacturers", "INSERT INTO MfrProtocols",
                                                 "INSERT INTO DeviceTypes", "update Manufacturers",
                                                 "INSERT INTO DeviceTypes", "INSERT INTO DeviceRevisions"}));
}

TEST(TakenNumber, TheLogTellsOfTheRefusalAndOfTheRestart) {
    World world;
    world.MakeDatabase();
    LetOthersTakeNumbers(world, "DeviceTypes", "TavDevTypeId", kRivalType, 1);
    world.Write("entry.ini", kFlowEntry);
    // The other user writes to the database and to its journal beside it.
    for (const char* const shared : {"", "device.db"}) {
        std::filesystem::permissions(world.Path(shared), std::filesystem::perms::all);
    }
    ASSERT_EQ(world.RunAsOrdinaryUser(kRegister).exitCode, 0);

    const std::string log = ReadBytes(world.StateFolder() + "/Ventlock.log");
    const auto refusal = log.find("DEVins-03.1: ODBC--call failed.");
    const auto restart =
        log.find("[Flow] entry.ini:1: another program was first; the entry is started anew.\r\n");
    EXPECT_NE(refusal, std::string::npos) << log;
    EXPECT_NE(restart, std::string::npos) << log;
    EXPECT_LT(refusal, restart);
}

TEST(TakenNumber, ANewCategoryIsNumberedAnewToo) {
    const World world;
    world.MakeDatabase();
    LetOthersTakeNumbers(world, "MajorDeviceCategories", "MajorDeviceCategoryId",
                         "NEW.MajorDeviceCategoryId, 'theirs', ''", 1);
    const std::string before = world.Rows("SELECT max(MajorDeviceCategoryId) FROM MajorDeviceCategories");
    const int largest = std::stoi(before);
    world.Write("entry.ini",
                "[Flow]\nManID=26\nManName=Acme\nProtocol=Conventional\nDevID=7\nDevName=Flow\n"
                "MajorCategory=Ours\nMinorCategory=Not classified\n");
    const ProgramResult result = world.Run(kRegister);

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world.Rows("SELECT MajorDeviceCategoryId, Name FROM MajorDeviceCategories WHERE "
                         "MajorDeviceCategoryId > " +
                         std::to_string(largest)),
              std::to_string(largest + 1) + "|theirs\n" + std::to_string(largest + 2) + "|Ours\n");
}

TEST(TakenNumber, RestartsEnd) {
    const World world;
    world.MakeDatabase();
    LetOthersTakeNumbers(world, "DeviceTypes", "TavDevTypeId", kRivalType, 40);
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result = world.Run(With(kRegister, {"--json"}));

    EXPECT_EQ(result.exitCode, 1);
    const auto target = DocumentOf(result.out)["entries"][0]["targets"]["database"];
    EXPECT_EQ(target["status"], "failed");
    EXPECT_EQ(target.value("restarts", 0), 30);
    EXPECT_EQ(world.Rows("SELECT count(*) FROM DeviceTypes"), "31\n");
    EXPECT_EQ(world.Rows("SELECT count(*) FROM DeviceRevisions"), "0\n");
}

TEST(TakenNumber, ARowThatAnEndedProgramLeftDoesNotStopNewManufacturers) {
    const World world;
    world.MakeDatabase();
    // Ended after its first insert: the row of the manufacturer is there, nothing leads to it.
    world.Database().Execute("INSERT INTO Manufacturers VALUES (1, 'Left', 'by an ended program')");
    world.Write("entry.ini", kFlowEntry);
    const ProgramResult result = world.Run(kRegister);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(world.Rows("SELECT * FROM MfrProtocols"), "1|1|0|38\n");
    EXPECT_EQ(world.Rows("SELECT * FROM DeviceRevisions"), "1|1|1|0|R1|First\n");
}

TEST(TakenNumber, RowsOfTheOldSchemaAreNotTriedAgain) {
    const World world;
    world.MakeDatabase("old");
    world.Write("entry.ini", kFlowEntry);
    ASSERT_EQ(world.Run(kRegister).exitCode, 0);
    world.TraceStatements();
    const ProgramResult result = world.Run(With(kRegister, {"--json"}));

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_FALSE(DocumentOf(result.out)["entries"][0]["targets"]["database"].contains("restarts"));
    int inserts = 0;
    for (const std::string& statement : world.TracedStatements()) inserts += statement.starts_with("INSERT");
    EXPECT_EQ(inserts, 1);
}

}  // namespace
}  // namespace ventlock::test
