#include <gtest/gtest.h>

#include <string>

#include "support/Raised.h"
#include "support/SqliteDatabase.h"
#include "unit/odbc/OdbcTest.h"

namespace ventlock::test {
namespace {

using Texts = std::vector<std::string>;

class NewRecord : public ::testing::Test {
 protected:
    std::unique_ptr<Recordset> Open(const std::string& table) {
        return connection_->OpenRecordset(table, RecordsetType::Dynaset);
    }

    void Add(double id, const std::string& name) {
        const auto table = Open("MfrIds");
        table->AddNew();
        table->Set("DevMfrId", id);
        table->Set("MfrIdName", name);
        table->Update();
    }

    SqliteDatabase database_{DeviceSchema::Old};
    Engine engine_;
    std::unique_ptr<IConnection> connection_ = engine_.Open(database_.ConnectString());
};

TEST_F(NewRecord, IsStoredWithItsNumbersAsNumbers) {
    Add(38, "A");
    const auto types = Open("DevTypes");
    types->AddNew();
    types->Set("DevMfrId", 38.0);
    types->Set("DevType", 10.0);
    types->Set("DevTypeDesc", "T");
    types->Update();
    EXPECT_EQ(database_.Rows("SELECT DevMfrId, typeof(DevMfrId), MfrIdName, typeof(MfrIdName) FROM MfrIds"),
              "38|integer|A|text\n");
    EXPECT_EQ(database_.Rows("SELECT * FROM DevTypes"), "38|10|T\n");
}

TEST_F(NewRecord, KeepsApostrophesAndMarkersOfAName) {
    Add(38, "O'Neil? \"x\" ?");
    EXPECT_EQ(database_.Rows("SELECT * FROM MfrIds"), "38|O'Neil? \"x\" ?\n");
}

TEST_F(NewRecord, KeepsCharactersOutsideTheCodePage) {
    Add(38, "Müller Ω 中 \U0001F527");
    EXPECT_EQ(database_.Rows("SELECT MfrIdName, length(MfrIdName) FROM MfrIds"),
              "Müller Ω 中 \U0001F527|12\n");
}

TEST_F(NewRecord, KeepsAnEmptyTextApartFromNull) {
    Add(38, "");
    const auto table = Open("MfrIds");
    table->AddNew();
    table->Set("DevMfrId", 39.0);
    table->Update();
    EXPECT_EQ(database_.Rows("SELECT * FROM MfrIds ORDER BY DevMfrId"), "38|\n39|NULL\n");
}

TEST_F(NewRecord, TakesANumberBeyond32Bits) {
    Add(4294967295.0, "A");
    EXPECT_EQ(database_.Rows("SELECT DevMfrId FROM MfrIds"), "4294967295\n");
}

TEST_F(NewRecord, WithADuplicateKeyFails) {
    Add(38, "A");
    EXPECT_EQ(DiagnosticsOf([&] { Add(38, "B"); }),
              Texts{"[HY000] [SQLite]UNIQUE constraint failed: MfrIds.DevMfrId (19) (19)"});
    EXPECT_EQ(database_.Rows("SELECT * FROM MfrIds"), "38|A\n");
}

TEST_F(NewRecord, WithoutItsParentRowFails) {
    const auto types = Open("DevTypes");
    types->AddNew();
    types->Set("DevMfrId", 99.0);
    types->Set("DevType", 1.0);
    EXPECT_EQ(DiagnosticsOf([&] { types->Update(); }),
              Texts{"[HY000] [SQLite]FOREIGN KEY constraint failed (19) (19)"});
}

TEST_F(NewRecord, ForAnUnknownColumnFails) {
    const auto table = Open("MfrIds");
    table->AddNew();
    table->Set("NoSuchColumn", 1.0);
    EXPECT_EQ(DiagnosticsOf([&] { table->Update(); }),
              Texts{"[HY000] [SQLite]table MfrIds has no column named NoSuchColumn (1) (1)"});
}

TEST_F(NewRecord, IsRefusedAfterTheConnectionIsGone) {
    const auto table = Open("MfrIds");
    connection_.reset();
    table->AddNew();
    table->Set("DevMfrId", 1.0);
    EXPECT_EQ(NumberRaisedBy([&] { table->Update(); }), 3420);
}

}  // namespace
}  // namespace ventlock::test
