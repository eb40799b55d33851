#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// What the one question of a test was.
const FileQuestion& TheQuestion(const GuiWorld& world) {
    EXPECT_THAT(world.fileDialog.questions, SizeIs(1));
    return world.fileDialog.questions.front();
}

TEST(SelectDBFile, AsksForAnExistingDatabase) {
    GuiWorld world;
    world.fileDialog.answer = "/chosen.mdb";
    EXPECT_EQ(world.Start().SelectDBFile(), "/chosen.mdb");
    const FileQuestion& question = TheQuestion(world);
    EXPECT_EQ(question.flags, 4100);
    EXPECT_EQ(question.preselected, 2);
    EXPECT_EQ(question.filters, "Access databases (*.mdb)|*.mdb|All files (*.*)|*.*");
    EXPECT_EQ(question.start, world.Database().Dsn());
}

TEST(SelectINIFile, AsksForAnExistingFile) {
    GuiWorld world;
    world.Start().mnuSelectINI_Click();
    const FileQuestion& question = TheQuestion(world);
    EXPECT_EQ(question.flags, 4100);
    EXPECT_EQ(question.preselected, 3);
    EXPECT_EQ(question.filters, "Pyx.ini|Pyx.ini|INI files (*.ini)|*.ini|All files (*.*)|*.*");
    EXPECT_EQ(question.start, world.PyxPath());
    EXPECT_EQ(question.title, "Select INI");
}

TEST(SelectDDInstallFile, AsksForAnyFile) {
    GuiWorld world;
    world.Start().mnuSelectDDInstall_Click();
    const FileQuestion& question = TheQuestion(world);
    EXPECT_EQ(question.flags, 4);
    EXPECT_EQ(question.preselected, 2);
    EXPECT_EQ(question.filters, "INI files (*.ini)|*.ini|All files (*.*)|*.*");
    EXPECT_EQ(question.start, world.DDInstallPath());
    EXPECT_EQ(question.title, "Select DDInstall");
}

TEST(FileSelection, StartsFromTheFieldsPresentText) {
    GuiWorld world;
    frmMain& window = world.Start();
    window.Controls().txtMain[kIniPathBox]->SetText("/nowhere/Typed.ini");
    window.mnuSelectINI_Click();
    EXPECT_EQ(TheQuestion(world).start, "/nowhere/Typed.ini");
}

TEST(FileSelection, PutsTheChosenConfigurationFileIntoFieldAndWriter) {
    GuiWorld world;
    frmMain& window = world.Start();
    world.fileDialog.answer = "/chosen/Pyx.ini";
    window.mnuSelectINI_Click();
    EXPECT_EQ(window.Controls().txtMain[kIniPathBox]->Text(), "/chosen/Pyx.ini");
    EXPECT_EQ(window.Records().PyxConfig().IniPath, "/chosen/Pyx.ini");
    EXPECT_EQ(window.Records().DDInstall().IniPath, world.DDInstallPath()) << "the other stays";
}

TEST(FileSelection, PutsTheChosenDDInstallFileIntoFieldAndWriter) {
    GuiWorld world;
    frmMain& window = world.Start();
    world.fileDialog.answer = "/chosen/New.ini";
    window.mnuSelectDDInstall_Click();
    EXPECT_EQ(window.Controls().txtMain[kDDInstallPathBox]->Text(), "/chosen/New.ini");
    EXPECT_EQ(window.Records().DDInstall().IniPath, "/chosen/New.ini");
    EXPECT_EQ(window.Records().PyxConfig().IniPath, world.PyxPath()) << "the other stays";
}

TEST(FileSelection, ThatIsCancelledChangesAndLogsNothing) {
    GuiWorld world;
    frmMain& window = world.Start();
    window.Controls().txtMain[kIniPathBox]->SetText("typed");
    window.Controls().txtMain[kDDInstallPathBox]->SetText("typed too");
    window.mnuSelectINI_Click();
    window.mnuSelectDDInstall_Click();
    EXPECT_THAT(world.fileDialog.questions, SizeIs(2));
    EXPECT_EQ(window.Controls().txtMain[kIniPathBox]->Text(), "typed");
    EXPECT_EQ(window.Controls().txtMain[kDDInstallPathBox]->Text(), "typed too");
    EXPECT_EQ(window.Records().PyxConfig().IniPath, world.PyxPath());
    EXPECT_EQ(window.Records().DDInstall().IniPath, world.DDInstallPath());
    EXPECT_THAT(world.LogEntries(), IsEmpty());
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(FileSelection, WithoutAValidFilterOffersAllFiles) {
    GuiWorld world;
    std::string texts = ReadBytes(world.ProgramFile("Ventlock.dct"));
    for (std::size_t at; (at = texts.find("IDS_FLTR_INI=Pyx.ini|Pyx.ini")) != std::string::npos;)
        texts.replace(at, std::string("IDS_FLTR_INI=Pyx.ini|Pyx.ini").size(), "IDS_FLTR_INI=Pyx.ini");
    WriteBytes(world.ProgramFile("Ventlock.dct"), texts);
    world.Start().mnuSelectINI_Click();
    EXPECT_EQ(TheQuestion(world).filters, "*.*|*.*");
    EXPECT_EQ(TheQuestion(world).preselected, 1);
}

TEST(FileSelection, ThatFailsIsLoggedUnderItsTagAndChangesNothing) {
    GuiWorld world;
    frmMain& window = world.Start();
    world.fileDialog.answer = "/chosen";
    world.fileDialog.whileShown = [] { throw RunTimeError(ErrorNumber::OutOfMemory); };
    EXPECT_EQ(window.SelectDBFile(), "");
    window.mnuSelectINI_Click();
    window.mnuSelectDDInstall_Click();
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("fMsdb-00", ErrorNumber::OutOfMemory),
                                                EntryText("fMsif-00", ErrorNumber::OutOfMemory),
                                                EntryText("fMsdf-00", ErrorNumber::OutOfMemory)));
    EXPECT_EQ(window.Controls().txtMain[kIniPathBox]->Text(), world.PyxPath());
    EXPECT_EQ(window.Controls().txtMain[kDDInstallPathBox]->Text(), world.DDInstallPath());
}

TEST(FileSelection, NoCommandAsksForADatabaseFile) {
    GuiWorld world;
    world.PutEntry();
    frmMain& window = world.Start();
    for (wxMenu* menu : {window.Menu().mnuFile, window.Menu().mnuEdit}) {
        for (const wxMenuItem* item : menu->GetMenuItems())
            if (!item->IsSeparator() && item != window.Menu().mnuExit) Choose(window, *item);
    }
    Press(*window.Controls().cmdSelectINI);
    Press(*window.Controls().cmdSelectDDInstall);
    Press(*window.Controls().cmdSwitchDSN);
    EXPECT_THAT(world.fileDialog.questions, SizeIs(4)) << "two by the menu, two by the buttons";
    for (const FileQuestion& question : world.fileDialog.questions)
        EXPECT_THAT(question.filters, testing::HasSubstr("INI files"));
}

TEST(FileSelection, TitlesTheDialogInTheWindowsLanguage) {
    GuiWorld world;
    world.host.locale.languageName = "Deutsch (Deutschland)";
    world.Start().mnuSelectINI_Click();
    EXPECT_EQ(TheQuestion(world).title, "INI auswählen");
}

}  // namespace
}  // namespace ventlock::test
