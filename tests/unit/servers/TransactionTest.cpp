#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/odbc/DriverAnswers.h"
#include "unit/servers/ServersTest.h"

namespace ventlock::test {
namespace {

class ServerTransaction : public OnServer {
 protected:
    ServerDatabase database_{Server()};
};

/// Adds rows behind the largest number, one a transaction, and begins again whenever it is told that another
/// program was first. What is told otherwise is given back.
std::string Number(const std::string& connect, int rows) {
    Engine engine;
    const auto connection = engine.Open(connect);
    for (int done = 0; done < rows;) {
        try {
            connection->BeginTrans();
            const auto largest = Snapshot(*connection, "SELECT max(TavMfrNameId) AS n FROM Manufacturers");
            const int next = largest->Column("n").IsNull() ? 1 : largest->Column("n").Integer() + 1;
            connection->Execute("INSERT INTO Manufacturers VALUES (" + std::to_string(next) + ", 'A', 'B')");
            connection->CommitTrans();
            ++done;
        } catch (const RunTimeError& error) {
            const auto& records = error.Diagnostics();
            if (!odbc::TellDuplicate(records) && !odbc::TellGivenUp(records)) return error.Description();
            connection->Rollback();
        }
    }
    return "";
}

TEST_P(ServerTransaction, OfTwoThatReadTheSameRowsOneIsToldToBeginAgain) {
    constexpr int kRows = 15;
    std::vector<std::string> told(2);
    std::vector<std::thread> programs;
    for (std::string& answer : told) {
        programs.emplace_back([&] { answer = Number(database_.ConnectString(), kRows); });
    }
    for (std::thread& program : programs) program.join();
    EXPECT_EQ(told, std::vector<std::string>(2));
    EXPECT_EQ(database_.Rows("SELECT count(*), max(TavMfrNameId) FROM Manufacturers"), "30|30\n");
}

TEST_P(ServerTransaction, IsRolledBackWhenTheServerEndsTheConnection) {
    Engine engine;
    const auto connection = engine.Open(database_.ConnectString());
    connection->BeginTrans();
    connection->Execute("INSERT INTO Manufacturers VALUES (1, 'A', 'B')");
    EXPECT_NE(DiagnosticsOf([&] {
                  Snapshot(*connection, IsPostgresql() ? "SELECT pg_terminate_backend(pg_backend_pid())"
                                                       : "KILL CONNECTION_ID()");
                  connection->CommitTrans();
              }),
              std::vector<std::string>{"none"});
    EXPECT_NE(DiagnosticsOf([&] { connection->Rollback(); }), std::vector<std::string>{"none"});
    EXPECT_EQ(database_.Rows("SELECT * FROM Manufacturers"), "");
}

INSTANTIATE_TEST_SUITE_P(On, ServerTransaction, ::testing::Values(Product::Postgresql, Product::Mariadb),
                         SuffixOf);

}  // namespace
}  // namespace ventlock::test
