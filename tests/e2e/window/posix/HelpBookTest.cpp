// The help book by keyboard alone. The title of its window tells which page is shown.

#include <gtest/gtest.h>

#include <string>

#include "e2e/window/posix/WindowWorld.h"

namespace ventlock::test {
namespace {

class HelpByKeyboard : public testing::TestWithParam<const char*> {
 protected:
    HelpByKeyboard() {
        world_.MakeDatabase();
        world_.Set("Language", GetParam());
    }

    static Node HelpWindow(const Program& program, const std::string& english, const std::string& german) {
        return program.Window(IsGerman() ? "Hilfe: " + german : "Help: " + english);
    }

    static Node FirstPage(const Program& program) {
        return HelpWindow(program, "Welcome to Ventlock", "Willkommen bei Ventlock");
    }

    static bool IsGerman() { return std::string(GetParam()) == "DE"; }

    WindowWorld world_;
};

TEST_P(HelpByKeyboard, OpensTurnsPagesGoesBackAndCloses) {
    const Program program(world_.WindowCall(), "Ventlock");
    program.Window("Ventlock").Press("F1");
    FirstPage(program).Press("Tab");
    for (const char* const key : {"Right", "Down", "Down"}) FirstPage(program).Press(key);
    const Node second = HelpWindow(program, "The tab General", "Der Reiter Allgemein");
    second.ExpectShown();
    second.Press("alt+Left");
    FirstPage(program).ExpectShown();
    FirstPage(program).Press("alt+Right");
    second.Press("Escape");
    second.ExpectHidden();
    program.Window("Ventlock").ExpectShown();
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpByKeyboard, testing::Values("EN", "DE"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
}  // namespace ventlock::test
