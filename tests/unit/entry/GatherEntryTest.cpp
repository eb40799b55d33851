#include "entry/GatherEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/OwnFiles.h"
#include "db/SchemaVersion.h"
#include "db/StatementJournal.h"
#include "platform/odbc/OdbcEngine.h"
#include "support/LoggedApp.h"
#include "support/RowName.h"
#include "support/SqliteDatabase.h"

namespace ventlock {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The three objects that an entry is gathered into, without a database.
class GatherEntryTest : public testing::Test {
 protected:
    bool Gather(std::int16_t schemaVersion = 0) {
        return GatherEntry(form_, schemaVersion, &app_.Objects(), facade_, ddInstall_, pyxConfig_);
    }

    test::LoggedApp app_;
    test::FakeEvents events_;
    ProfileStore profiles_{app_.Files(), CodePage(1252)};
    EntryForm form_;
    clsTavDB facade_{events_};
    clsDDInstall ddInstall_{profiles_};
    clsPyxConfig pyxConfig_{profiles_};
};

struct FileName {
    const char* name;
    const char* typed;
    const char* dll;
    const char* mrg;
    const char* help;
};

void PrintTo(const FileName& row, std::ostream* out) {
    *out << row.name;
}

class GatheredFileNames : public GatherEntryTest, public testing::WithParamInterface<FileName> {};

TEST_P(GatheredFileNames, GetTheirExtensionAndReachBothWriters) {
    for (const std::size_t box : {kDllBox, kTemplateBox, kDeviceHelpBox, kBlockHelpBox}) {
        form_.txtMain[box] = GetParam().typed;
    }
    EXPECT_TRUE(Gather());
    EXPECT_EQ(ddInstall_.DeviceDLL, GetParam().dll);
    EXPECT_EQ(pyxConfig_.DeviceDLL, GetParam().dll);
    EXPECT_EQ(ddInstall_.Template, GetParam().mrg);
    EXPECT_EQ(ddInstall_.DeviceHelp, GetParam().help);
    EXPECT_EQ(pyxConfig_.DeviceHelp, GetParam().help);
    EXPECT_EQ(ddInstall_.BlockHelp, GetParam().help);
    EXPECT_EQ(pyxConfig_.BlockHelp, GetParam().help);
    EXPECT_EQ(form_.txtMain[kDllBox], GetParam().typed) << "the form is not changed";
}

INSTANTIATE_TEST_SUITE_P(
    Names, GatheredFileNames,
    testing::Values(FileName{"Plain", "Dev", "Dev.dll", "Dev.mrg", "Dev.hlp"},
                    FileName{"Empty", "", ".dll", ".mrg", ""}, FileName{"Blanks", "  ", ".dll", ".mrg", ""},
                    FileName{"OneLetter", "t", "t.dll", "t.mrg", "t.hlp"},
                    FileName{"ExtensionWithoutDot", "dll", "dll.dll", "dll.mrg", "dll.hlp"},
                    FileName{"CutExtension", "x.dl", "x.dl.dll", "x.dl.mrg", "x.dl.hlp"},
                    FileName{"UpperCaseDll", "DEV.DLL", "DEV.DLL", "DEV.DLL.mrg", "DEV.DLL.hlp"},
                    FileName{"BareDll", ".dll", ".dll", ".dll.mrg", ".dll.hlp"},
                    FileName{"UpperCaseTemplate", "t.MRG", "t.MRG.dll", "t.MRG", "t.MRG.hlp"},
                    FileName{"UpperCaseHelp", "h.HLP", "h.HLP.dll", "h.HLP.mrg", "h.HLP"},
                    FileName{"TrailingBlank", "Dev.dll ", "Dev.dll", "Dev.dll.mrg", "Dev.dll.hlp"}),
    [](const auto& row) { return row.param.name; });

TEST_F(GatherEntryTest, TrimsTextsButNotThePaths) {
    form_.txtMain[kDDInstallPathBox] = " C:\\dd.ini ";
    form_.txtMain[kIniPathBox] = " C:\\x.ini ";
    form_.txtMain[kManufacturerIdBox] = " 26 ";
    form_.txtMain[kManufacturerNameBox] = " Acme ";
    form_.txtMain[kDeviceIdBox] = " 7 ";
    form_.txtMain[kDeviceNameBox] = " Flow ";
    form_.cboDevRev = " 0a ";
    form_.cboDDRev = " 02 ";
    form_.cboHARTRev = " 05 ";
    Gather();
    EXPECT_EQ(ddInstall_.IniPath, " C:\\dd.ini ");
    EXPECT_EQ(pyxConfig_.IniPath, " C:\\x.ini ");
    EXPECT_EQ(facade_.Manufacturer().ManID, "26");
    EXPECT_EQ(facade_.Device().ManID, "26") << "the device record carries the manufacturer's id";
    EXPECT_EQ(facade_.Manufacturer().Name, "Acme");
    EXPECT_EQ(facade_.Device().DevID, "7");
    EXPECT_EQ(facade_.Device().DevName, "Flow");
    EXPECT_EQ(facade_.Device().DevRev, "0a") << "neither filtered nor upper-cased";
    EXPECT_EQ(facade_.Device().DDRev, "02");
    EXPECT_EQ(facade_.Device().ProtRev, "05");
}

TEST_F(GatherEntryTest, OldSchemaKeepsWhatItHasNoColumnsFor) {
    facade_.Manufacturer().Desc = "man";
    facade_.Manufacturer().ProtID = "1";
    facade_.Device().DevDesc = "dev";
    facade_.Device().RevName = "rev";
    facade_.Device().RevDesc = "first";
    facade_.Device().MajCatID = "3";
    facade_.Device().MinCatID = "4";
    facade_.Device().CatID = "5";
    for (std::string& text : form_.txtMain) text = "typed";
    form_.cboDeviceProtocol = {0, 0, "HART", 3};
    form_.cboDeviceCategory = {1, 1, "Pressure", 3};
    form_.cboMinorCategory = {1, 1, "Gauge", 3};
    Gather(kOldSchema);
    EXPECT_EQ(facade_.Manufacturer().Desc, "man");
    EXPECT_EQ(facade_.Manufacturer().ProtID, "1");
    EXPECT_EQ(facade_.Device().DevDesc, "dev");
    EXPECT_EQ(facade_.Device().RevName, "rev");
    EXPECT_EQ(facade_.Device().RevDesc, "first");
    EXPECT_EQ(facade_.Device().MajCatID, "3");
    EXPECT_EQ(facade_.Device().MinCatID, "4");
    EXPECT_EQ(facade_.Device().CatID, "5");
}

TEST_F(GatherEntryTest, CurrentSchemaTakesTheFourDescriptionsTrimmed) {
    form_.txtMain[kManufacturerDescriptionBox] = " man ";
    form_.txtMain[kDeviceDescriptionBox] = " dev ";
    form_.txtMain[kRevisionNameBox] = " rev ";
    form_.txtMain[kRevisionDescriptionBox] = " first ";
    Gather(kCurrentSchema);
    EXPECT_EQ(facade_.Manufacturer().Desc, "man");
    EXPECT_EQ(facade_.Device().DevDesc, "dev");
    EXPECT_EQ(facade_.Device().RevName, "rev");
    EXPECT_EQ(facade_.Device().RevDesc, "first");
}

TEST_F(GatherEntryTest, AChosenProtocolGivesItsIdAndNoneKeepsTheRecords) {
    facade_.Manufacturer().ProtID = "9";
    Gather(kCurrentSchema);
    EXPECT_EQ(facade_.Manufacturer().ProtID, "9");
    form_.cboDeviceProtocol = {2, 40000, "far", 3};
    Gather(kCurrentSchema);
    EXPECT_EQ(facade_.Manufacturer().ProtID, "40000");
}

TEST_F(GatherEntryTest, WithoutAFacadeThatIsInitialisedCategoriesNeedNoDatabaseAndLogNothing) {
    form_.cboDeviceCategory.text = "Flow";
    EXPECT_TRUE(Gather(kCurrentSchema));
    EXPECT_EQ(facade_.Device().MajCatID, "");
    EXPECT_EQ(facade_.Device().MinCatID, "0");
    EXPECT_EQ(facade_.Device().CatID, "0");
    EXPECT_THAT(app_.Entries(), IsEmpty());
}

struct Selection {
    const char* name;
    std::vector<OfferedVersion> versions;
    const char* joined;
};

void PrintTo(const Selection& row, std::ostream* out) {
    *out << row.name;
}

class GatheredVersions : public GatherEntryTest, public testing::WithParamInterface<Selection> {};

TEST_P(GatheredVersions, AreJoinedInListOrderAndReachWriterAndFacade) {
    ddInstall_.TAVVersionSupport = "old";
    form_.lstTAVVersionSupport = GetParam().versions;
    Gather();
    EXPECT_EQ(ddInstall_.TAVVersionSupport, GetParam().joined);
    EXPECT_EQ(facade_.LastTAVVersions, GetParam().joined);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, GatheredVersions,
    testing::Values(Selection{"None", {{"5.0", false}}, ""},
                    Selection{"One", {{"5.0", false}, {"6.0", true}}, "6.0"},
                    Selection{"Two", {{"5.0", true}, {"6.0", true}}, "5.0, 6.0"},
                    Selection{"EmptyItem", {{"5.0", true}, {"", true}, {"6.0", true}}, "5.0, , 6.0"}),
    [](const auto& row) { return row.param.name; });

/// The same objects connected to a real database of the current schema.
class GatherWithDatabase : public GatherEntryTest {
 protected:
    void SetUp() override {
        const auto createEngine = [this] { return CreateOdbcEngine(noEvents_, {}); };
        auto connection =
            std::make_shared<clsConnection>(Journaled(createEngine, journal_, StatementMode::Run));
        app_.Objects().Add(kConnectionKey, connection);
        ASSERT_TRUE(connection->Init(app_.Objects(), 2, database_.Dsn()));
        ASSERT_TRUE(facade_.Init(app_.Objects(), 2));
        journal_.Clear();
    }

