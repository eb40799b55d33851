// Start-up that fails at one of its steps.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>

#include "gui/GuiWorld.h"
#include "gui/RecordingDictionary.h"
#include "support/LogEntry.h"
#include "support/RowName.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Keeps what goes to stderr while it lives.
class StderrText {
 public:
    StderrText() : before_(std::cerr.rdbuf(text_.rdbuf())) {}
    ~StderrText() { std::cerr.rdbuf(before_); }
    StderrText(const StderrText&) = delete;
    StderrText& operator=(const StderrText&) = delete;
    [[nodiscard]] std::string Text() const { return text_.str(); }

 private:
    std::ostringstream text_;
    std::streambuf* before_;
};

/// The window stayed up, nothing ended the program, and closing it changes nothing that is stored.
void ExpectStoredEntrySurvives(GuiWorld& world, const std::vector<std::string>& before) {
    EXPECT_TRUE(world.Window().IsShown());
    EXPECT_FALSE(gbTerminate);
    world.CloseAndForget();
    EXPECT_TRUE(gbTerminate);
    EXPECT_EQ(world.AllStored(), before);
}

TEST(StartFailure, BeforeThereIsALogGoesToStderr) {
    GuiWorld world;
    world.PutEntry();
    const std::vector<std::string> before = world.AllStored();
    world.host.findClock = []() -> IClock& { throw RunTimeError(ErrorNumber::CannotCreateObject); };
    {
        const StderrText error;
        EXPECT_FALSE(world.Start().Objects().Contains("Log"));
        EXPECT_EQ(error.Text(), "fMf_l-01: ActiveX component can't create object (429)\n");
    }
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
    ExpectStoredEntrySurvives(world, before);
    EXPECT_THAT(world.host.registry.sets, IsEmpty());
}

TEST(StartFailure, OfASecondLoadIsThatTheObjectsAreThereAlready) {
    GuiWorld world;
    world.Start().Form_Load();
    EXPECT_THAT(
        world.LogEntries(),
        ElementsAre("fMf_l-01: This key is already associated with an element of this collection (457)"));
}

TEST(StartFailure, AtTheSettingsLeavesTheLaterObjectsOut) {
    GuiWorld world;
    world.PutEntry();
    const std::vector<std::string> before = world.AllStored();
    world.host.findRegistry = []() -> IRegistry& { throw RunTimeError(ErrorNumber::CannotCreateObject); };
    const frmMain& window = world.Start();
    EXPECT_TRUE(window.Objects().Contains("Log"));
    EXPECT_FALSE(window.Objects().Contains("Settings"));
    EXPECT_FALSE(window.Objects().Contains("Connection"));
    EXPECT_THAT(world.LogEntries(), ElementsAre("fMf_l-02: ActiveX component can't create object (429)"));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries());
    ExpectStoredEntrySurvives(world, before);
    EXPECT_THAT(world.host.registry.sets, IsEmpty());
}

/// A registry that breaks down when it is read.
struct BrokenRegistry final : IRegistry {
    RegistryStatus OpenKey(RegistryRoot /*root*/, std::string_view /*path*/, std::uint32_t /*mask*/,
                           std::unique_ptr<IRegistryKey>& /*key*/) override {
        throw RunTimeError(ErrorNumber::DeviceIoError);
    }
    RegistryStatus CreateKey(RegistryRoot /*root*/, std::string_view /*path*/,
                             std::unique_ptr<IRegistryKey>& /*key*/) override {
        ADD_FAILURE() << "written without having been read";
        return kRegistryAccessDenied;
    }
};

TEST(StartFailure, ToReadTheSettingsTwiceIsReportedTwiceAndNothingIsStored) {
    GuiWorld world;
    BrokenRegistry broken;
    world.host.findRegistry = [&]() -> IRegistry& { return broken; };
    world.Start();
    const std::string entry = EntryText("Sgs-01", ErrorNumber::DeviceIoError);
    EXPECT_THAT(world.LogEntries(), ElementsAre(entry, entry, DatabaseEntry("CONNconn-02")));
    EXPECT_FALSE(gbTerminate);
    world.CloseAndForget();
    EXPECT_TRUE(gbTerminate);
    EXPECT_EQ(world.LogEntries().size(), 3u) << "nothing was tried to be stored";
}

TEST(StartFailure, OfARegistryThatMayNotBeReadShowsTheDefaultsAndStoresNothing) {
    GuiWorld world(GuiWorld::NoDatabase{});
    world.PutEntry();
    const std::vector<std::string> before = world.AllStored();
    world.host.registry.RefuseOpen(63, kRegistryAccessDenied);
    world.host.registry.RefuseOpen(kKeyRead, kRegistryAccessDenied);
    world.host.registry.RefuseWrites(kRegistryAccessDenied);
    EXPECT_EQ(world.Start().Controls().Read().txtMain[kDataSourceBox], "PYX");
    ExpectStoredEntrySurvives(world, before);
}

