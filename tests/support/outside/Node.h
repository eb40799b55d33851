#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/outside/Accessible.h"

namespace ventlock::test {

/// A way to something in a program's windows: not the thing itself, which a program may replace at any time,
/// but how it is found. Every question and every deed looks it up anew and waits for it; a step that cannot
/// be made within kPatience stops the test and tells what was looked for and what was there.
class Node {
 public:
    /// How it is found: nothing, or Gone thrown, when it is not there now.
    using Finder = std::function<std::optional<Accessible>()>;

    /// Tells what there is instead, for failures.
    using Teller = std::function<std::string()>;

    /// `what` names it in failures.
    Node(std::string what, Finder finder, Teller surroundings);

    /// What is below this one, of a role and with a name; any name when none is given. Of several, the first
    /// that is shown counts, such as that of the notebook's page in front.
    [[nodiscard]] Node Find(const std::string& role, const std::optional<std::string>& name = {}) const;

    /// The field below this one whose label reads `label` and a colon. The program has to make the label
    /// directly before the field: the toolkit ties each label to the next control that takes the keyboard.
    [[nodiscard]] Node Field(const std::string& label) const;

    [[nodiscard]] Node Button(const std::string& name) const { return Find("push button", name); }

    /// An item of a list box, a combo box, a menu or a notebook (role "page tab list").
    [[nodiscard]] Node Item(const std::string& name) const;

    /// The very thing that is found now, and no other that comes in its place; it counts as long as it is
    /// shown.
    [[nodiscard]] Node This() const;

    // What it is now.

    /// Whether it is there at this moment.
    [[nodiscard]] bool Exists() const;

    /// The text of a field or a label; what is chosen in a combo box that cannot be typed in; else the name.
    [[nodiscard]] std::string Text() const;
    [[nodiscard]] std::string SelectedText() const;
    [[nodiscard]] bool IsEnabled() const { return Is(ATSPI_STATE_SENSITIVE); }
    [[nodiscard]] bool IsShown() const { return Is(ATSPI_STATE_SHOWING); }
    [[nodiscard]] bool IsFocused() const { return Is(ATSPI_STATE_FOCUSED); }
    [[nodiscard]] bool Is(AtspiStateType state) const;

    /// The texts of all labels below it that are shown, in reading order.
    [[nodiscard]] std::vector<std::string> Labels() const;

    /// The names of all items, and of those that are selected, in order.
    [[nodiscard]] std::vector<std::string> Items() const;
    [[nodiscard]] std::vector<std::string> SelectedItems() const;

    /// It and all below it at this moment.
    [[nodiscard]] std::string Tree() const;

    // What it comes to be: wait for it, and fail the test when it does not. The test goes on.

    void ExpectText(const std::string& expected) const;
    void ExpectSelectedText(const std::string& expected) const;
    void ExpectSelectedItems(const std::vector<std::string>& expected) const;
    void ExpectEnabled(bool expected) const;
    void ExpectShown() const;
    void ExpectFocused() const;

    /// It is shown no more, or is no more, perhaps with the whole program.
    void ExpectHidden() const;

    // What can be done to it. The effect may come later than the deed returns: expect it.

    /// Does an action by its name, once the thing is enabled; a missing one stops the test. Not for one that
    /// opens a modal dialog, see Accessible::Do.
    void Do(const std::string& action) const;

    /// Pushes a button or turns a check box with the space key.
    void Click() const { Press("space"); }

    /// Picks an item of a menu, of the menu bar or of a combo box; the menu is opened for it.
    void Pick(const std::string& item) const;

    /// Selects an item, with keys but for a notebook's page, and waits for it; in a list box of many
    /// selections it is selected besides the others.
    void Select(const std::string& item) const;

    /// Deselects an item of a list box of many selections.
    void Deselect(const std::string& item) const;

    /// Waits until it is shown and its window is the active one, and gives it the keyboard. A text field that
    /// gets it so has all its text selected. A combo box that cannot be typed in neither takes it nor tells
    /// whether it has it.
    void Focus() const;

    /// Real keys, see Keyboard, after Focus(). For a window they go to whatever in it has the keyboard. They
    /// are on their way when this returns, and what is done next may overtake them: expect their effect
    /// first.
    void Press(const std::string& keys) const;

    /// Types into a text field, in place of what is selected in it, and waits until it has arrived.
    void Type(const std::string& text) const { Type(text, text); }

    /// The same for a field that does not take all that is typed: `taken` is what it takes.
    void Type(const std::string& text, const std::string& taken) const;

    /// The same in place of all the text that the field holds.
    void Replace(const std::string& text) const { Replace(text, text); }
    void Replace(const std::string& text, const std::string& taken) const;

 private:
    /// Gives an item of a list box the wanted state.
    void SetSelected(const std::string& item, bool selected) const;

    /// What it is at the moment; Gone when it is not there.
    [[nodiscard]] Accessible Now() const;

    /// The answer to a question about it, asked until it is there to answer.
    template <typename Answer>
    Answer Ask(const std::function<Answer(const Accessible&)>& question) const;

    /// Waits until the deed is done; `doing` names it in the failure.
    void Await(const std::string& doing, const std::function<bool(const Accessible&)>& deed) const;

    /// Fails the test with what was expected and what there was instead.
    template <typename Value>
    void Expect(const std::string& property, const Value& expected,
                const std::function<Value(const Accessible&)>& value) const;

    std::string what_;
    Finder finder_;
    Teller surroundings_;
};

}  // namespace ventlock::test
