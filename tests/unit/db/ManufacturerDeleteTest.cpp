// What the manufacturer record deletes.

#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kDeleteProtocol = "delete   from MfrProtocols  where MfrProtocolId = 1 ";
constexpr const char* kDeleteManufacturer = "delete   from Manufacturers  where TavMfrNameId = 1 ";

class ManufacturerDelete : public ManufacturerRecord {
 protected:
    ManufacturerDelete() { Execute("INSERT INTO Manufacturers VALUES (1, 'M1', 'D1'), (2, 'M2', 'D2')"); }
};

TEST_F(ManufacturerDelete, TakesTheRowsNumberedOneWhateverIsEntered) {
    Execute("INSERT INTO MfrProtocols VALUES (1, 1, 1, '17'), (2, 2, 1, '38')");
    manufacturer_.OManID = "26";
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 2);
    Statements();
    EXPECT_TRUE(manufacturer_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteProtocol, kDeleteManufacturer));
    EXPECT_EQ(Rows("MfrProtocols"), "2|2|1|38\n");
    EXPECT_EQ(Rows("Manufacturers"), "2|M2|D2\n");
    EXPECT_TRUE(manufacturer_.Delete()) << "no row to delete is no failure";
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(ManufacturerDelete, RefusedProtocolRowLeavesBothAndIsReportedUnderTheDevicesTag) {
    Execute("INSERT INTO MfrProtocols VALUES (1, 1, 1, '38')");
    Execute("INSERT INTO DeviceTypes VALUES (1, 1, '10', 'Flow', '')");
    EXPECT_FALSE(manufacturer_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteProtocol));
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n");
    EXPECT_EQ(Rows("Manufacturers"), "1|M1|D1\n2|M2|D2\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVdel-02")));
}

TEST_F(ManufacturerDelete, RefusedManufacturerRowIsReportedAfterTheProtocolRowIsGone) {
    Execute("INSERT INTO MfrProtocols VALUES (1, 2, 1, '39'), (2, 1, 1, '38')");
    EXPECT_FALSE(manufacturer_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteProtocol, kDeleteManufacturer));
    EXPECT_EQ(Rows("MfrProtocols"), "2|1|1|38\n");
    EXPECT_EQ(Rows("Manufacturers"), "1|M1|D1\n2|M2|D2\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVdel-03")));
}

class OldManufacturerDelete : public OldManufacturerRecord {
 protected:
    OldManufacturerDelete() { Execute("INSERT INTO MfrIds VALUES (0, 'None'), (38, 'Acme'), (39, 'New')"); }
};

TEST_F(OldManufacturerDelete, TakesTheRowOfThePreviousId) {
    manufacturer_.OManID = "27";
    EXPECT_TRUE(manufacturer_.Delete());
    EXPECT_THAT(Statements(), ElementsAre("delete   from MfrIds  where DevMfrId = 39 "));
    EXPECT_EQ(Rows("MfrIds"), "0|None\n38|Acme\n");
}

TEST_F(OldManufacturerDelete, TakesNumberZeroWithoutAPreviousId) {
    EXPECT_TRUE(manufacturer_.Delete());
    EXPECT_THAT(Statements(), ElementsAre("delete   from MfrIds  where DevMfrId = 0 "));
    EXPECT_EQ(Rows("MfrIds"), "38|Acme\n39|New\n");
}

TEST_F(OldManufacturerDelete, RefusedRowStaysAndIsReportedUnderTheDevicesTag) {
    Execute("INSERT INTO DevTypes VALUES (38, 10, 'Flow')");
    manufacturer_.OManID = "26";
    EXPECT_FALSE(manufacturer_.Delete());
    EXPECT_EQ(Rows("MfrIds"), "0|None\n38|Acme\n39|New\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVdel-01")));
}

}  // namespace
}  // namespace ventlock::test
