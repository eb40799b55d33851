#include "db/NewRow.h"

#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

TEST(NewRow, GoesIntoTheColumnsOfAQueryByTheirOwnNamesAndTheNamesGivenThere) {
    constexpr std::string_view kQuery =
        "SELECT Number AS IdOfAll, Id AS Other, Code AS Id, Text FROM Things WHERE 1 = 1";
    Recordset rows({"IdOfAll", "other", "ID", "TEXT", "Gone"});
    AppendTo(rows, kQuery, {"THINGS", {{"NUMBER", "1"}, {"ID", "2"}, {"CODE", "3"}, {"TEXT", "x"}}});
    ASSERT_EQ(rows.RecordCount(), 1U);
    EXPECT_EQ(rows.Column("IdOfAll").Text(), "1");
    EXPECT_EQ(rows.Column("Other").Text(), "2");
    EXPECT_EQ(rows.Column("Id").Text(), "3") << "not the column that IdOfAll stands for";
    EXPECT_EQ(rows.Column("Text").Text(), "x");
    EXPECT_TRUE(rows.Column("Gone").IsNull());
}

}  // namespace
}  // namespace ventlock::test
