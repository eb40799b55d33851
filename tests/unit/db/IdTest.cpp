// Numbers at the end of 16 bits, and numbers in columns of text.

#include "db/clsTavDB.h"
#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The largest number of a table and the one that a new row gets, "" when there is none to get.
struct LargestRow {
    const char* name;
    const char* largest;
    const char* next;
    const char* manufacturerStep;  ///< at which the search ends
    const char* typeStep;
    const char* revisionStep;
    const char* categoryStep;
    const char* pairStep;
};

class LargestNumber : public testing::TestWithParam<LargestRow> {
 protected:
    LargestNumber() {
        world_.Execute("INSERT INTO Manufacturers VALUES (1, 'Acme', ''), (2, 'Best', '')");
        world_.Execute("INSERT INTO MfrProtocols VALUES (1, 1, 1, '38'), (2, 2, 1, '17')");
        EXPECT_TRUE(tavDB_.Init(world_.Objects(), 2));
        FillManufacturer(tavDB_.Manufacturer());
        FillDevice(tavDB_.Device());
        tavDB_.Device().ManProtID = 1;
    }

    /// Checks one write: its new row's number, or its failure and the log's one entry.
    void Expect(bool isWritten, const std::string& newRows, const char* tag, const char* step) {
        const std::string next = GetParam().next;
        EXPECT_EQ(isWritten, !next.empty());
        EXPECT_EQ(newRows, next.empty() ? "" : next + "\n");
        if (next.empty()) {
            EXPECT_THAT(world_.Entries(), ElementsAre(std::string(tag) + step + ": Overflow (6)"));
        } else {
            EXPECT_THAT(world_.Entries(), IsEmpty());
        }
    }

    DbWorld world_;
    clsTavDB tavDB_{world_.Events()};
};

TEST_P(LargestNumber, OfAManufacturersProtocol) {
    world_.Execute(std::string("UPDATE MfrProtocols SET MfrProtocolId = ") + GetParam().largest +
                   " WHERE MfrProtocolId = 2");
    tavDB_.Manufacturer().ProtID = "2";
    const bool isWritten = tavDB_.Manufacturer().Insert();
    Expect(isWritten, world_.Rows("SELECT MfrProtocolId FROM MfrProtocols WHERE ProtocolId = 2"), "MANmpid-",
           GetParam().manufacturerStep);
}

TEST_P(LargestNumber, OfAManufacturer) {
    world_.Execute(std::string("INSERT INTO Manufacturers VALUES (") + GetParam().largest + ", 'Last', '')");
    world_.Execute(std::string("UPDATE MfrProtocols SET TavMfrNameId = ") + GetParam().largest +
                   " WHERE MfrProtocolId = 2");
    tavDB_.Manufacturer().ManID = "99";
    tavDB_.Manufacturer().Name = "New";
    const bool isWritten = tavDB_.Manufacturer().Insert();
    // The name's column is read before the number's.
    const std::string step = GetParam().manufacturerStep;
    Expect(isWritten, world_.Rows("SELECT TavMfrNameId FROM Manufacturers WHERE Name = 'New'"), "MANmpid-",
           step == "01.1c" ? "01.1b" : step.c_str());
}

TEST_P(LargestNumber, OfADeviceType) {
    world_.Execute(std::string("INSERT INTO DeviceTypes VALUES (") + GetParam().largest +
                   ", 2, '10', '', '')");
    const bool isWritten = tavDB_.Device().Insert();
    Expect(isWritten, world_.Rows("SELECT TavDevTypeId FROM DeviceTypes WHERE Name = 'Flow'"), "DEVadtid-",
           GetParam().typeStep);
}

TEST_P(LargestNumber, OfADeviceRevision) {
    world_.Execute("INSERT INTO DeviceTypes VALUES (7, 1, '10', '', '')");
    world_.Execute(std::string("INSERT INTO DeviceRevisions VALUES (") + GetParam().largest +
                   ", 7, '9', 0, '', '')");
    const bool isWritten = tavDB_.Device().Insert();
    Expect(isWritten, world_.Rows("SELECT TavDevRevId FROM DeviceRevisions WHERE Name = 'R1'"), "DEVadrid-",
           GetParam().revisionStep);
}

