#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/MockDriver.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

TEST(NoTransaction, IsBegunWithADriverThatHasNoneOrNoSerializableOne) {
    for (const char* manner : {"obedient", "reads_committed"}) {
        MockDriver driver(VENTLOCK_MOCK_DRIVER);
        Engine engine;
        const auto connection = engine.Open(driver.ConnectString(manner));
        EXPECT_EQ(DiagnosticsOf([&] { connection->BeginTrans(); }),
                  std::vector<std::string>{"[HYC00] The driver offers no serializable transactions (0)"})
            << manner;
        connection->Execute("a statement by itself");
        EXPECT_EQ(driver.Executions(), 1) << manner;
    }
}

}  // namespace
}  // namespace ventlock::test
