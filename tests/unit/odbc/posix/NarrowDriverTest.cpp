#include <gtest/gtest.h>

#include <string>

#include "support/OdbcFolder.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

// The driver writes into the text that it is to translate, as far behind its start as the answer has room:
// the address sanitizer reports a text that is shorter.
TEST(NarrowDriver, WritesNowhereBehindTheTextThatItTranslates) {
    const std::string name = OdbcFolder::Get().UnusedName();
    OdbcFolder::Get().AddDataSource(name, VENTLOCK_NARROW_DRIVER, {});
    Engine engine;
    EXPECT_NE(engine.Open("ODBC;UID=sa;PWD=;DSN=" + name), nullptr);
}

}  // namespace
}  // namespace ventlock::test
