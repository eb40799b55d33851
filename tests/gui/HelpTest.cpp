#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui/Commands.h"
#include "gui/GuiWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

TEST(Help, OpensTheContentsOfTheBookInTheProgramsFolderByBothCommands) {
    GuiWorld world;
    frmMain& window = world.Start();
    EXPECT_EQ(window.cmndlgDB().HelpFile, world.ProgramFile("Ventlock.hlp"));
    Choose(window, *window.Menu().mnuHelpContents);
    Choose(window, *window.Menu().mnuHelpSearch);
    EXPECT_THAT(world.help.shown, ElementsAre(Pair(world.ProgramFile("Ventlock.hlp"), 3),
                                              Pair(world.ProgramFile("Ventlock.hlp"), 3)));
    EXPECT_THAT(world.LogEntries(), IsEmpty());
}

TEST(Help, WithoutItsBookIsLoggedInTheFileAlone) {
    GuiWorld world;
    frmMain& window = world.Start();
    world.help.isMissing = true;
    window.mnuHelpContents_Click();
    EXPECT_THAT(world.LogEntries(),
                ElementsAre("The help book cannot be opened: " + world.ProgramFile("Ventlock.hlp")));
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(Help, ThatFailsIsLoggedUnderItsTag) {
    GuiWorld world;
    frmMain& window = world.Start();
    world.help.whileShown = [] { throw RunTimeError(ErrorNumber::OutOfMemory); };
    window.mnuHelpContents_Click();
    window.mnuHelpSearch_Click();
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("fMhp-00", ErrorNumber::OutOfMemory),
                                                EntryText("fMhp-00", ErrorNumber::OutOfMemory)));
}

}  // namespace
}  // namespace ventlock::test