TEST_P(LargestNumber, OfACategory) {
    world_.Execute(std::string("INSERT INTO MajorDeviceCategories VALUES (") + GetParam().largest +
                   ", 'Last', '')");
    const std::string number = tavDB_.GetCategoryID("Torque", 8);
    EXPECT_EQ(number, GetParam().next);
    Expect(!number.empty(),
           world_.Rows("SELECT MajorDeviceCategoryId FROM MajorDeviceCategories WHERE Name = 'Torque'"),
           "DBgci-", GetParam().categoryStep);
}

TEST_P(LargestNumber, OfAPairOfCategories) {
    world_.Execute(std::string("INSERT INTO DeviceCategories VALUES (") + GetParam().largest + ", 9, 9)");
    const std::string number = tavDB_.GetDevCatID("9", "1");
    EXPECT_EQ(number, GetParam().next);
    Expect(!number.empty(),
           world_.Rows("SELECT DeviceCategoryId FROM DeviceCategories WHERE MajorDeviceCategoryId = 9 AND "
                       "MinorDeviceCategoryId = 1"),
           "DBgdci-", GetParam().pairStep);
}

INSTANTIATE_TEST_SUITE_P(, LargestNumber,
                         testing::Values(LargestRow{"LastButOne", "32766", "32767", "", "", "", "", ""},
                                         LargestRow{"Last", "32767", "", "02", "02", "02", "03", "03"},
                                         LargestRow{"PastTheLast", "32768", "", "01.1c", "01.2", "01.2",
                                                    "02.2", "01.2"}),
                         RowName());

TEST_F(DeviceRecord, KnownOnesOfTheLargestNumberAreChanged) {
    Execute("INSERT INTO DeviceTypes VALUES (32767, 1, '10', 'T', 'D')");
    Execute("INSERT INTO DeviceRevisions VALUES (32767, 32767, '1', 0, 'R', 'D')");
    EXPECT_TRUE(device_.Insert());
    EXPECT_EQ(Rows("DeviceTypes"), "32767|1|10|Flow|Flow meter\n");
    EXPECT_EQ(Rows("DeviceRevisions"), "32767|32767|1|1|R1|First\n");
}

/// Number texts with blanks and zeros, in columns that hold them as they are.
struct NumberTextRow {
    const char* name;
    const char* text;
};

class NumberText : public testing::TestWithParam<NumberTextRow> {
 protected:
    /// The tables without keys, their numbers as texts.
    NumberText() {
        world_.Loosen(
            {"DeviceRevisions", "DeviceTypes", "MfrProtocols", "DeviceCategories", "MajorDeviceCategories"});
        for (const auto& [table, column] :
             {std::pair{"MfrProtocols", "MfrProtocolId"}, std::pair{"MfrProtocols", "TavMfrNameId"},
              std::pair{"MfrProtocols", "ProtocolId"}, std::pair{"DeviceTypes", "TavDevTypeId"},
              std::pair{"DeviceTypes", "MfrProtocolId"}, std::pair{"DeviceRevisions", "TavDevRevId"},
              std::pair{"DeviceRevisions", "TavDevTypeId"}, std::pair{"DeviceCategories", "DeviceCategoryId"},
              std::pair{"DeviceCategories", "MajorDeviceCategoryId"},
              std::pair{"DeviceCategories", "MinorDeviceCategoryId"},
              std::pair{"MajorDeviceCategories", "MajorDeviceCategoryId"}})
            world_.Database().MakeText(table, column);
        EXPECT_TRUE(tavDB_.Init(world_.Objects(), 2));
        FillManufacturer(tavDB_.Manufacturer());
        FillDevice(tavDB_.Device());
    }

    /// GetParam's text in quotes.
    static std::string Text() { return "'" + std::string(GetParam().text) + "'"; }

    DbWorld world_;
    clsTavDB tavDB_{world_.Events()};
};

