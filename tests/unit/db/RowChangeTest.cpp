#include "db/RowChange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "db/Statements.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RowChange, IsReadFromAChangeAsTheWritersMakeIt) {
    const auto change = ChangeOf(statements::Fill(statements::kChangeDeviceRevision,
                                                  {"DeviceRevisions", "17", "R, 1 = (x)", "", "4"}));
    ASSERT_TRUE(change);
    EXPECT_EQ(change->table, "DeviceRevisions");
    EXPECT_THAT(change->values,
                ElementsAre(ColumnValue{"DeviceCategoryId", "17", false},
                            ColumnValue{"Name", "R, 1 = (x)", true}, ColumnValue{"Description", "", true}));
    EXPECT_THAT(change->key, ElementsAre(ColumnValue{"TavDevRevId", "4", false}));
}

TEST(RowChange, IsReadFromANewRowAsTheWritersMakeIt) {
    const auto change = ChangeOf(
        statements::Fill(statements::kNewManufacturer, {"Manufacturers", "1", "A, B) where", "x = y"}));
    ASSERT_TRUE(change);
    EXPECT_EQ(change->table, "Manufacturers");
    EXPECT_THAT(change->values,
                ElementsAre(ColumnValue{"TavMfrNameId", "1", false}, ColumnValue{"Name", "A, B) where", true},
                            ColumnValue{"Description", "x = y", true}));
    EXPECT_THAT(change->key, IsEmpty());
}

TEST(RowChange, TakesADoubledApostropheForOne) {
    const auto change = ChangeOf("UPDATE T SET A='''x''y''', B = '' WHERE K = ''''");
    ASSERT_TRUE(change);
    EXPECT_THAT(change->values, ElementsAre(ColumnValue{"A", "'x'y'", true}, ColumnValue{"B", "", true}));
    EXPECT_THAT(change->key, ElementsAre(ColumnValue{"K", "'", true}));
}

TEST(RowChange, IsNothingInAnyOtherText) {
    for (const char* const statement :
         {"", "SELECT * FROM T", "UPDATE T", "UPDATE T SET", "UPDATE T SET A = 1", "UPDATE T SET A = 'x",
          "UPDATE T SET A = 1 WHERE", "UPDATE T SET A = 1 WHERE K = 1 OR L = 2",
          "UPDATE T SET A 1 WHERE K = 1", "INSERT INTO T VALUES (1)", "INSERT INTO T (A) VALUES (1, 2)",
          "INSERT INTO T (A, B) VALUES (1)", "INSERT INTO T (A) VALUES ('x)",
          "INSERT INTO T (A) VALUES (1) x", "INSERT INTO T (A, B) (1, 2)"}) {
        EXPECT_FALSE(ChangeOf(statement)) << statement;
    }
}

TEST(RowChange, KeyColumnsAreThoseBehindTheWhere) {
    EXPECT_THAT(KeyColumnsOf(statements::kDeleteOldManufacturer), ElementsAre("DevMfrId"));
    EXPECT_THAT(KeyColumnsOf(statements::kDeleteOldDeviceType), ElementsAre("DevMfrId", "DevType"));
    EXPECT_THAT(KeyColumnsOf(statements::kDeleteOldDeviceRevision), ElementsAre("UDevRevId"));
    EXPECT_THAT(KeyColumnsOf(statements::kWholeTable), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
