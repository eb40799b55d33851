#include "platform/Recordset.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/InsertStatement.h"
#include "support/Raised.h"

namespace ventlock::test {
namespace {

Recordset Protocols() {
    Recordset rows({"MfrProtocolId", "TavMfrNameId", "Name"});
    rows.AppendRow({"1", " 4 ", "HART"});
    rows.AppendRow({"32768", std::nullopt, ""});
    rows.AppendRow({"x", "2.5", std::nullopt});
    return rows;
}

TEST(Recordset, StandsOnItsFirstRowAndIsWalkedToItsEnd) {
    Recordset rows = Protocols();
    EXPECT_EQ(rows.RecordCount(), 3U);
    std::string ids;
    for (; !rows.AtEnd(); rows.MoveNext()) ids += rows.Column("MfrProtocolId").Text() + ";";
    EXPECT_EQ(ids, "1;32768;x;");
    EXPECT_EQ(rows.RecordCount(), 3U) << "the count does not depend on the row";
}

TEST(Recordset, WithoutRowsIsAtItsEnd) {
    const Recordset rows({"Name"});
    EXPECT_TRUE(rows.AtEnd());
    EXPECT_EQ(rows.RecordCount(), 0U);
    EXPECT_EQ(rows.Columns(), std::vector<std::string>{"Name"});
}

TEST(Recordset, FindsColumnsWithoutRegardToCase) {
    const Recordset rows = Protocols();
    EXPECT_EQ(rows.Column("MFRPROTOCOLID").Text(), "1");
    EXPECT_EQ(rows.Column("TAVMfrNameID").Text(), " 4 ");
}

TEST(Recordset, PrefersTheColumnOfTheSameSpelling) {
    Recordset rows({"NAME", "Name"});
    rows.AppendRow({"first", "second"});
    EXPECT_EQ(rows.Column("Name").Text(), "second");
    EXPECT_EQ(rows.Column("name").Text(), "first");
}

TEST(Recordset, AnUnknownColumnIsNotFoundInTheCollection) {
    const Recordset rows = Protocols();
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("MfrId"); }), 3265);
    EXPECT_EQ(DescriptionRaisedBy([&] { return rows.Column("MfrId"); }),
              "Item not found in this collection. MfrId");
}

TEST(Recordset, HasNoCurrentRecordAtItsEnd) {
    Recordset rows({"Name"});
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("Name"); }), 3021);
    rows.AppendRow({"a"});
    EXPECT_EQ(rows.Column("Name").Text(), "a");
    rows.MoveNext();
    EXPECT_EQ(DescriptionRaisedBy([&] { return rows.Column("Name"); }), "No current record.");
}

TEST(Recordset, IsFilledCellByCell) {
    Recordset rows({"a", "b"});
    rows.AppendCell(std::nullopt);
    EXPECT_EQ(rows.RecordCount(), 0U) << "half a row is none";
    rows.AppendCell("one");
    rows.AppendCell("");
    rows.AppendCell(std::nullopt);
    rows.AppendCell("two");
    rows.AppendCell("three");
    EXPECT_EQ(rows.RecordCount(), 3U);
    EXPECT_EQ(rows.Cells(), (RowCells{std::nullopt, "one"}));
    rows.MoveNext();
    EXPECT_EQ(rows.Cells(), (RowCells{"", std::nullopt}));
    rows.MoveNext();
    EXPECT_EQ(rows.Cells(), (RowCells{"two", "three"}));
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEnd());
}

TEST(Recordset, KnowsAColumnAgainInEveryRowByEverySpelling) {
    Recordset rows = Protocols();
    std::string texts;
    for (; !rows.AtEnd(); rows.MoveNext()) {
        for (const char* const name : {"MFRPROTOCOLID", "name", "MfrProtocolId"})
            texts += rows.Column(name).Text() + ";";
        EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("MfrId"); }), 3265);
    }
    EXPECT_EQ(texts, "1;HART;1;32768;;32768;x;;x;");
}

TEST(Recordset, ARowOfAnotherWidthIsAnInvalidCall) {
    Recordset rows({"a", "b"});
    EXPECT_EQ(NumberRaisedBy([&] { rows.AppendRow({"1"}); }), 5);
    EXPECT_EQ(rows.RecordCount(), 0U);
}

TEST(Field, TellsNullFromAnEmptyText) {
    Recordset rows = Protocols();
    rows.MoveNext();
    EXPECT_TRUE(rows.Column("TavMfrNameId").IsNull());
    EXPECT_EQ(rows.Column("TavMfrNameId").Value(), std::nullopt);
    EXPECT_EQ(rows.Column("TavMfrNameId").Text(), "");
    EXPECT_FALSE(rows.Column("Name").IsNull());
    EXPECT_EQ(rows.Column("Name").Value(), "");
}

