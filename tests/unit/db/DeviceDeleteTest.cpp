// What the device record deletes.

#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kDeleteRevision = "delete   from DeviceRevisions  where TavDevRevId = 1 ";
constexpr const char* kDeleteType = "delete   from DeviceTypes  where TavDevTypeId = 1 ";

class DeviceDelete : public DeviceRecord {
 protected:
    DeviceDelete() {
        Execute("INSERT INTO DeviceTypes VALUES (1, 1, '11', 'T1', 'D1'), (2, 1, '10', 'T2', 'D2')");
    }
};

TEST_F(DeviceDelete, TakesTheRowsNumberedOneWhateverIsEntered) {
    Execute("INSERT INTO DeviceRevisions VALUES (1, 1, '1', 0, 'R1', ''), (2, 2, '1', 0, 'R2', '')");
    EXPECT_EQ(device_.TAVDevRevID(), 2);
    Statements();
    EXPECT_TRUE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteRevision, kDeleteType));
    EXPECT_EQ(Rows("DeviceRevisions"), "2|2|1|0|R2|\n");
    EXPECT_EQ(Rows("DeviceTypes"), "2|1|10|T2|D2\n");
    EXPECT_TRUE(device_.Delete()) << "no row to delete is no failure";
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(DeviceDelete, RefusedRevisionRowLeavesBoth) {
    Execute("INSERT INTO DeviceRevisions VALUES (1, 2, '1', 0, 'R1', '')");
    Execute(
        "CREATE TABLE Keeper (Revision INTEGER, FOREIGN KEY (Revision) REFERENCES DeviceRevisions "
        "(TavDevRevId))");
    Execute("INSERT INTO Keeper VALUES (1)");
    EXPECT_FALSE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteRevision));
    EXPECT_EQ(Rows("DeviceRevisions"), "1|2|1|0|R1|\n");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|11|T1|D1\n2|1|10|T2|D2\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVdel-03")));
}

TEST_F(DeviceDelete, RefusedTypeRowIsReportedAfterTheRevisionRowIsGone) {
    Execute("INSERT INTO DeviceRevisions VALUES (1, 2, '1', 0, 'R1', ''), (2, 1, '1', 0, 'R2', '')");
    EXPECT_FALSE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteRevision, kDeleteType));
    EXPECT_EQ(Rows("DeviceRevisions"), "2|1|1|0|R2|\n");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|11|T1|D1\n2|1|10|T2|D2\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVdel-04")));
}

class OldDeviceDelete : public OldDeviceRecord {
 protected:
    void SetUp() override {
        if (TestedProduct() == Product::Postgresql) GTEST_SKIP() << "double quotes are for names here";
    }

    OldDeviceDelete() {
        Execute("INSERT INTO MfrIds VALUES (0, 'None')");
        Execute("INSERT INTO DevTypes VALUES (38, 1, 'T1'), (38, 10, 'T10'), (0, 0, 'T0')");
        device_.OManID = "26";
        device_.ODevId = "1";
        device_.ODevRev = "1";
    }
};

constexpr const char* kDeleteOldRevision = "delete   from PDevices  where UDevRevId = \"0000002600010001\" ";
constexpr const char* kDeleteOldType = "delete   from DevTypes  where DevMfrId = 38    and DevType = 1 ";

TEST_F(OldDeviceDelete, TakesTheRowsOfThePreviousIds) {
    Execute("INSERT INTO PDevices VALUES ('0000002600010001', 38, 1, 'T1', 1, 1, 5)");
    Execute("INSERT INTO PDevices VALUES ('00000026000A0001', 38, 10, 'T10', 1, 1, 5)");
    EXPECT_TRUE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteOldRevision, kDeleteOldType));
    EXPECT_EQ(Rows("PDevices"), "00000026000A0001|38|10|T10|1|1|5\n");
    EXPECT_EQ(Rows("DevTypes"), "0|0|T0\n38|10|T10\n");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(OldDeviceDelete, TakesTheRowsOfZeroWithoutPreviousIds) {
    Execute("INSERT INTO PDevices VALUES ('0000000000000000', 0, 0, 'T0', 0, 0, 0)");
    device_.OManID.clear();
    device_.ODevId.clear();
    device_.ODevRev.clear();
    EXPECT_TRUE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre("delete   from PDevices  where UDevRevId = \"0000000000000000\" ",
                                          "delete   from DevTypes  where DevMfrId = 0    and DevType = 0 "));
    EXPECT_EQ(Rows("PDevices"), "");
    EXPECT_EQ(Rows("DevTypes"), "38|1|T1\n38|10|T10\n");
}

TEST_F(OldDeviceDelete, RefusedRevisionRowLeavesBoth) {
    Execute("INSERT INTO PDevices VALUES ('0000002600010001', 38, 1, 'T1', 1, 1, 5)");
    Execute(
        "CREATE TABLE Keeper (Revision VARCHAR(24), FOREIGN KEY (Revision) REFERENCES PDevices (UDevRevId))");
    Execute("INSERT INTO Keeper VALUES ('0000002600010001')");
    EXPECT_FALSE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteOldRevision));
    EXPECT_EQ(Rows("PDevices"), "0000002600010001|38|1|T1|1|1|5\n");
    EXPECT_EQ(Rows("DevTypes"), "0|0|T0\n38|1|T1\n38|10|T10\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVdel-01")));
}

TEST_F(OldDeviceDelete, RefusedTypeRowIsReportedAfterTheRevisionRowIsGone) {
    Execute("INSERT INTO PDevices VALUES ('0000002600010001', 38, 1, 'T1', 1, 1, 5)");
    Execute("INSERT INTO PDevices VALUES ('0000002600010002', 38, 1, 'T1', 2, 1, 5)");
    EXPECT_FALSE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteOldRevision, kDeleteOldType));
    EXPECT_EQ(Rows("PDevices"), "0000002600010002|38|1|T1|2|1|5\n");
    EXPECT_EQ(Rows("DevTypes"), "0|0|T0\n38|1|T1\n38|10|T10\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("DEVdel-02")));
}

TEST_F(OldDeviceRecord, DeleteFailsAtItsFirstStepWhereDoubleQuotesAreForNames) {
    if (TestedProduct() != Product::Postgresql) GTEST_SKIP() << "double quotes are for texts, too";
    Execute("INSERT INTO DevTypes VALUES (38, 1, 'T1')");
    Execute("INSERT INTO PDevices VALUES ('0000002600010001', 38, 1, 'T1', 1, 1, 5)");
    device_.OManID = "26";
    device_.ODevId = "1";
    device_.ODevRev = "1";
    EXPECT_FALSE(device_.Delete());
    EXPECT_THAT(Statements(), ElementsAre(kDeleteOldRevision));
    EXPECT_EQ(Rows("PDevices"), "0000002600010001|38|1|T1|1|1|5\n");
    EXPECT_EQ(Rows("DevTypes"), "38|1|T1\n");
    EXPECT_THAT(Entries(), ElementsAre(AllOf(DatabaseEntry("DEVdel-01"), HasSubstr("[42703] "))));
}

}  // namespace
}  // namespace ventlock::test
