#include "cli/DatabaseScript.h"

#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

using Statements = std::vector<std::string>;

TEST(SplitStatements, CutsAtSemicolonsAndTrims) {
    EXPECT_EQ(SplitStatements("CREATE TABLE a (b INTEGER);\n\n  INSERT INTO a VALUES (1) ;"),
              (Statements{"CREATE TABLE a (b INTEGER)", "INSERT INTO a VALUES (1)"}));
}

TEST(SplitStatements, LeavesOutComments) {
    EXPECT_EQ(SplitStatements("-- first; not a statement\nSELECT 1 -- one; two\n  FROM a;-- last"),
              (Statements{"SELECT 1 \n  FROM a"}));
}

TEST(SplitStatements, KnowsTextsInQuotes) {
    EXPECT_EQ(SplitStatements("INSERT INTO a VALUES ('x; -- y');INSERT INTO a VALUES ('it''s;');"),
              (Statements{"INSERT INTO a VALUES ('x; -- y')", "INSERT INTO a VALUES ('it''s;')"}));
}

TEST(SplitStatements, TakesALastStatementWithoutItsSemicolon) {
    EXPECT_EQ(SplitStatements("SELECT 1"), (Statements{"SELECT 1"}));
}

TEST(SplitStatements, OfNothingGivesNothing) {
    EXPECT_EQ(SplitStatements(""), Statements());
    EXPECT_EQ(SplitStatements(" ;\r\n;\t; -- end"), Statements());
}

}  // namespace
}  // namespace ventlock::test
