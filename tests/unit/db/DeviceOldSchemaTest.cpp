// The device record and the old schema.

#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNewType = "INSERT INTO DevTypes (DevMfrId, DevType, DevTypeDesc) VALUES (?, ?, ?)";
constexpr const char* kNewRevision =
    "INSERT INTO PDevices (UDevRevId, DevMfrId, DevType, DevName, DevRev, DevDDLRev, DevProtocolRev) VALUES "
    "(?, ?, ?, ?, ?, ?, ?)";

TEST_F(OldDeviceRecord, IsATypeRowAndARevisionRowOfSevenColumns) {
    device_.DevRev = "0F";
    device_.DDRev = "10";
    EXPECT_TRUE(device_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kNewType, kNewRevision));
    EXPECT_THAT(BoundValues(),
                ElementsAre("DevMfrId=38", "DevType=10", "DevTypeDesc='Flow'", "UDevRevId='00000026000A000F'",
                            "DevMfrId=38", "DevType=10", "DevName='Flow'", "DevRev=15", "DevDDLRev=16",
                            "DevProtocolRev=5"));
    EXPECT_EQ(Rows("DevTypes"), "38|10|Flow\n");
    EXPECT_EQ(Rows("PDevices"), "00000026000A000F|38|10|Flow|15|16|5\n");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(OldDeviceRecord, KeyOfManufacturer26Type1Revision1IsPaddedWithZeros) {
    device_.DevID = "1";
    device_.DevRev = "1";
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("PDevices"), "0000002600010001|38|1|Flow|1|2|5\n");
}

TEST_F(OldDeviceRecord, KeyIsMadeOfTheTypedTexts) {
    device_.ManID = "0x26";
    device_.DevID = "0a";
    device_.DevRev = "f";
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("PDevices"), "00000x26000a000f|38|10|Flow|15|2|5\n");
}

TEST_F(OldDeviceRecord, LongIdIsNotCutInTheKey) {
    Execute("INSERT INTO MfrIds VALUES (4886718345, 'Long')");
    device_.ManID = "123456789";
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("PDevices"), "123456789000A0001|4886718345|10|Flow|1|2|5\n");
}

TEST_F(OldDeviceRecord, ApostrophesAndQuestionMarksAreStoredUnchanged) {
    device_.DevName = "Flow's ? ";
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("DevTypes"), "38|10|Flow's ? \n");
    EXPECT_EQ(Rows("PDevices"), "00000026000A0001|38|10|Flow's ? |1|2|5\n");
}

TEST_F(OldDeviceRecord, OptionalArgumentIsKeptAndChangesNothing) {
    EXPECT_TRUE(device_.Insert(3));
    EXPECT_EQ(device_.NoName, 3);
    EXPECT_EQ(Rows("PDevices"), "00000026000A0001|38|10|Flow|1|2|5\n");
}

TEST_F(OldDeviceRecord, RefusedTypeEndsTheInsertBeforeTheRevision) {
    Execute("INSERT INTO DevTypes VALUES (38, 10, 'Before')");
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kNewType));
    EXPECT_EQ(Rows("DevTypes"), "38|10|Before\n");
    EXPECT_EQ(Rows("PDevices"), "");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-01")));
}

TEST_F(OldDeviceRecord, RefusedRevisionLeavesTheNewType) {
    Execute("INSERT INTO DevTypes VALUES (38, 11, 'Other')");
    Execute("INSERT INTO PDevices VALUES ('00000026000A0001', 38, 11, 'Before', 1, 1, 5)");
    EXPECT_FALSE(device_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kNewType, kNewRevision));
    EXPECT_EQ(Rows("DevTypes"), "38|10|Flow\n38|11|Other\n");
    EXPECT_EQ(Rows("PDevices"), "00000026000A0001|38|11|Before|1|1|5\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVins-02")));
}

}  // namespace
}  // namespace ventlock::test
