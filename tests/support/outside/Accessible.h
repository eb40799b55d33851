#pragma once

#include <atspi/atspi.h>

#include <memory>
#include <string>
#include <vector>

namespace ventlock::test {

/// One thing that a program shows to assistive technology, as it is now: a window, a control, a label, a row
/// of a list. Every answer is asked for anew; all throw Gone when the thing is no more.
class Accessible {
 public:
    /// What is above all programs of the display. Each of its children is one program.
    static Accessible Registry();

    /// Its kind in the words of AT-SPI: "frame", "dialog", "alert", "push button", "text", "table cell".
    [[nodiscard]] std::string Role() const;

    /// What it is called: a window's title, a button's or label's text without "&". Fields have none of their
    /// own: they are known by their labels.
    [[nodiscard]] std::string Name() const;

    [[nodiscard]] bool Is(AtspiStateType state) const;

    [[nodiscard]] std::vector<Accessible> Children() const;

    /// What holds it, up to the program itself, whose role is "application".
    [[nodiscard]] Accessible Parent() const;

    /// What it is the label for.
    [[nodiscard]] std::vector<Accessible> Labelled() const;

    /// Whether it holds a text, as fields and labels do.
    [[nodiscard]] bool HasText() const;
    [[nodiscard]] std::string Text() const;

    /// What is selected of its text, in characters from its start; both are the caret's place when nothing
    /// is.
    struct Range {
        int start = 0;
        int end = 0;
        bool operator==(const Range&) const = default;
    };
    [[nodiscard]] Range Selection() const;
    [[nodiscard]] std::string SelectedText() const;

    /// The names of what can be done with it: "click", "activate".
    [[nodiscard]] std::vector<std::string> Actions() const;

    /// Does an action. Not for one that opens a modal dialog: the program would be waiting for the dialog
    /// inside the call, and the first real key after that would make it wait for itself.
    void Do(int action) const;

    /// Selects one of its children: a notebook's page. A list box takes this for done and does nothing.
    void Select(int child) const;

    /// Gives it the keyboard. A combo box that cannot be typed in does not take it so.
    void GrabFocus() const;

    /// The program that it belongs to.
    [[nodiscard]] int Process() const;

    /// It and all below it, a line each: role, "name", states, text.
    [[nodiscard]] std::string Tree(int depth = 0) const;

 private:
    explicit Accessible(AtspiAccessible* owned);

    std::shared_ptr<AtspiAccessible> node_;
};

}  // namespace ventlock::test