TEST(Field, TakingANumberRaisesForNullTextAndWhatDoesNotFit) {
    Recordset rows = Protocols();
    EXPECT_EQ(rows.Column("TavMfrNameId").Number(), 4);
    EXPECT_EQ(rows.Column("TavMfrNameId").Integer(), 4);
    rows.MoveNext();
    EXPECT_EQ(rows.Column("MfrProtocolId").Number(), 32768);
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("MfrProtocolId").Integer(); }), 6);
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("TavMfrNameId").Number(); }), 94);
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("Name").Number(); }), 13);
    rows.MoveNext();
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("MfrProtocolId").Integer(); }), 13);
    EXPECT_EQ(rows.Column("TavMfrNameId").Integer(), 2) << "half goes to the even number";
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Column("Name").Integer(); }), 94);
}

struct KeptRecord {
    std::vector<std::string> names;
    std::vector<RecordValue> values;
};

class RecordsetTable : public testing::Test {
 protected:
    std::vector<KeptRecord> kept_;
    Recordset table_{[this](const std::vector<RecordField>& record) {
        KeptRecord kept;
        for (const RecordField& field : record) {
            kept.names.push_back(field.name);
            kept.values.push_back(field.value);
        }
        kept_.push_back(kept);
    }};
};

TEST_F(RecordsetTable, StoresANewRecordWithItsFieldsInTheOrderTheyWereSet) {
    table_.AddNew();
    table_.Set("DevMfrId", 38.0);
    table_.Set("MfrIdName", "O'Neil?");
    table_.Update();
    ASSERT_EQ(kept_.size(), 1U);
    EXPECT_EQ(kept_[0].names, (std::vector<std::string>{"DevMfrId", "MfrIdName"}));
    EXPECT_EQ(kept_[0].values, (std::vector<RecordValue>{38.0, std::string("O'Neil?")}));
    EXPECT_TRUE(table_.AtEnd());
}

TEST_F(RecordsetTable, TakesFieldsAndUpdatesOnlyBetweenAddNewAndUpdate) {
    EXPECT_EQ(NumberRaisedBy([&] { table_.Set("a", "1"); }), 3021);
    EXPECT_EQ(NumberRaisedBy([&] { table_.Update(); }), 3021);
    table_.AddNew();
    table_.Update();
    EXPECT_EQ(NumberRaisedBy([&] { table_.Update(); }), 3021);
    EXPECT_EQ(kept_.size(), 1U);
}

TEST_F(RecordsetTable, AddNewForgetsTheFieldsOfARecordThatWasNotStored) {
    table_.AddNew();
    table_.Set("a", "1");
    table_.AddNew();
    table_.Set("b", "2");
    table_.Update();
    ASSERT_EQ(kept_.size(), 1U);
    EXPECT_EQ(kept_[0].names, std::vector<std::string>{"b"});
}

TEST(RecordsetTables, RaiseWhatTheDatabaseRefuses) {
    Recordset table([](const std::vector<RecordField>&) { throw RunTimeError(ErrorNumber::OdbcCallFailed); });
    table.AddNew();
    EXPECT_EQ(NumberRaisedBy([&] { table.Update(); }), 3146);
}

TEST(RecordsetTables, ASnapshotTakesNoNewRecord) {
    Recordset rows({"a"});
    EXPECT_EQ(NumberRaisedBy([&] { rows.AddNew(); }), 3420);
}

TEST(InsertStatement, NamesTheColumnsAndHasOneMarkerAValue) {
    EXPECT_EQ(InsertStatement("MfrIds", {{"DevMfrId", 38.0}, {"MfrIdName", "x"}}),
              "INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)");
    EXPECT_EQ(InsertStatement("T", {{"a", "1"}}), "INSERT INTO T (a) VALUES (?)");
}

TEST(Recordset, AnyRowCanBeStoodOnAndIsGivenWhole) {
    Recordset rows({"Id", "Name"});
    rows.AppendRow({"1", std::nullopt});
    rows.AppendRow({"2", "b"});
    rows.MoveTo(1);
    EXPECT_EQ(rows.Cells(), (RowCells{"2", "b"}));
    rows.MoveTo(0);
    EXPECT_EQ(rows.Cells(), (RowCells{"1", std::nullopt}));
    rows.MoveTo(2);
    EXPECT_TRUE(rows.AtEnd());
    EXPECT_EQ(NumberRaisedBy([&] { return rows.Cells(); }), 3021);
}

TEST(Recordset, TellsItsColumnsInAnyLetterCase) {
    const Recordset rows({"Id", "Name"});
    EXPECT_TRUE(rows.HasColumn("NAME"));
    EXPECT_FALSE(rows.HasColumn("Names"));
}

}  // namespace
}  // namespace ventlock::test
