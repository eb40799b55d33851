// What the program does when something is missing that it wants to start with, and that it always ends well.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "e2e/window/posix/WindowWorld.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kNotSupported = "The version of the device database is not supported.";

class StartUp : public testing::Test {
 protected:
    /// An entry of a run before.
    StartUp() {
        for (const auto& [name, value] : {std::pair{"ManID", "26"},
                                          {"ManName", "Acme"},
                                          {"ManDesc", "Acme Inc"},
                                          {"DevID", "0A"},
                                          {"DevName", "Flow"},
                                          {"ProtID", "2"},
                                          {"DevCatID", "1"},
                                          {"DevMinCatID", "1"},
                                          {"DLLName", "Dev.dll"},
                                          {"TemplateName", "t.mrg"},
                                          {"WindowLeft", "3000"},
                                          {"WindowTop", "1500"}})
            world_.Set(name, value);
        world_.Set("ErrLogPath", world_.Path("kept.log"));  // its default is the program's own folder
        world_.Set("INIPath", world_.Path("Pyx.ini"));
        world_.Set("DDInstallPath", world_.Path("Ddinstal.ini"));
    }

    void ChangeDatabase(const char* sql) const {
        world_.MakeDatabase();
        world_.Database().Execute(sql);
    }

    /// The window is there with the stored entry, tells that it is not connected and writes to no database.
    void ExpectWindowWithoutDatabase(const Program& program) const {
        program.Window("Ventlock").ExpectShown();
        EXPECT_TRUE(program.Everything().Find("label", "Not connected (data source PYX)").IsShown());
        program.Button("Write DB").ExpectEnabled(false);
        program.Button("Write .INI").ExpectEnabled(true);
        program.ShowPage("Manufacturer");
        program.Field("ID (in hex)").ExpectText("26");
        program.Field("Description").ExpectText("");
    }

    /// Closes the window; the program ends with 0 and the stored entry is as it was.
    void CloseAndExpectStoredEntryKept(const Program& program) const {
        program.Window("Ventlock").Press("alt+F4");
        ExpectEndWithStoredEntryKept(program);
    }

    void ExpectEndWithStoredEntryKept(const Program& program) const {
        EXPECT_EQ(program.WaitForEnd().exitCode, 0);
        EXPECT_EQ(Settings(), before_);
    }

    /// All settings as the command line shows them.
    [[nodiscard]] std::string Settings() const {
        const ProgramResult result = world_.Run({"settings", "list"});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return result.out;
    }

    /// From here on the settings must not change.
    void KeepSettings() { before_ = Settings(); }

    WindowWorld world_;
    std::string before_;
};

TEST_F(StartUp, WithoutADataSourceGoesOnWithoutADatabase) {
    KeepSettings();
    const Program program(world_.WindowCall());
    EXPECT_THAT(program.DismissMessageBox(), StartsWith("CONNconn-02: ODBC--call failed. [IM002] "));
    ExpectWindowWithoutDatabase(program);
    CloseAndExpectStoredEntryKept(program);
    EXPECT_THAT(world_.Log(), HasSubstr("CONNconn-02: ODBC--call failed. [IM002] "));
}

TEST_F(StartUp, WithASchemaItDoesNotKnowGoesOnWithoutADatabase) {
    ChangeDatabase("UPDATE __version SET Major = 2");
    KeepSettings();
    const Program program(world_.WindowCall());
    EXPECT_EQ(program.DismissMessageBox(), kNotSupported);
    ExpectWindowWithoutDatabase(program);
    CloseAndExpectStoredEntryKept(program);
}

TEST_F(StartUp, WithAnUnreadableVersionTellsWhyAndGoesOnWithoutADatabase) {
    ChangeDatabase("DROP TABLE __version");
    KeepSettings();
    const Program program(world_.WindowCall());
    EXPECT_THAT(program.DismissMessageBox(), StartsWith("DBlvi-00: ODBC--call failed. "));
    EXPECT_EQ(program.DismissMessageBox(), kNotSupported);
    ExpectWindowWithoutDatabase(program);
    CloseAndExpectStoredEntryKept(program);
}

TEST_F(StartUp, WithoutADictionaryEndsAndKeepsTheStoredEntry) {
    world_.MakeDatabase();
    fs::remove(world_.ProgramFile("Ventlock.dct"));
    KeepSettings();
    const Program program(world_.WindowCall());
    EXPECT_EQ(program.DismissMessageBox(), "Unable to initialize dictionary.");
    ExpectEndWithStoredEntryKept(program);
}

TEST_F(StartUp, WithAListThatCannotBeFilledEndsAndSavesNothing) {
    ChangeDatabase("ALTER TABLE DeviceProtocols RENAME TO Elsewhere");
    KeepSettings();
    const std::string store = ReadBytes(world_.SettingsStore());
    const Program program(world_.WindowCall());
    EXPECT_THAT(program.DismissMessageBox(), StartsWith("DBlp-00: ODBC--call failed. "));
    ExpectEndWithStoredEntryKept(program);
    EXPECT_EQ(ReadBytes(world_.SettingsStore()), store);
}

TEST_F(StartUp, WithALogThatCannotBeWrittenStillShowsItsMessages) {
    fs::create_directory(world_.ProgramFile("Ventlock.log"));
    KeepSettings();
    const Program program(world_.WindowCall());
    EXPECT_THAT(program.DismissMessageBox(), StartsWith("CONNconn-02: "));
    ExpectWindowWithoutDatabase(program);
    CloseAndExpectStoredEntryKept(program);
    EXPECT_TRUE(fs::is_empty(world_.ProgramFile("Ventlock.log")));
}

TEST_F(StartUp, WithSettingsThatCannotBeReadShowsDefaultsAndLeavesThemAlone) {
    world_.MakeDatabase();
    fs::remove(world_.SettingsStore());
    fs::create_directory(world_.SettingsStore());
    const Program program(world_.WindowCall(), "Ventlock");
    EXPECT_TRUE(program.Everything().Find("label", "Connected to PYX, current schema").IsShown());
    program.Field("DDInstall File").ExpectText("A:\\Ddinstal.ini");
    program.Window("Ventlock").Press("alt+F4");
    EXPECT_EQ(program.WaitForEnd().exitCode, 0);
    EXPECT_TRUE(fs::is_empty(world_.SettingsStore()));
}

TEST_F(StartUp, EndsAsIfClosedWhenTheHostWishesSo) {
    world_.MakeDatabase();
    const Program program(world_.WindowCall(), "Ventlock");
    program.ShowPage("Manufacturer");
    program.Field("Name").Replace("Best");
    program.AskToEnd();
    EXPECT_EQ(program.WaitForEnd().exitCode, 0);
    EXPECT_THAT(Settings(), HasSubstr("Best"));
    EXPECT_THAT(Settings(), Not(HasSubstr("Acme\n")));
}

TEST_F(StartUp, EndsWithTheHelpWindowOpen) {
    world_.MakeDatabase();
    KeepSettings();
    const Program program(world_.WindowCall(), "Ventlock");
    program.Window("Ventlock").Press("F1");
    program.Window("Help: Welcome to Ventlock").ExpectShown();
    program.AskToEnd();
    ExpectEndWithStoredEntryKept(program);
}

}  // namespace
}  // namespace ventlock::test
