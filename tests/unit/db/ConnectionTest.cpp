#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "db/DatabaseOf.h"
#include "db/clsConnection.h"
#include "support/DbWorld.h"
#include "support/LogEntry.h"
#include "support/Raised.h"
#include "unit/db/FailingMemory.h"

namespace ventlock::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Marked(std::string_view text) {
    return "<" + std::string(text) + ">";
}

/// Writes down what it is asked for, and fails at one of the three calls when told to.
struct AskedEngine {
    std::vector<std::string> calls;
    int failsAt = 0;  ///< 1: making the engine, 2: its workspace, 3: its connection
    ErrorNumber error = ErrorNumber::OdbcCallFailed;

    void Meet(int call, const std::string& text) {
        calls.push_back(text);
        if (call == failsAt) throw RunTimeError(error);
    }

    EngineFactory Factory() {
        return [this]() -> std::unique_ptr<IDBEngine> {
            Meet(1, "engine");
            return std::make_unique<Engine>(*this);
        };
    }

 private:
    struct Connection final : IConnection {
        std::unique_ptr<Recordset> OpenRecordset(std::string_view /*source*/,
                                                 RecordsetType /*type*/) override {
            return std::make_unique<Recordset>(std::vector<std::string>{"n"});
        }
        void Execute(std::string_view /*statement*/) override {}
        void BeginTrans() override {}
        void CommitTrans() override {}
        void Rollback() override {}
        ConnectionFacts Facts() override { return {}; }
    };
    struct Workspace final : IWorkspace {
        explicit Workspace(AskedEngine& engine) : asked(engine) {}
        std::unique_ptr<IConnection> OpenConnection(std::string_view name, std::optional<int> options,
                                                    bool readOnly, std::string_view connect) override {
            asked.Meet(3, "connection " + Marked(name) + (options ? " options" : " omitted") +
                              (readOnly ? " True " : " False ") + Marked(connect));
            return std::make_unique<Connection>();
        }
        AskedEngine& asked;
    };
    struct Engine final : IDBEngine {
        explicit Engine(AskedEngine& engine) : asked(engine) {}
        std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                    std::string_view password, WorkspaceType type) override {
            asked.Meet(2, "workspace " + Marked(name) + " " + Marked(user) + " " + Marked(password) + " " +
                              std::to_string(static_cast<int>(type)));
            return std::make_unique<Workspace>(asked);
        }
        AskedEngine& asked;
    };
};

/// The last call of a connect to a data source.
std::string ConnectCall(const std::optional<std::string>& dataSource) {
    LoggedApp app;
    AskedEngine asked;
    clsConnection connection(asked.Factory());
    EXPECT_TRUE(connection.Init(app.Objects(), 2, dataSource));
    EXPECT_THAT(app.Entries(), IsEmpty());
    return asked.calls.empty() ? "" : asked.calls.back();
}

TEST(Connection, MakesEngineWorkspaceAndConnectionWithTheseArguments) {
    LoggedApp app;
    AskedEngine asked;
    clsConnection connection(asked.Factory());
    EXPECT_TRUE(connection.Init(app.Objects(), 2, "PYX", "Ventlock"));
    EXPECT_THAT(asked.calls, ElementsAre("engine", "workspace <> <sa> <> 1",
                                         "connection <> omitted False <ODBC;UID=sa;PWD=;DSN=PYX>"));
    EXPECT_THAT(app.Entries(), IsEmpty());
}

TEST(Connection, TheDataSourceNameFollowsAsItStands) {
    EXPECT_EQ(ConnectCall("PYX"), "connection <> omitted False <ODBC;UID=sa;PWD=;DSN=PYX>");
    EXPECT_EQ(ConnectCall(std::nullopt), "connection <> omitted False <ODBC;UID=sa;PWD=;DSN=PYX>");
    EXPECT_EQ(ConnectCall(" A"), "connection <> omitted False <ODBC;UID=sa;PWD=;DSN= A>") << "not trimmed";
    EXPECT_EQ(ConnectCall("A "), "connection <> omitted False <ODBC;UID=sa;PWD=;DSN=A >");
    EXPECT_EQ(ConnectCall(""), "connection <> omitted False <ODBC;UID=sa;PWD=;DSN=>")
        << "given but empty stays empty";
}