TEST(StartFailure, WithoutADictionaryObjectIsObjectRequired) {
    GuiWorld world;
    world.PutEntry();
    world.createDictionary = [] { return nullptr; };
    const frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre("fMf_l-03: Object required (424)"));
    EXPECT_THAT(world.messages.Texts(), ElementsAre("fMf_l-03: Object required (424)"));
    EXPECT_TRUE(window.Objects().Contains("Settings"));
    EXPECT_FALSE(window.Objects().Contains("Connection"));
    EXPECT_THAT(world.Statements(), IsEmpty());
}

TEST(StartFailure, WithoutADictionaryObjectStoresWhatItRead) {
    GuiWorld world;
    world.PutEntry();
    world.createDictionary = [] { return nullptr; };
    world.Start();
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManID"), "26");
    EXPECT_EQ(world.Stored("DLLName"), "Dev.dll");
    EXPECT_EQ(world.Stored("TAVVersions"), "5.0, 6.0");
    EXPECT_EQ(world.host.registry.sets.size(), 30u);
}

TEST(StartFailure, ToCreateTheDictionaryIsReportedAtItsStep) {
    GuiWorld world;
    world.createDictionary = []() -> std::shared_ptr<IDictionary> {
        throw RunTimeError(ErrorNumber::CannotCreateObject);
    };
    world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre("fMf_l-03: ActiveX component can't create object (429)"));
    EXPECT_FALSE(gbTerminate);
}

class MissingDictionary : public testing::TestWithParam<const char*> {};

TEST_P(MissingDictionary, EndsTheProgramAfterTheRemainingSteps) {
    GuiWorld world;
    world.PutEntry();
    std::filesystem::remove(world.ProgramFile(GetParam()));
    frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre("Unable to initialize dictionary."));
    EXPECT_EQ(world.messages.Texts(), world.LogEntries());
    EXPECT_TRUE(window.IsUnloading());
    EXPECT_FALSE(window.IsShown());
    EXPECT_TRUE(gbTerminate);
    EXPECT_TRUE(window.IsConnected()) << "connected all the same";
    EXPECT_EQ(window.Controls().cboDeviceProtocol->Count(), 3) << "lists filled all the same";
    EXPECT_EQ(window.Controls().Read().txtMain[kManufacturerIdBox], "26") << "entry shown all the same";
    EXPECT_EQ(world.Statements().size(), 7u);
}

TEST_P(MissingDictionary, SavesTheSettingsAsTheyWereLoaded) {
    GuiWorld world;
    world.PutEntry();
    world.Put("WindowLeft", "1501");
    world.Put("WindowTop", "-60");
    world.Start();
    world.CloseAndForget();  // stores what was not stored so far
    const std::vector<std::string> before = world.AllStored();
    world.host.registry.sets.clear();

    std::filesystem::remove(world.ProgramFile(GetParam()));
    world.Start();
    EXPECT_EQ(world.AllStored(), before);
    EXPECT_EQ(world.host.registry.sets.size(), 30u) << "saved once";
}

TEST_P(MissingDictionary, ShowsTheKeysOrTheTextsOfTheOtherFile) {
    GuiWorld world;
    std::filesystem::remove(world.ProgramFile(GetParam()));
    const frmMain& window = world.Start();
    const bool isStandardMissing = std::string(GetParam()) == "QorStandard.dct";
    EXPECT_EQ(window.GetTitle(), isStandardMissing ? "Ventlock" : "IDS_TITLE");
    EXPECT_EQ(world.Window().Menu().bar->GetMenuLabel(0), isStandardMissing ? "IDS_MNU_FILE" : "&File");
}

INSTANTIATE_TEST_SUITE_P(Files, MissingDictionary, testing::Values("QorStandard.dct", "Ventlock.dct"),
                         [](const auto& row) {
                             return std::string(row.param, std::string(row.param).size() - 4);
                         });

/// A connection whose every query gives the one version row of the current schema, with no thread behind it.
struct VersionRow final : IDBEngine {
    struct Connection final : IConnection {
        std::unique_ptr<Recordset> OpenRecordset(std::string_view /*source*/,
                                                 RecordsetType /*type*/) override {
            auto rows = std::make_unique<Recordset>(
                std::vector<std::string>{"Major", "Minor", "SchemaDate", "schemaNotes"});
            rows->AppendRow({"1", "1", "", ""});
            return rows;
        }
        void Execute(std::string_view statement) override { ADD_FAILURE() << statement; }
        void BeginTrans() override { ADD_FAILURE(); }
        void CommitTrans() override { ADD_FAILURE(); }
        void Rollback() override { ADD_FAILURE(); }
        ConnectionFacts Facts() override { return {}; }
    };
    struct Workspace final : IWorkspace {
        std::unique_ptr<IConnection> OpenConnection(std::string_view /*name*/, std::optional<int> /*options*/,
                                                    bool /*readOnly*/,
                                                    std::string_view /*connect*/) override {
            return std::make_unique<Connection>();
        }
    };
    std::unique_ptr<IWorkspace> CreateWorkspace(std::string_view /*name*/, std::string_view /*user*/,
                                                std::string_view /*password*/,
                                                WorkspaceType /*type*/) override {
        return std::make_unique<Workspace>();
    }
};

