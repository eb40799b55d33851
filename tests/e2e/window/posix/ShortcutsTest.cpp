// Commands of the menu "Tools" by their shortcuts.

#include <gtest/gtest.h>

#include "e2e/window/posix/WindowWorld.h"

namespace ventlock::test {
namespace {

TEST(Shortcuts, OpenThePreview) {
    WindowWorld world;
    world.MakeDatabase();
    world.Set("Language", "EN");
    const Program program(world.WindowCall(), "Ventlock");
    program.Window("Ventlock").Press("ctrl+p");
    program.Window("Preview").ExpectShown();
    program.Window("Preview").Press("Escape");
    program.Window("Preview").ExpectHidden();
}

}  // namespace
}  // namespace ventlock::test