TEST(Connection, TheDataSourceNameOfOneInitIsNotKeptForTheNext) {
    LoggedApp app;
    AskedEngine asked;
    clsConnection connection(asked.Factory());
    EXPECT_TRUE(connection.Init(app.Objects(), 2, "OTHER"));
    EXPECT_TRUE(connection.Init(app.Objects(), 2));
    EXPECT_EQ(asked.calls.back(), "connection <> omitted False <ODBC;UID=sa;PWD=;DSN=PYX>");
}

TEST(Connection, InitWithoutADatabaseConnectsToTheDataSourcePyx) {
    DbWorld world;
    const auto pyx = NewDeviceDatabase(DeviceSchema::None, "PYX");
    pyx->Execute("CREATE TABLE only_here (n INTEGER)");
    pyx->Execute("INSERT INTO only_here VALUES (17)");
    EXPECT_TRUE(world.Connection().Init(world.Objects(), 2));
    EXPECT_EQ(OpenSnapshot(&world.Objects(), "SELECT n FROM only_here")->Column("n").Text(), "17");
    EXPECT_THAT(world.Entries(), IsEmpty());
}

TEST(Connection, InitWithAnotherOperationOpensNothingAndIsFalse) {
    LoggedApp app;
    AskedEngine asked;
    clsConnection connection(asked.Factory());
    EXPECT_FALSE(connection.Init(app.Objects(), std::nullopt, "PYX"));
    EXPECT_FALSE(connection.Init(app.Objects(), 1, "PYX"));
    EXPECT_FALSE(connection.Init(app.Objects(), 3, "PYX"));
    EXPECT_THAT(asked.calls, IsEmpty());
    EXPECT_EQ(connection.DB(), nullptr);
    EXPECT_THAT(app.Entries(), IsEmpty());
}

TEST(Connection, InitWithAnotherOperationKeepsWhatIsConnected) {
    DbWorld world;
    const IConnection* const before = world.Connection().DB();
    EXPECT_FALSE(world.Connection().Init(world.Objects(), 1, "nowhere"));
    EXPECT_EQ(world.Connection().DB(), before);
    EXPECT_FALSE(OpenSnapshot(&world.Objects(), "SELECT * FROM __version")->AtEnd());
}

TEST(Connection, TheApplicationIdChangesNothing) {
    LoggedApp app;
    AskedEngine without;
    AskedEngine with;
    EXPECT_TRUE(clsConnection(without.Factory()).Init(app.Objects(), 2, "A"));
    EXPECT_TRUE(clsConnection(with.Factory()).Init(app.Objects(), 2, "A", "Something else"));
    EXPECT_EQ(with.calls, without.calls);
}

TEST(Connection, DbIsNothingBeforeTheFirstConnect) {
    AskedEngine asked;
    clsConnection connection(asked.Factory());
    EXPECT_EQ(connection.DB(), nullptr);
}

TEST(Connection, AnUnknownDataSourceIsLoggedAndLeavesNoConnection) {
    DbWorld world;
    EXPECT_FALSE(world.Connect("nowhere"));
    EXPECT_EQ(world.Connection().DB(), nullptr) << "what was connected before is gone";
    EXPECT_THAT(world.Entries(), ElementsAre(AllOf(DatabaseEntry("CONNconn-02"), HasSubstr(" [IM002] "))));
    EXPECT_EQ(NumberRaisedBy([&] { DatabaseOf(&world.Objects()); }), 91);
}

TEST(Connection, TheDriversRecordsOfAFailedConnectAreKeptUntilTheNextConnect) {
    DbWorld world;
    EXPECT_THAT(world.Connection().Diagnostics(), IsEmpty());
    EXPECT_FALSE(world.Connect("nowhere"));
    EXPECT_THAT(world.Connection().Diagnostics(),
                ElementsAre("[IM002] [unixODBC][Driver Manager]Data source name not found and no default "
                            "driver specified (0)"));
    EXPECT_TRUE(world.Connect(world.Dsn()));
    EXPECT_THAT(world.Connection().Diagnostics(), IsEmpty());
}

TEST(Connection, AnEmptyDataSourceNameFailsWith3146) {
    DbWorld world;
    EXPECT_FALSE(world.Connect(""));
    EXPECT_EQ(world.Connection().DB(), nullptr);
    EXPECT_THAT(world.Entries(), ElementsAre(EntryWith("CONNconn-02", ErrorNumber::OdbcCallFailed, "")));
}