    std::vector<std::string> Statements() {
        std::vector<std::string> statements;
        for (const JournalEntry& entry : journal_.Entries()) statements.push_back(entry.statement);
        return statements;
    }

    test::SqliteDatabase database_;
    NoEvents noEvents_;
    StatementJournal journal_;
};

constexpr const char* kPairs = "SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ";

TEST_F(GatherWithDatabase, ChosenCategoriesGiveTheirIdsAndTheirPairIsMade) {
    database_.Execute("DELETE FROM DeviceCategories WHERE DeviceCategoryId > 0");
    form_.cboDeviceCategory = {3, 3, "Flow", 10};
    form_.cboMinorCategory = {1, 1, "Gauge", 10};
    EXPECT_TRUE(Gather(kCurrentSchema));
    EXPECT_EQ(facade_.Device().MajCatID, "3");
    EXPECT_EQ(facade_.Device().MinCatID, "1");
    EXPECT_EQ(facade_.Device().CatID, "1");
    EXPECT_THAT(Statements(),
                ElementsAre(kPairs,
                            "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
                            "MinorDeviceCategoryId) VALUES ('1', '3', '1') "));
    EXPECT_EQ(database_.Rows("SELECT * FROM DeviceCategories ORDER BY DeviceCategoryId"), "0|0|0\n1|3|1\n");
}

TEST_F(GatherWithDatabase, TypedCategoriesAreFoundWithoutRegardToCaseAndBlanks) {
    form_.cboDeviceCategory.text = " FLOW ";
    Gather(kCurrentSchema);
    EXPECT_EQ(facade_.Device().MajCatID, "3");
    EXPECT_EQ(facade_.Device().MinCatID, "0") << "an empty text is category 0";
}

TEST_F(GatherWithDatabase, ANewTypedCategoryIsCreatedAsTyped) {
    const std::string last = database_.Rows("SELECT MAX(MinorDeviceCategoryId) FROM MinorDeviceCategories");
    form_.cboMinorCategory.text = "Whirl";
    Gather(kCurrentSchema);
    EXPECT_EQ(facade_.Device().MinCatID, std::to_string(std::stoi(last) + 1));
    EXPECT_EQ(database_.Rows("SELECT Name, Description FROM MinorDeviceCategories WHERE Name = 'Whirl'"),
              "Whirl|\n");
}

TEST_F(GatherWithDatabase, NothingChosenIsThePairOfZerosWhichIsInsertedOnceWhenMissing) {
    database_.Execute("DELETE FROM DeviceCategories");
    Gather(kCurrentSchema);
    EXPECT_EQ(facade_.Device().CatID, "1");
    EXPECT_THAT(Statements(),
                ElementsAre(kPairs,
                            "INSERT INTO DeviceCategories        (DeviceCategoryId, MajorDeviceCategoryId, "
                            "MinorDeviceCategoryId) VALUES ('1', '0', '0') "));
    journal_.Clear();
    Gather(kCurrentSchema);
    EXPECT_THAT(Statements(), ElementsAre(kPairs)) << "a later gather inserts nothing more";
}

TEST_F(GatherWithDatabase, AFailingCategoryDoesNotStopTheGather) {
    form_.cboDeviceCategory.text = "O'Neil";
    form_.txtMain[kRevisionDescriptionBox] = "first";
    form_.lstTAVVersionSupport = {{"5.0", true}};
    EXPECT_TRUE(Gather(kCurrentSchema));
    EXPECT_EQ(facade_.Device().MajCatID, "");
    EXPECT_EQ(facade_.Device().CatID, "0");
    EXPECT_EQ(facade_.Device().RevDesc, "first");
    EXPECT_EQ(ddInstall_.TAVVersionSupport, "5.0");
    ASSERT_EQ(app_.Entries().size(), 1U);
    EXPECT_TRUE(app_.Entries().front().starts_with("DBgci-03: ODBC--call failed. "))
        << app_.Entries().front();
}

}  // namespace
}  // namespace ventlock
