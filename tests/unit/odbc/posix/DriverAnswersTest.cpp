#include <gtest/gtest.h>

#include <string>

#include "support/MockDriver.h"
#include "support/Raised.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

// What no real driver can be brought to answer.

TEST(DriverAnswers, AWarningOnConnectingIsSuccess) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    engine.Open(driver.ConnectString("with_info"))->Execute("anything");
    EXPECT_EQ(driver.Executions(), 1);
}

TEST(DriverAnswers, ThePasswordOfAConnectStringIsInNoDiagnostic) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    const std::string connect = driver.ConnectString("refuses_connect");
    const std::string source = connect.substr(connect.find("DSN="));
    Engine engine;
    EXPECT_EQ(DiagnosticsOf([&] { engine.Open("ODBC;UID=sa;PWD={hunter2;x};" + source); }),
              Texts{"[28000] No login with UID=sa;PWD=***;" + source + " (18)"});
}

TEST(DriverAnswers, FactsThatTheDriverDoesNotTellAreEmpty) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const ConnectionFacts facts = engine.Open(driver.ConnectString("obedient"))->Facts();
    EXPECT_EQ(facts.driver, "mock");
    EXPECT_EQ(facts.product, "Möck Ω");
    EXPECT_EQ(facts.driverVersion, "");
    EXPECT_EQ(facts.productVersion, "");
    EXPECT_EQ(facts.database, "");
}

TEST(DriverAnswers, ABrokenLinkRefusesLaterCalls) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    for (const std::string manner : {"breaks_link", "loses_link"}) {
        const auto connection = engine.Open(driver.ConnectString(manner));
        const auto table = connection->OpenRecordset("Manufacturers", RecordsetType::Dynaset);
        EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("x"); }), 3146) << manner;
        EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("x"); }), 3420) << manner;
        EXPECT_EQ(NumberRaisedBy([&] { Snapshot(*connection, "x"); }), 3420) << manner;
        EXPECT_EQ(NumberRaisedBy([&] { connection->Facts(); }), 3420) << manner;
        table->AddNew();
        EXPECT_EQ(DescriptionRaisedBy([&] { table->Update(); }), "Object invalid or no longer set.")
            << manner;
    }
    EXPECT_EQ(driver.Executions(), 2);
}

TEST(DriverAnswers, NoDataAndAWarningOfTheDriverAreSuccess) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    engine.Open(driver.ConnectString("no_data"))->Execute("x");
    engine.Open(driver.ConnectString("with_info"))->Execute("x");
    EXPECT_EQ(driver.Executions(), 2);
}

TEST(DriverAnswers, AllRecordsOfTheDriverAreKeptWhole) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("three_records"));
    const auto failing = [&] { connection->Execute("x"); };
    EXPECT_EQ(
        DiagnosticsOf(failing),
        (Texts{"[42000] first (1)", "[HY000] " + std::string(3000, 'x') + " (2)", "[01000] thiΩrd (-3)"}));
    EXPECT_EQ(DescriptionRaisedBy(failing), "ODBC--call failed. [42000] first (1)");
}

TEST(DriverAnswers, ADriverThatGivesNoReasonIsSaidToGiveNone) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("no_record"));
    EXPECT_EQ(DiagnosticsOf([&] { connection->Execute("x"); }),
              Texts{"[HY000] The driver gave no reason (0)"});
}

TEST(DriverAnswers, OpeningATableRunsNoStatement) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("obedient"));
    const auto table = connection->OpenRecordset("MfrIds", RecordsetType::Dynaset);
    EXPECT_TRUE(table->AtEnd());
    EXPECT_EQ(driver.Executions(), 0);
}

TEST(DriverAnswers, ADriverThatGivesSmallerBlocksLosesNoRow) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("small_blocks"));
    const auto rows = Snapshot(*connection, "x");
    EXPECT_EQ(rows->Columns(), std::vector<std::string>{"Ω"});
    EXPECT_EQ(RowsOf(*rows), "one\nΩ\n\x7F\n\xC2\x80\nfive\n");  // both sides of the end of ASCII
    EXPECT_EQ(driver.Executions(), 1);
}

TEST(DriverAnswers, AFetchThatFailsIsAnError) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("fails_in_fetch"));
    EXPECT_EQ(DiagnosticsOf([&] { Snapshot(*connection, "x"); }), Texts{"[40001] Given up (8)"});
}

TEST(DriverAnswers, ARowThatCannotBeReadIsAnErrorThoughTheBlockIsNone) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("spoilt_row"));
    EXPECT_EQ(DiagnosticsOf([&] { Snapshot(*connection, "x"); }), Texts{"[22018] No text (7)"});
}

TEST(DriverAnswers, AWideCellLongerThanItsColumnIsSaidToBeIsNotCut) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("long_cell"));
    std::string expected;
    for (int i = 0; i < 5000; ++i) expected += "中";
    const auto rows = Snapshot(*connection, "x");
    EXPECT_TRUE(RowsOf(*rows) == expected + "\n");  // too long to be printed
    EXPECT_EQ(driver.Executions(), 2) << "once more, row by row";
}

}  // namespace
}  // namespace ventlock::test