TEST(Connection, AFailureIsLoggedWithTheStepItHappenedIn) {
    struct Case {
        int failsAt;
        ErrorNumber error;
        std::string entry;
    };
    for (const Case& failing :
         {Case{1, ErrorNumber::CannotCreateObject,
               "CONNconn-01: ActiveX component can't create object (429)"},
          Case{2, ErrorNumber::OdbcCallFailed, "CONNconn-01.1: ODBC--call failed. (3146)"},
          Case{3, ErrorNumber::OdbcCallFailed, "CONNconn-02: ODBC--call failed. (3146)"}}) {
        LoggedApp app;
        AskedEngine asked;
        asked.failsAt = failing.failsAt;
        asked.error = failing.error;
        clsConnection connection(asked.Factory());
        EXPECT_FALSE(connection.Init(app.Objects(), 2, "PYX")) << failing.entry;
        EXPECT_EQ(connection.DB(), nullptr) << failing.entry;
        EXPECT_THAT(app.Entries(), ElementsAre(failing.entry));
        EXPECT_EQ(asked.calls.size(), static_cast<std::size_t>(failing.failsAt)) << failing.entry;
    }
}

TEST(Connection, AFailureOutsideTheConnectIsLoggedAsInits) {
    LoggedApp app;
    AskedEngine asked;
    clsConnection connection(asked.Factory());
    const std::optional<std::string> dataSource(std::in_place, 4000, 'x');
    bool isConnected = true;
    {
        FailingMemory memory(dataSource->size() + 1);
        isConnected = connection.Init(app.Objects(), 2, dataSource);
        EXPECT_TRUE(memory.HasRefused()) << "the name is kept";
    }
    EXPECT_FALSE(isConnected);
    EXPECT_THAT(asked.calls, IsEmpty());
    EXPECT_THAT(app.Entries(), ElementsAre("CONNinit-00: Out of memory (7)"));
}

TEST(Connection, AFailureBeforeThereIsALogIsFalseAndTellsNobody) {
    AppObjects empty;
    AskedEngine asked;
    asked.failsAt = 3;
    clsConnection connection(asked.Factory());
    EXPECT_FALSE(connection.Init(empty, 2, "PYX"));
    EXPECT_EQ(connection.DB(), nullptr);
}

TEST(Connection, AFailedConnectDropsTheOldConnectionWhicheverStepFails) {
    for (const int step : {1, 2, 3}) {
        LoggedApp app;
        AskedEngine asked;
        clsConnection connection(asked.Factory());
        ASSERT_TRUE(connection.Init(app.Objects(), 2, "A"));
        ASSERT_NE(connection.DB(), nullptr);
        asked.failsAt = step;
        EXPECT_FALSE(connection.Init(app.Objects(), 2, "B"));
        EXPECT_EQ(connection.DB(), nullptr) << "step " << step;
    }
}

TEST(Connection, ASecondInitSendsStatementsToTheNewSource) {
    DbWorld world;
    const auto other = NewDeviceDatabase();
    EXPECT_TRUE(world.Connect(other->Dsn()));
    DatabaseOf(&world.Objects()).Execute("INSERT INTO Manufacturers VALUES (5, 'There', '') ");
    EXPECT_EQ(other->Rows("SELECT * FROM Manufacturers"), "5|There|\n");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "");
}

TEST(Connection, ConnectsAgainAfterAFailure) {
    DbWorld world;
    EXPECT_FALSE(world.Connect("nowhere"));
    EXPECT_TRUE(world.Connect(world.Dsn()));
    DatabaseOf(&world.Objects()).Execute("INSERT INTO Manufacturers VALUES (5, 'Back', '') ");
    EXPECT_EQ(world.Rows("SELECT * FROM Manufacturers"), "5|Back|\n");
}

TEST(Connection, TheDatabaseOfNoSharedObjectsOrOfNoConnectionIsAnError) {
    AppObjects empty;
    EXPECT_EQ(NumberRaisedBy([] { DatabaseOf(nullptr); }), 91);
    EXPECT_EQ(NumberRaisedBy([&] { DatabaseOf(&empty); }), 5);
}

}  // namespace
}  // namespace ventlock::test
