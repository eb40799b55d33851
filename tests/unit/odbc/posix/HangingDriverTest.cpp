#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "support/MockDriver.h"
#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"
#include "unit/odbc/TimeLimits.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;
using Texts = std::vector<std::string>;

class HangingDriver : public ::testing::Test {
 protected:
    MockDriver driver_{VENTLOCK_MOCK_DRIVER};
    Engine engine_{kShort};
};

TEST_F(HangingDriver, OfTheLoginHoldsWhateverTheDriverDoes) {
    Texts texts;
    const milliseconds time = TimeOf(
        [&] { texts = DiagnosticsOf([&] { engine_.Open(driver_.ConnectString("hangs_in_connect")); }); });
    EXPECT_EQ(texts, Texts{"[HYT01] The database did not answer within 0.2 s (0)"});
    EXPECT_GE(time, kShort.login);
    EXPECT_LT(time, milliseconds(5000));
}

TEST_F(HangingDriver, OfTheLoginLeavesTheEngineUsable) {
    EXPECT_EQ(NumberRaisedBy([&] { engine_.Open(driver_.ConnectString("hangs_in_connect")); }), 3146);
    driver_.WaitForHanging(1);
    engine_.Open(driver_.ConnectString("obedient"))->Execute("x");
    EXPECT_EQ(driver_.Executions(), 1);
    SqliteDatabase database;
    EXPECT_EQ(RowsOf(*Snapshot(*engine_.Open(database.ConnectString()), "SELECT Major FROM __version")),
              "1\n");
}

TEST_F(HangingDriver, OfAStatementHoldsWhenTheDriverIgnoresCancelling) {
    const auto connection = engine_.Open(driver_.ConnectString("hangs_in_execute"));
    Texts texts;
    const milliseconds time = TimeOf([&] { texts = DiagnosticsOf([&] { connection->Execute("x"); }); });
    EXPECT_EQ(texts, Texts{"[HYT00] The database did not answer within 0.3 s (0)"});
    EXPECT_EQ(driver_.Cancels(), 1);
    EXPECT_GE(time, kShort.query + kShort.grace);
    EXPECT_LT(time, milliseconds(5000));
}

TEST_F(HangingDriver, AConnectionThatWasGivenUpIsDead) {
    auto connection = engine_.Open(driver_.ConnectString("hangs_in_execute"));
    const auto table = connection->OpenRecordset("t", RecordsetType::Dynaset);
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("x"); }), 3146);
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("x"); }), 3420);
    EXPECT_EQ(NumberRaisedBy([&] { Snapshot(*connection, "x"); }), 3420);
    table->AddNew();
    EXPECT_EQ(NumberRaisedBy([&] { table->Update(); }), 3420);
    EXPECT_EQ(driver_.Executions(), 1);
    const milliseconds time = TimeOf([&] { connection.reset(); });
    EXPECT_LT(time, kShort.grace) << "closing must not wait for the driver";
    driver_.WaitForHanging(1);
}

TEST_F(HangingDriver, AStatementThatIsCancelledInTimeGivesTheLimitAndTheDriversWords) {
    const auto connection = engine_.Open(driver_.ConnectString("hangs_until_cancelled"));
    const auto failing = [&] { connection->Execute("x"); };
    const Texts expected{"[HYT00] The database did not answer within 0.3 s (0)",
                         "[HY008] Operation cancelled (57)"};
    EXPECT_EQ(DiagnosticsOf(failing), expected);
    EXPECT_EQ(DiagnosticsOf(failing), expected) << "the connection stays usable";
    EXPECT_EQ(DiagnosticsOf([&] { Snapshot(*connection, "x"); }), expected);
    EXPECT_EQ(driver_.Cancels(), 3);
}

TEST_F(HangingDriver, AChangeThatWasCarriedOutAfterAllIsASuccessAndAReadingIsNot) {
    const auto connection = engine_.Open(driver_.ConnectString("succeeds_when_cancelled"));
    EXPECT_EQ(DiagnosticsOf([&] { connection->Execute("x"); }), Texts{"none"});
    EXPECT_EQ(driver_.Cancels(), 1);
    EXPECT_EQ(DiagnosticsOf([&] { Snapshot(*connection, "x"); }),
              (Texts{"[HYT00] The database did not answer within 0.3 s (0)",
                     "[HY008] The call was cancelled (0)"}));
}

