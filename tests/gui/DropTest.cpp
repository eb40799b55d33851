// Files dropped onto the window: its own drop target is called as the toolkit calls it. The way of the
// desktop to it is gone in the tests from outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "gui/GuiWorld.h"
#include "gui/Input.h"
#include "ui/FileDrop.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class Drop : public testing::Test {
 protected:
    Drop() { world_.PutEntry(); }

    void SetUp() override { world_.Start(); }

    /// Drops files onto the window and waits until the window has dealt with them.
    void DropThese(const std::vector<std::string>& paths) {
        auto* target = dynamic_cast<FileDrop*>(world_.Window().GetDropTarget());
        ASSERT_NE(target, nullptr);
        wxArrayString names;
        for (const std::string& path : paths) names.push_back(ToWx(path));
        EXPECT_TRUE(target->OnDropFiles(10, 10, names));
        Pump();
    }

    std::string Made(const std::string& name, const std::string& bytes) {
        const std::string path = world_.Folder() + name;
        fs::create_directories(fs::path(path).parent_path());
        WriteBytes(path, bytes);
        return path;
    }

    std::string Text(std::size_t box) { return world_.Window().Controls().txtMain[box]->Text(); }

    GuiWorld world_;
};

TEST_F(Drop, OfAnEntryFileOpensIt) {
    const std::string path = Made("level", "[Level]\nManID=11\nDevName=Level\n");
    DropThese({path});
    EXPECT_EQ(Text(kManufacturerIdBox), "11");
    EXPECT_EQ(Text(kDeviceNameBox), "Level");
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(Drop, OfTargetsSetsTheirPathsForFieldsAndWriters) {
    const std::string ini = Made("new/PYX.INI", "");
    const std::string ddInstall = Made("new/ddinstal.ini", "");
    DropThese({ddInstall, ini});
    EXPECT_EQ(Text(kIniPathBox), ini);
    EXPECT_EQ(Text(kDDInstallPathBox), ddInstall);
    EXPECT_EQ(world_.Window().Records().PyxConfig().IniPath, ini);
    EXPECT_EQ(world_.Window().Records().DDInstall().IniPath, ddInstall);
    EXPECT_EQ(ReadBytes(ini) + ReadBytes(ddInstall), "") << "nothing is written";
    EXPECT_THAT(world_.messages.Texts(), IsEmpty());
}

TEST_F(Drop, OfOneOfEachKindDoesAllThree) {
    const std::string ini = Made("new/Pyx.ini", "");
    const std::string ddInstall = Made("new/Ddinstal.ini", "");
    DropThese({Made("level.ini", "[L]\nManID=11\n"), ini, ddInstall});
    EXPECT_EQ(Text(kManufacturerIdBox), "11");
    EXPECT_EQ(Text(kIniPathBox), ini);
    EXPECT_EQ(Text(kDDInstallPathBox), ddInstall);
}

TEST_F(Drop, OfAnythingElseIsRefusedInOneMessage) {
    const std::string picture = Made("picture.png", "\x89PNG\r\n\x1A\n");
    const std::string folder = world_.Folder() + "new";
    fs::create_directory(folder);
    const std::string one = Made("1.ini", "[A]\nManID=1\n");
    const std::string two = Made("2.ini", "[A]\nManID=2\n");
    DropThese({picture, folder, one, two});
    EXPECT_THAT(world_.messages.Texts(),
                ElementsAre("Not everything that was dropped has a place here:\n\n" + picture +
                            ": neither Pyx.ini nor Ddinstal.ini nor an entry file\n" + folder +
                            ": no file that can be read\n" + one +
                            ": one of several of its kind; drop one of them\n" + two +
                            ": one of several of its kind; drop one of them"));
    EXPECT_EQ(Text(kManufacturerIdBox), "26");
    EXPECT_EQ(Text(kIniPathBox), world_.PyxPath());
}

TEST_F(Drop, OfAnEntryFileWithErrorsTellsThemAndChangesNothing) {
    DropThese({Made("bad.ini", "[A]\nManID=xyz\nDevName=Level\n")});
    EXPECT_THAT(world_.messages.Texts(),
                ElementsAre(StartsWith("The entry was not opened. The window stays as it was.\n")));
    EXPECT_EQ(Text(kManufacturerIdBox), "26");
    EXPECT_EQ(Text(kDeviceNameBox), "Flow");
}

TEST_F(Drop, DoesNothingWhileACommandRuns) {
    const std::string path = Made("level.ini", "[L]\nManID=11\n");
    int times = 0;
    world_.messages.whileShown = [&] {
        if (++times == 1) DropThese({path});
    };
    world_.Window().mnuWriteINI_Click();
    Pump();
    EXPECT_EQ(times, 1);
    EXPECT_EQ(Text(kManufacturerIdBox), "26");
}

}  // namespace
}  // namespace ventlock::test
