// Tables as long as their numbers last.

#include "db/DatabaseOf.h"
#include "db/clsTavDB.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

constexpr int kRows = 32000;

/// A query of the numbers 1 to 32000, as a table "numbers" with a column "n".
std::string Numbers() {
    const std::string digits =
        "(SELECT 0 AS d UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL SELECT 4 UNION "
        "ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9) AS ";
    return "(SELECT a.d + 10 * b.d + 100 * c.d + 1000 * e.d + 10000 * f.d AS n FROM " + digits + "a, " +
           digits + "b, " + digits + "c, " + digits + "e, " + digits +
           "f WHERE a.d + 10 * b.d + 100 * c.d + 1000 * e.d + 10000 * f.d BETWEEN 1 AND 32000) AS numbers";
}

/// 32000 manufacturers with a protocol each, a type each and a revision each, all of the same number.
class LargeTables : public ManufacturerRecord {
 protected:
    LargeTables() {
        Execute("INSERT INTO Manufacturers SELECT n, 'Müller 温度', 'D' FROM " + Numbers());
        Execute("INSERT INTO MfrProtocols SELECT n, n, 1, n + 100000 FROM " + Numbers());
        Execute("INSERT INTO DeviceTypes SELECT n, n, 10, 'T', 'D' FROM " + Numbers());
        Execute("INSERT INTO DeviceRevisions SELECT n, n, 1, 0, 'R', 'D' FROM " + Numbers());
    }
};

TEST_F(LargeTables, AreReadWholeAndInOrder) {
    const auto rows =
        OpenSnapshot(&world_.Objects(), "SELECT *   FROM Manufacturers  ORDER BY TavMfrNameId ");
    EXPECT_EQ(rows->RecordCount(), kRows);
    int wrong = 0;
    for (int number = 1; !rows->AtEnd(); rows->MoveNext(), ++number) {
        if (rows->Column("TavMfrNameId").Integer() != number || rows->Column("Name").Text() != "Müller 温度")
            ++wrong;
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(LargeTables, GiveAKnownEntryItsRowsAndANewOneTheNextNumbers) {
    const auto write = [this](const char* manufacturer) {
        clsTavDB tavDB(world_.Events());
        EXPECT_TRUE(tavDB.Init(world_.Objects(), 2));
        FillManufacturer(tavDB.Manufacturer());
        FillDevice(tavDB.Device());
        tavDB.Manufacturer().ManID = manufacturer;
        world_.Events().yields = 0;
        EXPECT_TRUE(tavDB.Update());
    };
    write("203A0");  // 132000, the last row's
    EXPECT_EQ(world_.Rows("SELECT * FROM Manufacturers WHERE Name = 'Acme'"), "32000|Acme|Acme Inc\n");
    EXPECT_EQ(world_.Rows("SELECT * FROM DeviceTypes WHERE Name <> 'T'"), "32000|32000|10|Flow|Flow meter\n");
    EXPECT_EQ(world_.Rows("SELECT * FROM DeviceRevisions WHERE Name <> 'R'"), "32000|32000|1|1|R1|First\n");

    write("26");
    EXPECT_EQ(world_.Events().yields, 3 * kRows) << "once per row of each search";
    EXPECT_EQ(world_.Rows("SELECT * FROM MfrProtocols WHERE MfrProtocolId > 32000"), "32001|32001|1|38\n");
    EXPECT_EQ(world_.Rows("SELECT * FROM DeviceTypes WHERE TavDevTypeId > 32000"),
              "32001|32001|10|Flow|Flow meter\n");
    EXPECT_EQ(world_.Rows("SELECT * FROM DeviceRevisions WHERE TavDevRevId > 32000"),
              "32001|32001|1|1|R1|First\n");
    EXPECT_THAT(Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
