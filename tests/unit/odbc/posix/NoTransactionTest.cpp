#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/MockDriver.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

TEST(NoTransaction, IsBegunWithADriverThatHasNone) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    Engine engine;
    const auto connection = engine.Open(driver.ConnectString("obedient"));
    EXPECT_EQ(DiagnosticsOf([&] { connection->BeginTrans(); }),
              std::vector<std::string>{"[HYC00] The driver offers no serializable transactions (0)"});
    connection->Execute("a statement by itself");
    EXPECT_EQ(driver.Executions(), 1);
}

}  // namespace
}  // namespace ventlock::test
