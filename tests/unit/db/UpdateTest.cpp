// The facade writes one whole entry.

#include "db/clsTavDB.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The entry in the records of a facade that knows the schema.
class Update : public testing::Test {
 protected:
    explicit Update(DeviceSchema schema = DeviceSchema::Current) : world_(schema) {
        tavDB_ = FreshFacade();
        world_.Statements();
    }

    std::unique_ptr<clsTavDB> FreshFacade() {
        auto tavDB = std::make_unique<clsTavDB>(world_.Events());
        EXPECT_TRUE(tavDB->Init(world_.Objects(), 2));
        FillManufacturer(tavDB->Manufacturer());
        FillDevice(tavDB->Device());
        return tavDB;
    }

    std::string Rows(const std::string& table, const std::string& order = "1, 2") {
        return world_.Rows("SELECT * FROM " + table + " ORDER BY " + order);
    }

    DbWorld world_;
    std::unique_ptr<clsTavDB> tavDB_;
};

class OldUpdate : public Update {
 protected:
    OldUpdate() : Update(DeviceSchema::Old) {}
};

TEST_F(Update, NewEntryWithItsCategoryPairRunsNineStatements) {
    world_.Execute("DELETE FROM DeviceCategories");
    tavDB_->Device().CatID = tavDB_->GetDevCatID("1", "1");
    EXPECT_TRUE(tavDB_->Update());
    EXPECT_THAT(world_.Statements(),
                ElementsAre("SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ",
                            "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
                            "MinorDeviceCategoryId) VALUES ('1', '1', '1') ",
                            "select *   from MfrProtocols ",
                            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, "
                            "'Acme', 'Acme Inc') ",
                            "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, "
                            "MfrId) VALUES (1, 1, 1, "
                            "'38') ",
                            "select *   from DeviceTypes ",
                            "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, "
                            "Description) VALUES "
                            "(1, 1, '10', 'Flow', 'Flow meter') ",
                            "select *   from DeviceRevisions ",
                            "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
                            "DeviceCategoryId, "
                            "Name, Description) VALUES (1, 1, '1', 1, 'R1', 'First') "));
    EXPECT_EQ(Rows("DeviceCategories"), "1|1|1\n");
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|1|R1|First\n");
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(Update, DeviceGetsTheManufacturersNumberWithoutASecondSearchAndNoArgument) {
    world_.Execute("INSERT INTO Manufacturers VALUES (3, 'M3', 'D3')");
    world_.Execute("INSERT INTO MfrProtocols VALUES (6, 3, 1, '17')");
    tavDB_->Device().ManProtID = 99;
    tavDB_->Device().NoName = 5;
    EXPECT_TRUE(tavDB_->Update());
    EXPECT_EQ(tavDB_->Device().ManProtID, 7);
    EXPECT_EQ(tavDB_->Device().NoName, 0);
    EXPECT_THAT(
        world_.Statements(),
        ElementsAre(kSearchProtocols,
                    "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (4, "
                    "'Acme', 'Acme Inc') ",
                    "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) "
                    "VALUES (7, 4, 1, '38') ",
                    kSearchTypes,
                    "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, "
                    "Description) VALUES (1, 7, '10', 'Flow', 'Flow meter') ",
                    kSearchRevisions,
                    "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
                    "DeviceCategoryId, Name, Description) VALUES (1, 1, '1', 1, 'R1', 'First') "));
    EXPECT_EQ(Rows("DeviceTypes"), "1|7|10|Flow|Flow meter\n");
}

TEST_F(Update, FailingManufacturerLeavesTheDeviceTablesUntouched) {
    tavDB_->Manufacturer().Name = "O'Neil";
    EXPECT_FALSE(tavDB_->Update());
    EXPECT_THAT(world_.Statements(), ElementsAre(kSearchProtocols,
                                                 "INSERT INTO Manufacturers        (TavMfrNameId, Name, "
                                                 "Description) VALUES (1, 'O'Neil', 'Acme Inc') "));
    EXPECT_EQ(Rows("Manufacturers"), "");
    EXPECT_EQ(Rows("DeviceTypes"), "");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("MANins-02.1a")));
}

TEST_F(Update, FailedNumberSearchWritesNothing) {
    world_.Execute("INSERT INTO Manufacturers VALUES (3, 'M3', 'D3')");
    world_.Execute("INSERT INTO MfrProtocols VALUES (32767, 3, 1, '17')");
    EXPECT_FALSE(tavDB_->Update());
    EXPECT_THAT(world_.Statements(), ElementsAre(kSearchProtocols));
    EXPECT_EQ(Rows("Manufacturers"), "3|M3|D3\n");
    EXPECT_EQ(Rows("DeviceTypes"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(EntryText("MANmpid-02", ErrorNumber::Overflow)));
}

TEST_F(Update, FailingDeviceLeavesTheManufacturersRows) {
    tavDB_->Device().CatID = "99";  // no such category
    EXPECT_FALSE(tavDB_->Update());
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("DEVins-03.2")));
}

