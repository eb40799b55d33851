// Files that are dragged onto the window and let go there.

#include <gtest/gtest.h>

#include <string>

#include "e2e/window/WindowEntry.h"
#include "e2e/window/posix/WindowWorld.h"

namespace ventlock::test {
namespace {

class FilesDroppedFromOutside : public testing::Test {
 protected:
    FilesDroppedFromOutside() {
        world_.MakeDatabase();
        world_.Set("Language", "EN");
    }

    WindowWorld world_;
};

TEST_F(FilesDroppedFromOutside, AnEntryFileIsOpened) {
    world_.Write("flow 1 \u00E4.ini", kWindowEntry);
    const Program program(world_.WindowCall(), "Ventlock");
    program.TakeFiles({world_.Path("flow 1 \u00E4.ini")});
    program.ShowPage("Device");
    program.Field("Name").ExpectText("Flow");
    program.Field("Block Help").ExpectText("b");
}

TEST_F(FilesDroppedFromOutside, BothTargetsBecomeThePathsOfTheirFields) {
    world_.Write("PYX.INI", "");
    world_.Write("ddinstal.ini", "");
    const Program program(world_.WindowCall(), "Ventlock");
    program.TakeFiles({world_.Path("PYX.INI"), world_.Path("ddinstal.ini")});
    program.Field("PYX.ini Path").ExpectText(world_.Path("PYX.INI"));
    program.Field("DDInstall File").ExpectText(world_.Path("ddinstal.ini"));
}

}  // namespace
}  // namespace ventlock::test