TEST_P(NumberText, IsTheNumberOfWhatIsFound) {
    world_.Execute("INSERT INTO MfrProtocols VALUES (" + Text() + ", " + Text() + ", ' 01', '0038 ')");
    world_.Execute("INSERT INTO DeviceTypes VALUES (" + Text() + ", " + Text() + ", ' 0010 ', '', '')");
    world_.Execute("INSERT INTO DeviceRevisions VALUES (" + Text() + ", " + Text() + ", '001', 0, '', '')");
    EXPECT_EQ(tavDB_.Manufacturer().MfrProtocolID(), 7);
    EXPECT_EQ(tavDB_.Manufacturer().TAVMfrNameID, 7);
    EXPECT_EQ(tavDB_.Manufacturer().MfrProtocolFound, 1);
    tavDB_.Device().ManProtID = 7;
    EXPECT_EQ(tavDB_.Device().TAVDevTypeID(), 7);
    EXPECT_EQ(tavDB_.Device().TAVDevRevID(), 7);
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_P(NumberText, CountsForTheLargest) {
    world_.Execute("INSERT INTO MfrProtocols VALUES (" + Text() + ", " + Text() + ", '1', '17')");
    world_.Execute("INSERT INTO DeviceTypes VALUES (" + Text() + ", '1', '99', '', '')");
    world_.Execute("INSERT INTO DeviceRevisions VALUES (" + Text() + ", '99', '1', 0, '', '')");
    world_.Execute("DELETE FROM MajorDeviceCategories");
    world_.Execute("INSERT INTO MajorDeviceCategories VALUES (" + Text() + ", 'Flow', '')");
    EXPECT_EQ(tavDB_.Manufacturer().MfrProtocolID(), 8);
    EXPECT_EQ(tavDB_.Manufacturer().TAVMfrNameID, 8);
    EXPECT_EQ(tavDB_.Device().TAVDevTypeID(), 8);
    EXPECT_EQ(tavDB_.Device().TAVDevRevID(), 8);
    EXPECT_EQ(tavDB_.GetCategoryID("Torque", 8), "8");
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

TEST_P(NumberText, OfACategoryIsGivenTrimmedAndComparedAsANumber) {
    world_.Execute("DELETE FROM DeviceCategories");
    world_.Execute("DELETE FROM MajorDeviceCategories");
    world_.Execute("INSERT INTO MajorDeviceCategories VALUES (" + Text() + ", 'Flow', '')");
    world_.Execute("INSERT INTO DeviceCategories VALUES (" + Text() + ", " + Text() + ", " + Text() + ")");
    const std::string trimmed = std::string(GetParam().text).find("07") != std::string::npos ? "007" : "7";
    EXPECT_EQ(tavDB_.GetCategoryID("Flow", 8), trimmed);
    EXPECT_EQ(tavDB_.GetDevCatID("7", "7"), trimmed);
    EXPECT_THAT(world_.Entries(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, NumberText,
                         testing::Values(NumberTextRow{"Bare", "7"}, NumberTextRow{"LeadingZeros", "007"},
                                         NumberTextRow{"BlanksBefore", "   7"},
                                         NumberTextRow{"BlanksBehind", "7   "},
                                         NumberTextRow{"ZerosAndBlanks", " 007 "}),
                         RowName());

TEST_F(ManufacturerRecord, NumbersInColumnsOfFixedWidthAreFound) {
    for (const std::string table : {"DeviceRevisions", "DeviceTypes", "MfrProtocols"})
        world_.Database().DropTable(table);
    Execute(
        "CREATE TABLE MfrProtocols (MfrProtocolId CHAR(8), TavMfrNameId CHAR(8), ProtocolId CHAR(4), "
        "MfrId CHAR(10))");
    Execute("INSERT INTO MfrProtocols VALUES ('5', '0006', '1', '38')");
    EXPECT_EQ(manufacturer_.MfrProtocolID(), 5);
    EXPECT_EQ(manufacturer_.TAVMfrNameID, 6);
    EXPECT_THAT(Entries(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
