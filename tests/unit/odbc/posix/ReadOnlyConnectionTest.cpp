#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "support/Fakes.h"
#include "support/MockDriver.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

TEST(ReadOnlyConnection, IsWhatTheDriverIsAskedForAndNoOther) {
    MockDriver driver(VENTLOCK_MOCK_DRIVER);
    const std::string connect = driver.ConnectString("obedient");
    FakeEvents events;
    const auto engine = CreateOdbcEngine(events, {});
    const auto workspace = engine->CreateWorkspace("", "sa", "", WorkspaceType::Odbc);
    workspace->OpenConnection("", std::nullopt, false, connect);
    EXPECT_EQ(driver.ReadOnlyConnections(), 0);
    workspace->OpenConnection("", std::nullopt, true, connect);
    EXPECT_EQ(driver.ReadOnlyConnections(), 1);
}

}  // namespace
}  // namespace ventlock::test