TEST_F(Update, SecondManufacturerInTheSameFacadeFailsAtThePrimaryKeyWithoutASearch) {
    EXPECT_TRUE(tavDB_->Update());
    world_.Statements();
    tavDB_->Manufacturer().ManID = "27";
    tavDB_->Manufacturer().Name = "New";
    EXPECT_FALSE(tavDB_->Update());
    EXPECT_THAT(world_.Statements(), ElementsAre("INSERT INTO Manufacturers        (TavMfrNameId, Name, "
                                                 "Description) VALUES (1, 'New', 'Acme Inc') "));
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("MANins-02.1a")));
}

TEST_F(Update, SecondManufacturerInTheSameFacadeGetsTheFirstOnesNumbersWhereNoKeyRefusesThem) {
    world_.Loosen({"DeviceRevisions", "DeviceTypes", "MfrProtocols", "Manufacturers"});
    EXPECT_TRUE(tavDB_->Update());
    world_.Statements();
    tavDB_->Manufacturer().ManID = "27";
    EXPECT_TRUE(tavDB_->Update());
    EXPECT_THAT(
        world_.Statements(),
        ElementsAre("INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (1, "
                    "'Acme', 'Acme Inc') ",
                    "INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) "
                    "VALUES (1, 1, 1, '39') ",
                    "INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, "
                    "Description) VALUES (1, 1, '10', 'Flow', 'Flow meter') ",
                    "INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
                    "DeviceCategoryId, Name, Description) VALUES (1, 1, '1', 1, 'R1', 'First') "));
    EXPECT_EQ(Rows("MfrProtocols", "4"), "1|1|1|38\n1|1|1|39\n");
}

TEST_F(Update, SecondManufacturerInAFreshFacadeAfterAReconnectGetsTheNextNumbers) {
    EXPECT_TRUE(tavDB_->Update());
    EXPECT_TRUE(world_.Connect(world_.Dsn()));
    tavDB_ = FreshFacade();
    tavDB_->Manufacturer().ManID = "27";
    EXPECT_TRUE(tavDB_->Update());
    EXPECT_EQ(Rows("Manufacturers"), "1|Acme|Acme Inc\n2|Acme|Acme Inc\n");
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|2|1|39\n");
    EXPECT_EQ(Rows("DeviceTypes"), "1|1|10|Flow|Flow meter\n2|2|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|1|R1|First\n2|2|1|1|R1|First\n");
}

TEST_F(Update, SecondNewEntryInAFreshFacadeGetsTheNextNumbers) {
    EXPECT_TRUE(tavDB_->Update());
    tavDB_ = FreshFacade();
    tavDB_->Manufacturer().ManID = "27";
    EXPECT_TRUE(tavDB_->Update());
    EXPECT_EQ(Rows("MfrProtocols"), "1|1|1|38\n2|2|1|39\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "1|1|1|1|R1|First\n2|2|1|1|R1|First\n");
}

TEST_F(Update, FacadeWithoutRecordsCreatesThem) {
    clsTavDB bare(world_.Events());
    EXPECT_FALSE(bare.Init(world_.Objects()));
    EXPECT_TRUE(bare.Update()) << "records of no schema write nothing";
    EXPECT_THAT(world_.Statements(), IsEmpty());
    EXPECT_THAT(world_.Entries(), IsEmpty());
    EXPECT_EQ(bare.Manufacturer().ManID, "");
    EXPECT_EQ(bare.Device().ManID, "");
}

TEST_F(OldUpdate, AddsThreeRecordsAndAsksForNoNumber) {
    EXPECT_TRUE(tavDB_->Update());
    EXPECT_THAT(world_.Statements(),
                ElementsAre("INSERT INTO MfrIds (DevMfrId, MfrIdName) VALUES (?, ?)",
                            "INSERT INTO DevTypes (DevMfrId, DevType, DevTypeDesc) VALUES (?, ?, ?)",
                            "INSERT INTO PDevices (UDevRevId, DevMfrId, DevType, DevName, DevRev, DevDDLRev, "
                            "DevProtocolRev) VALUES (?, ?, ?, ?, ?, ?, ?)"));
    EXPECT_EQ(tavDB_->Device().ManProtID, 0);
    EXPECT_EQ(Rows("MfrIds"), "38|Acme\n");
    EXPECT_EQ(Rows("DevTypes"), "38|10|Flow\n");
    EXPECT_EQ(Rows("PDevices"), "00000026000A0001|38|10|Flow|1|2|5\n");
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_F(OldUpdate, FailingManufacturerLeavesTheDeviceTablesUntouched) {
    world_.Execute("INSERT INTO MfrIds VALUES (38, 'Before')");
    EXPECT_FALSE(tavDB_->Update());
    EXPECT_EQ(Rows("MfrIds"), "38|Before\n");
    EXPECT_EQ(Rows("DevTypes"), "");
    EXPECT_EQ(Rows("PDevices"), "");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("MANins-01")));
}

TEST_F(OldUpdate, FailingDeviceLeavesTheManufacturersRow) {
    world_.Database().DropTable("PDevices");
    EXPECT_FALSE(tavDB_->Update());
    EXPECT_EQ(Rows("MfrIds"), "38|Acme\n");
    EXPECT_EQ(Rows("DevTypes"), "38|10|Flow\n");
    EXPECT_THAT(world_.Entries(), ElementsAre(DatabaseEntry("DEVins-02")));
}

}  // namespace
}  // namespace ventlock::test
