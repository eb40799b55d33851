// What a screen reader calls the controls of the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "e2e/window/posix/WindowWorld.h"
#include "support/outside/Accessible.h"
#include "support/outside/Waiting.h"

namespace ventlock::test {
namespace {

using testing::IsEmpty;

const std::set<std::string> kControls = {
    "push button", "toggle button", "text",      "combo box", "list box",     "tree table", "table",
    "page tab",    "menu",          "menu item", "check box", "radio button", "spin button"};

/// All controls of a window, as "role: name" and how often. The items of a list are no controls, and an
/// editable list and the text in it are one.
class ControlNames {
 public:
    explicit ControlNames(const Accessible& window) { Collect(window, false); }

    [[nodiscard]] std::vector<std::string> Nameless() const { return nameless_; }

    [[nodiscard]] std::vector<std::string> Doubled() const {
        std::vector<std::string> doubled;
        for (const auto& [name, roles] : roles_)
            if (roles.size() > 1) doubled.push_back(name + " (" + roles[0] + ", " + roles[1] + ")");
        return doubled;
    }

    [[nodiscard]] std::size_t Count() const { return roles_.size(); }
    [[nodiscard]] bool Contains(const std::string& name) const { return roles_.contains(name); }

 private:
    void Collect(const Accessible& thing, bool isInList) {
        const std::string role = thing.Role();
        const std::string name = role == "combo box" ? NameOfList(thing) : thing.Name();
        for (const Accessible& target : thing.Labelled())
            if (target.Role() == "combo box") roles_["labelled " + thing.Name()].push_back(role);
        const bool isPartOfList = isInList && role != "toggle button";
        if (kControls.contains(role)) {
            if (name.empty() && !(isInList && role == "menu")) nameless_.push_back(role);
            if (!isPartOfList && !name.empty() && name != kByItsLabel) roles_[name].push_back(role);
        }
        if (isInList && role == "menu") return;  // its items
        for (const Accessible& child : thing.Children()) Collect(child, isInList || role == "combo box");
    }

    /// A list that is not typed into is called by what is chosen in it: it has to have a label, which is
    /// counted in its stead.
    static std::string NameOfList(const Accessible& list) {
        for (const Accessible& child : list.Children())
            if (child.Role() == "text") return list.Name();
        return kByItsLabel;
    }

    static constexpr const char* kByItsLabel = "by its label";

    std::vector<std::string> nameless_;
    std::map<std::string, std::vector<std::string>> roles_;
};

/// The window of this title, of a program that has one.
Accessible WindowTitled(const std::string& title) {
    for (const Accessible& program : Accessible::Registry().Children())
        for (const Accessible& window : program.Children())
            if (window.Name() == title && window.Is(ATSPI_STATE_SHOWING)) return window;
    throw Gone("there is no window " + title);
}

class AccessibleNames : public testing::TestWithParam<const char*> {
 protected:
    AccessibleNames() {
        world_.MakeDatabase();
        world_.Set("Language", GetParam());
    }

    static void ExpectEachNamed(const ControlNames& names) {
        EXPECT_THAT(names.Nameless(), IsEmpty());
        EXPECT_THAT(names.Doubled(), IsEmpty());
    }

    WindowWorld world_;
};

TEST_P(AccessibleNames, OfTheWindowAreThereAndDiffer) {
    const Program program(world_.WindowCall(), "Ventlock");
    const ControlNames names(WindowTitled("Ventlock"));
    ExpectEachNamed(names);
    // text boxes, lists, buttons, arrows of the text boxes' lists, tabs, menus, their items
    EXPECT_EQ(names.Count(), 15u + 7u + 7u + 3u + 4u + 4u + 17u) << program.Everything().Tree();
}

TEST_P(AccessibleNames, OfTheLogWindowAreThereAndDiffer) {
    const bool isGerman = std::string(GetParam()) == "DE";
    const Program program(world_.WindowCall(), "Ventlock");
    program.Menu(isGerman ? "Extras" : "Tools").Pick(isGerman ? "Protokoll" : "Log Entries");
    const std::string title = isGerman ? "Protokoll" : "Log Entries";
    program.Window(title).ExpectShown();
    const ControlNames names(WindowTitled(title));
    ExpectEachNamed(names);
    EXPECT_EQ(names.Count(), 3u) << program.Everything().Tree();
}

TEST_P(AccessibleNames, OfThePreviewAreThereAndDiffer) {
    const bool isGerman = std::string(GetParam()) == "DE";
    const Program program(world_.WindowCall(), "Ventlock");
    program.Menu(isGerman ? "Extras" : "Tools").Pick(isGerman ? "Vorschau..." : "Preview...");
    const std::string title = isGerman ? "Vorschau" : "Preview";
    program.Window(title).ExpectShown();
    const ControlNames names(WindowTitled(title));
    ExpectEachNamed(names);
    EXPECT_EQ(names.Count(), 3u + 3u + 2u) << "texts, tabs, buttons: " << program.Everything().Tree();
}

TEST_P(AccessibleNames, OfTheBoxThatAsksWhichEntryAreThereAndDiffer) {
    const bool isGerman = std::string(GetParam()) == "DE";
    world_.Write("two.ini", "[Flow]\nManID=26\n[Level]\nManID=27\n");
    const Program program(world_.WindowCall(), "Ventlock");
    program.Window("Ventlock").Press("ctrl+o");
    const std::string title = isGerman ? "Eintrag \u00F6ffnen" : "Open Entry";
    program.ChooseFile(title, world_.Path("two.ini"));
    program.Window(title).Button(isGerman ? "Abbrechen" : "Cancel").ExpectShown();
    const ControlNames names(WindowTitled(title));
    ExpectEachNamed(names);
    EXPECT_EQ(names.Count(), 1u + 2u) << "list, buttons: " << program.Everything().Tree();
    EXPECT_TRUE(names.Contains(isGerman
                                   ? "Die Datei enth\u00E4lt mehrere Eintr\u00E4ge. W\u00E4hlen Sie den, "
                                     "der ge\u00F6ffnet werden soll:"
                                   : "The file holds several entries. Choose the one to be opened:"))
        << program.Everything().Tree();
}

TEST_P(AccessibleNames, OfTheAboutBoxAreThereAndDiffer) {
    const bool isGerman = std::string(GetParam()) == "DE";
    const Program program(world_.WindowCall(), "Ventlock");
    program.Menu(isGerman ? "Hilfe" : "Help").Pick(isGerman ? "Info..." : "About...");
    program.Window("About Ventlock").ExpectShown();
    const ControlNames names(WindowTitled("About Ventlock"));
    ExpectEachNamed(names);
    EXPECT_EQ(names.Count(), 2u) << "buttons: " << program.Everything().Tree();
}

TEST_P(AccessibleNames, AreInTheLanguageOfTheWindow) {
    const Program program(world_.WindowCall(), "Ventlock");
    const ControlNames names(WindowTitled("Ventlock"));
    const bool isGerman = std::string(GetParam()) == "DE";
    EXPECT_TRUE(names.Contains(isGerman ? "Hersteller: Name" : "Manufacturer: Name"));
    EXPECT_TRUE(names.Contains(isGerman ? "INI auswählen" : "Select INI"));
    EXPECT_TRUE(names.Contains(isGerman ? "Bekannte Datenquellen" : "Known data sources"));
}

INSTANTIATE_TEST_SUITE_P(Languages, AccessibleNames, testing::Values("EN", "DE"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
}  // namespace ventlock::test