TEST_F(HangingDriver, AReadingThatIsFinishedAfterItsLimitIsAFailure) {
    struct Releasing final : IEvents {
        MockDriver* driver = nullptr;
        std::chrono::steady_clock::time_point at;
        void Yield() override {
            if (driver != nullptr && std::chrono::steady_clock::now() >= at) driver->Release();
        }
    };
    Releasing events;
    const auto engine = CreateOdbcEngine(events, kShort);
    const auto connection =
        engine->CreateWorkspace("", "sa", "", WorkspaceType::Odbc)
            ->OpenConnection("", std::nullopt, false, driver_.ConnectString("hangs_in_fetch"));
    events.at = std::chrono::steady_clock::now() + kShort.query + kShort.grace / 4;
    events.driver = &driver_;
    EXPECT_EQ(DiagnosticsOf([&] { Snapshot(*connection, "x"); }),
              Texts{"[HYT00] The database did not answer within 0.3 s (0)"});
    EXPECT_EQ(driver_.Executions(), 1);
}

TEST_F(HangingDriver, ADriverThatHangsInDisconnectingHoldsNobodyUp) {
    auto connection = engine_.Open(driver_.ConnectString("hangs_in_disconnect"));
    const milliseconds time = TimeOf([&] { connection.reset(); });
    driver_.WaitForHanging(1);
    EXPECT_LT(time, milliseconds(5000));
}

TEST_F(HangingDriver, EventsRunWhileTheDatabaseIsWaitedFor) {
    const auto connection = engine_.Open(driver_.ConnectString("hangs_until_cancelled"));
    engine_.events.yields = 0;
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("x"); }), 3146);
    EXPECT_GE(engine_.events.yields, 5);
    EXPECT_LE(engine_.events.yields, 71) << "no more than one in 10 ms of 0.7 s";
}

TEST_F(HangingDriver, AnEventMayUseTheConnectionThatIsWaitedFor) {
    struct Nested final : IEvents {
        IConnection* connection = nullptr;
        int calls = 0;
        Texts texts;
        MockDriver* driver = nullptr;
        void Yield() override {
            if (connection == nullptr || calls++ > 0) return;
            texts = DiagnosticsOf([this] { Snapshot(*connection, "inner"); });
        }
    };
    Nested events;
    const auto engine = CreateOdbcEngine(events, kShort);
    const auto connection =
        engine->CreateWorkspace("", "sa", "", WorkspaceType::Odbc)
            ->OpenConnection("", std::nullopt, false, driver_.ConnectString("hangs_in_execute"));
    events.connection = connection.get();
    EXPECT_EQ(NumberRaisedBy([&] { connection->Execute("outer"); }), 3146);
    EXPECT_EQ(events.texts, Texts{"[HYT00] The database did not answer within 0.3 s (0)"});
}

TEST_F(HangingDriver, AnEventMayCloseTheConnectionThatIsWaitedFor) {
    struct Closing final : IEvents {
        std::unique_ptr<IConnection>* connection = nullptr;
        void Yield() override {
            if (connection != nullptr) connection->reset();
        }
    };
    Closing events;
    const auto engine = CreateOdbcEngine(events, kShort);
    auto connection =
        engine->CreateWorkspace("", "sa", "", WorkspaceType::Odbc)
            ->OpenConnection("", std::nullopt, false, driver_.ConnectString("hangs_until_cancelled"));
    events.connection = &connection;
    IConnection* const used = connection.get();
    EXPECT_EQ(
        DiagnosticsOf([&] { used->Execute("x"); }),
        (Texts{"[HYT00] The database did not answer within 0.3 s (0)", "[HY008] Operation cancelled (57)"}));
    EXPECT_EQ(connection, nullptr);
}

}  // namespace
}  // namespace ventlock::test
