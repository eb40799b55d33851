// What start-up leaves behind, step by step.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "core/modLocalization.h"
#include "gui/GuiWorld.h"
#include "gui/RecordingDictionary.h"
#include "ui/modMain.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(StartSteps, LogsToTheFileBesideTheProgramAndToTheScreen) {
    GuiWorld world;
    const clsLog& log = world.Start().Objects().Get<clsLog>(kLogKey);
    EXPECT_EQ(log.LogFile, world.ProgramFile("Ventlock.log"));
    EXPECT_EQ(log.Caption, "Ventlock");
    EXPECT_EQ(log.LogLevel, 3);
    EXPECT_EQ(log.HelpFile, "");
    EXPECT_TRUE(log.Initialized);
}

TEST(StartSteps, HelpIsTheBookBesideTheProgram) {
    GuiWorld world;
    EXPECT_EQ(world.Start().cmndlgDB().HelpFile, world.ProgramFile("Ventlock.hlp"));
}

TEST(StartSteps, TheDictionaryReadsTheStandardFileAndThenTheProgramsOwn) {
    GuiWorld world;
    const auto dictionary = std::make_shared<RecordingDictionary>();
    world.createDictionary = [&] { return dictionary; };
    world.Start();
    EXPECT_THAT(dictionary->loads, ElementsAre(ElementsAre(world.ProgramFile("QorStandard.dct"),
                                                           world.ProgramFile("Ventlock.dct"))));
}

TEST(StartSteps, SettingsAreInTheRecordsBeforeTheDictionaryIsLoaded) {
    GuiWorld world;
    world.PutEntry();
    const auto dictionary = std::make_shared<RecordingDictionary>();
    world.createDictionary = [&] { return dictionary; };
    frmMain& window = world.Make();
    int loads = 0;
    dictionary->whileLoading = [&] {
        ++loads;
        EXPECT_EQ(window.Objects().Get<clsSettings>(kSettingsKey).ManID, "26");
        EXPECT_EQ(window.Records().TavDB().Manufacturer().ManID, "26");
        EXPECT_EQ(gsLanguage, "EN");
        EXPECT_TRUE(window.Objects().Contains(kLogKey));
        EXPECT_FALSE(window.Objects().Contains(kConnectionKey));
    };
    window.Form_Load();
    EXPECT_EQ(loads, 1);
}

TEST(StartSteps, TheConnectionIsSharedBeforeItConnects) {
    GuiWorld world;
    int engines = 0;
    world.createEngine = [&, real = world.createEngine] {
        ++engines;
        EXPECT_TRUE(world.Window().Objects().Contains(kConnectionKey));
        return real();
    };
    world.Start();
    EXPECT_EQ(engines, 1);
}

TEST(StartSteps, TheWindowLoadsBeforeItIsShown) {
    GuiWorld world;
    frmMain& window = world.Make();
    window.Form_Load();
    EXPECT_FALSE(window.IsShown());
    EXPECT_FALSE(window.IsBusy());
}

TEST(StartSteps, AGoodStartDoesNotEndTheProgram) {
    GuiWorld world;
    frmMain& window = world.Start();
    EXPECT_TRUE(window.IsShown());
    EXPECT_TRUE(window.IsConnected());
    EXPECT_FALSE(gbTerminate);
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(StartSteps, StartsOnAMachineWithoutAnyStoredSetting) {
    GuiWorld world(GuiWorld::NoDatabase{});
    world.host.findRegistry = [empty = std::make_shared<FakeRegistry>()]() -> IRegistry& { return *empty; };
    const EntryForm form = world.Start().Controls().Read();
    EXPECT_EQ(form.txtMain[kManufacturerIdBox], "");
    EXPECT_EQ(form.txtMain[kDataSourceBox], "PYX");
    EXPECT_EQ(form.txtMain[kDDInstallPathBox], "A:\\Ddinstal.ini");
    EXPECT_EQ(form.cboHARTRev, "05");
    ASSERT_EQ(form.lstTAVVersionSupport.size(), 1u);
    EXPECT_EQ(form.lstTAVVersionSupport[0].text, "5.0");
    EXPECT_TRUE(form.lstTAVVersionSupport[0].isSelected);
}

}  // namespace
}  // namespace ventlock::test
