// The lists of paths that were written before.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/RecentPaths.h"
#include "core/clsSettings.h"
#include "gui/Commands.h"
#include "gui/DropDown.h"
#include "gui/GuiWorld.h"
#include "gui/Input.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecentPathList : public testing::Test {
 protected:
    void SetUp() override {
        world_.PutEntry();
        world_.Start();
    }

    MainControls& Controls() { return world_.Window().Controls(); }
    TextField& Field(std::size_t box) { return *Controls().txtMain[box]; }

    std::vector<std::string> Recent(std::string_view name) {
        return RecentPaths(world_.Window().Objects().Get<clsSettings>(kSettingsKey), name, false).Paths();
    }

    std::vector<std::string> Drop(std::size_t box, const std::vector<int>& keys) {
        EXPECT_TRUE(ReadyToType(Field(box).Box()));
        DropList& list = box == kIniPathBox ? *Controls().lstRecentINI : *Controls().lstRecentDDInstall;
        return InDropDown(
            world_.Window(), box, [&] { Press(list.Button()); }, keys);
    }

    void WriteIni(const std::string& path) {
        Field(kIniPathBox).SetText(path);
        world_.Window().SetControlStates();
        world_.Window().mnuWriteINI_Click();
    }

    GuiWorld world_;
};

TEST_F(RecentPathList, IsEmptyAtFirst) {
    EXPECT_THAT(Drop(kIniPathBox, {WXK_ESCAPE}),
                ElementsAre("[No file has been written yet]", "-", "[&Clear List]"));
    EXPECT_THAT(Drop(kDDInstallPathBox, {WXK_ESCAPE}),
                ElementsAre("[No file has been written yet]", "-", "[&Clear List]"));
}

TEST_F(RecentPathList, HoldsWhatWasWrittenTheLatestFirst) {
    const std::string other = world_.Folder() + "Other & more.ini";
    WriteIni(world_.PyxPath());
    WriteIni(other);
    EXPECT_THAT(Recent(kRecentINIPaths), ElementsAre(other, world_.PyxPath()));
    EXPECT_THAT(Recent(kRecentDDInstallPaths), IsEmpty());
    EXPECT_THAT(Drop(kIniPathBox, {WXK_ESCAPE}),
                ElementsAre(world_.Folder() + "Other && more.ini", world_.PyxPath(), "-", "&Clear List"));
}

TEST_F(RecentPathList, HoldsNothingThatCouldNotBeWritten) {
    WriteIni(world_.Folder() + "nowhere/Pyx.ini");
    EXPECT_THAT(Recent(kRecentINIPaths), IsEmpty());
}

TEST_F(RecentPathList, KeepsThePathsOfBothFilesApart) {
    world_.Window().mnuWriteDDInstall_Click();
    EXPECT_THAT(Recent(kRecentDDInstallPaths), ElementsAre(world_.DDInstallPath()));
    EXPECT_THAT(Recent(kRecentINIPaths), IsEmpty());
}

TEST_F(RecentPathList, PutsAPickIntoTheFieldAsTheFileDialogDoes) {
    const std::string other = world_.Folder() + "Other.ini";
    WriteIni(world_.PyxPath());
    WriteIni(other);
    Drop(kIniPathBox, {WXK_DOWN, WXK_DOWN, WXK_RETURN});
    EXPECT_EQ(Field(kIniPathBox).Text(), world_.PyxPath());
    EXPECT_EQ(world_.Window().Records().PyxConfig().IniPath, world_.PyxPath());
}

TEST_F(RecentPathList, IsEmptiedByItsLastItem) {
    WriteIni(world_.PyxPath());
    Drop(kIniPathBox, {WXK_UP, WXK_RETURN});
    EXPECT_THAT(Recent(kRecentINIPaths), IsEmpty());
    EXPECT_EQ(Field(kIniPathBox).Text(), world_.PyxPath());
}

TEST_F(RecentPathList, OutlivesTheProgram) {
    WriteIni(world_.PyxPath());
    world_.CloseAndForget();
    world_.Start();
    EXPECT_THAT(Recent(kRecentINIPaths), ElementsAre(world_.PyxPath()));
}

}  // namespace
}  // namespace ventlock::test