TEST(StartFailure, WhileConnectingStopsBeforeTheListsAndKeepsTheStoredEntry) {
    GuiWorld world;
    world.PutEntry();
    world.createEngine = [] { return std::make_unique<VersionRow>(); };
    int yields = 0;
    world.whileYielding = [&] {
        // One for the row and one for the version, twice; nobody guards the last of them.
        if (++yields == 4) throw RunTimeError(ErrorNumber::Overflow);
    };
    frmMain& window = world.Start();
    EXPECT_THAT(world.LogEntries(), ElementsAre("fMf_l-04: Overflow (6)"));
    EXPECT_TRUE(window.Objects().Contains("Connection"));
    EXPECT_FALSE(window.IsConnected());
    EXPECT_EQ(window.Controls().cboDevRev->Count(), 0);
    EXPECT_FALSE(gbTerminate);
    world.CloseAndForget();
    EXPECT_EQ(world.Stored("ManID"), "26");
    EXPECT_EQ(world.Stored("TAVVersions"), "5.0, 6.0");
    EXPECT_EQ(world.host.registry.sets.size(), 30u);
}

/// A list of the database that cannot be loaded.
struct BadList {
    const char* name;
    const char* breaks;  ///< the statements that break it
    const char* begins;  ///< how the log entry begins
};

void PrintTo(const BadList& row, std::ostream* out) {
    *out << row.breaks;
}

class UnreadableList : public testing::TestWithParam<BadList> {
 protected:
    UnreadableList() {
        world_.PutEntry();
        before_ = world_.AllStored();
        world_.Database().Execute("PRAGMA foreign_keys=OFF");
        std::istringstream statements(GetParam().breaks);
        for (std::string statement; std::getline(statements, statement, ';');)
            world_.Database().Execute(statement);
    }

    GuiWorld world_;
    std::vector<std::string> before_;
};

TEST_P(UnreadableList, EndsTheProgramAfterTheLastStep) {
    frmMain& window = world_.Start();
    ASSERT_EQ(world_.LogEntries().size(), 1u);
    EXPECT_THAT(world_.LogEntries()[0], testing::StartsWith(GetParam().begins));
    EXPECT_TRUE(gbTerminate);
    EXPECT_TRUE(window.IsShown()) << "the next poll ends the program";
    EXPECT_EQ(window.Controls().Read().txtMain[kManufacturerIdBox], "26") << "entry shown all the same";
    EXPECT_EQ(window.Menu().bar->GetMenuLabel(0), "&File");
    EXPECT_THAT(world_.host.registry.sets, IsEmpty());
}

TEST_P(UnreadableList, StoresNothingWhenTheWindowIsClosed) {
    world_.Start();
    world_.CloseAndForget();
    EXPECT_TRUE(gbTerminate);
    EXPECT_THAT(world_.host.registry.sets, IsEmpty());
    EXPECT_EQ(world_.AllStored(), before_);
    for (const std::string& statement : world_.Statements())
        EXPECT_THAT(statement, testing::StartsWith("SELECT ")) << "a row was written";
}

constexpr std::array kBadLists{
    BadList{"ProtocolsMissing", "DROP TABLE DeviceProtocols", "DBlp-00: ODBC--call failed. ["},
    BadList{"MajorCategoriesMissing", "DROP TABLE MajorDeviceCategories", "DBlc-00: ODBC--call failed. ["},
    BadList{"MinorCategoriesMissing", "DROP TABLE MinorDeviceCategories", "DBlc-00: ODBC--call failed. ["},
    BadList{
        "ProtocolWithoutId",
        "CREATE TABLE loose AS SELECT * FROM DeviceProtocols;DROP TABLE DeviceProtocols;"
        "ALTER TABLE loose RENAME TO DeviceProtocols;INSERT INTO DeviceProtocols VALUES (NULL, 'None', '')",
        "DBlp-00: Invalid use of Null (94)"},
    BadList{"CategoryWithATextAsId",
            "CREATE TABLE loose (MajorDeviceCategoryId VARCHAR(8), Name VARCHAR(64));"
            "DROP TABLE MajorDeviceCategories;ALTER TABLE loose RENAME TO MajorDeviceCategories;"
            "INSERT INTO MajorDeviceCategories VALUES ('abc', 'Text')",
            "DBlc-00: Type mismatch (13)"},
};
INSTANTIATE_TEST_SUITE_P(Lists, UnreadableList, testing::ValuesIn(kBadLists), RowName());

TEST(StartFailure, ToWriteTheLogShowsTheMessagesAllTheSame) {
    GuiWorld world(GuiWorld::NoDatabase{});
    std::filesystem::create_directory(world.ProgramFile("Ventlock.log"));
    const frmMain& window = world.Start();
    EXPECT_THAT(world.messages.Texts(), ElementsAre(DatabaseEntry("CONNconn-02")));
    EXPECT_TRUE(window.IsShown());
    EXPECT_FALSE(gbTerminate);
}

}  // namespace
}  // namespace ventlock::test
