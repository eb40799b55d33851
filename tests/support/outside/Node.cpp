#include "support/outside/Node.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/outside/Keyboard.h"
#include "support/outside/Waiting.h"

namespace ventlock::test {
namespace {

using Condition = std::function<bool(const Accessible&)>;

Accessible WindowOf(Accessible thing) {
    for (Accessible above = thing.Parent(); above.Role() != "application"; above = above.Parent())
        thing = above;
    return thing;
}

bool IsWindow(const Accessible& thing) {
    return thing.Parent().Role() == "application";
}

/// The combo box that a field is, or is the editable part of: there the label belongs to the text inside.
std::optional<Accessible> ComboBoxOf(const Accessible& field) {
    if (field.Role() == "combo box") return field;
    const Accessible above = field.Parent();
    if (above.Role() == "combo box") return above;
    return {};
}

/// The first below `top`, in reading order, for which the condition holds and which is shown; when none is
/// shown, the first at all.
std::optional<Accessible> FirstBelow(const Accessible& top, const Condition& condition) {
    std::optional<Accessible> hidden;
    for (const Accessible& child : top.Children()) {
        if (condition(child)) {
            if (child.Is(ATSPI_STATE_SHOWING)) return child;
            if (!hidden) hidden = child;
        }
        const std::optional<Accessible> deeper = FirstBelow(child, condition);
        if (deeper && deeper->Is(ATSPI_STATE_SHOWING)) return deeper;
        if (!hidden) hidden = deeper;
    }
    return hidden;
}

Condition OfRole(const std::string& role) {
    return [role](const Accessible& thing) { return thing.Role() == role; };
}

bool IsComboBox(const Accessible& thing) {
    return ComboBoxOf(thing).has_value();
}

std::string RoleOf(const Accessible& thing) {
    return thing.Role();
}

/// What holds the items: of a combo box its menu, which is there even when it is closed; else the thing
/// itself.
Accessible ItemsHolder(const Accessible& field) {
    const std::optional<Accessible> comboBox = ComboBoxOf(field);
    if (!comboBox) return field;
    const std::optional<Accessible> menu = FirstBelow(*comboBox, OfRole("menu"));
    if (!menu) throw Gone("the combo box has no items");
    return *menu;
}

std::vector<Accessible> ItemsOf(const Accessible& field) {
    std::vector<Accessible> items;
    for (const Accessible& child : ItemsHolder(field).Children()) {
        if (child.Role() != "table column header") items.push_back(child);
    }
    return items;
}

std::string TextOf(const Accessible& thing) {
    return thing.HasText() ? thing.Text() : thing.Name();
}

std::vector<std::string> Names(const std::vector<Accessible>& things) {
    std::vector<std::string> names;
    for (const Accessible& thing : things) names.push_back(thing.Name());
    return names;
}

std::vector<std::string> SelectedIn(const Accessible& list) {
    std::vector<Accessible> items = ItemsOf(list);
    std::erase_if(items, [](const Accessible& item) { return !item.Is(ATSPI_STATE_SELECTED); });
    return Names(items);
}

/// The characters from one place to another, or to the end for -1.
std::string Substring(const std::string& text, int start, int end) {
    gchar* const characters = g_utf8_substring(text.c_str(), start, end);
    const std::string copy = characters;
    g_free(characters);
    return copy;
}

void AddLabels(const Accessible& thing, std::vector<std::string>& texts) {
    if (thing.Role() == "label" && thing.Is(ATSPI_STATE_SHOWING)) texts.push_back(thing.Text());
    for (const Accessible& child : thing.Children()) AddLabels(child, texts);
}

/// The place of an item in its list.
int PlaceOf(const std::string& item, const Accessible& list) {
    const std::vector<std::string> names = Names(ItemsOf(list));
    const auto found = std::find(names.begin(), names.end(), item);
    if (found == names.end()) throw Gone("there is no such item");
    return static_cast<int>(found - names.begin());
}

}  // namespace

Node::Node(std::string what, Finder finder, Teller surroundings)
    : what_(std::move(what)), finder_(std::move(finder)), surroundings_(std::move(surroundings)) {}

Node Node::Find(const std::string& role, const std::optional<std::string>& name) const {
    const std::string what = role + (name ? " \"" + *name + "\"" : "") + " in " + what_;
    const auto find = [above = finder_, role, name]() -> std::optional<Accessible> {
        const std::optional<Accessible> top = above();
        if (!top) return {};
        return FirstBelow(*top, [&](const Accessible& thing) {
            return thing.Role() == role && (!name || thing.Name() == *name);
        });
    };
    return {what, find, surroundings_};
}

Node Node::Field(const std::string& label) const {
    const Node above = Find("label", label + ":");
    const auto find = [finder = above.finder_]() -> std::optional<Accessible> {
        const std::optional<Accessible> found = finder();
        if (!found) return {};
        const std::vector<Accessible> fields = found->Labelled();
        if (fields.empty()) return {};
        // A list box or a text of several lines stands in a scroll pane, and the label belongs to that.
        if (fields.front().Role() != "scroll pane") return fields.front();
        const std::vector<Accessible> inside = fields.front().Children();
        if (inside.empty()) return {};
        return inside.front();
    };
    return {"the field of " + above.what_, find, surroundings_};
}

Accessible Node::Now() const {
    const std::optional<Accessible> found = finder_();
    if (!found) throw Gone("it is not there");
    return *found;
}

void Node::Await(const std::string& doing, const std::function<bool(const Accessible&)>& deed) const {
    if (!ComesTrue([&] { return deed(Now()); }))
        StopTest(doing + " does not succeed: " + what_ + ". " + surroundings_());
}

template <typename Answer>
Answer Node::Ask(const std::function<Answer(const Accessible&)>& question) const {
    std::optional<Answer> answer;
    Await("looking", [&](const Accessible& thing) {
        answer = question(thing);
        return true;
    });
    return *answer;
}

Node Node::Item(const std::string& name) const {
    const auto find = [finder = finder_, name]() -> std::optional<Accessible> {
        const std::optional<Accessible> list = finder();
        if (!list) return {};
        for (const Accessible& item : ItemsOf(*list)) {
            if (item.Name() == name) return item;
        }
        return {};
    };
    return {"item \"" + name + "\" of " + what_, find, surroundings_};
}

Node Node::This() const {
    const auto thing = Ask<Accessible>([](const Accessible& found) { return found; });
    const auto find = [thing]() -> std::optional<Accessible> {
        // Of a thing that has been destroyed the library repeats the last states, but it does not know its
        // role.
        if (thing.Role().empty() || !thing.Is(ATSPI_STATE_SHOWING)) return {};
        return thing;
    };
    return {what_, find, surroundings_};
}

std::string Node::Tree() const {
    return Ask<std::string>([](const Accessible& thing) { return thing.Tree(); });
}

template <typename Value>
void Node::Expect(const std::string& property, const Value& expected,
                  const std::function<Value(const Accessible&)>& value) const {
    std::optional<Value> last;
    const bool came = ComesTrue([&] {
        last.reset();
        last = value(Now());
        return *last == expected;
    });
    if (came) return;
    ADD_FAILURE() << property << " of " << what_ << "\n  expected: " << testing::PrintToString(expected)
                  << "\n  actual:   " << (last ? testing::PrintToString(*last) : "it is not there") << "\n"
                  << surroundings_();
}

bool Node::Exists() const {
    try {
        return finder_().has_value();
    } catch (const Gone&) {
        return false;
    }
}

std::string Node::Text() const {
    return Ask<std::string>(TextOf);
}

std::string Node::SelectedText() const {
    return Ask<std::string>([](const Accessible& thing) { return thing.SelectedText(); });
}

bool Node::Is(AtspiStateType state) const {
    return Ask<bool>([state](const Accessible& thing) { return thing.Is(state); });
}

std::vector<std::string> Node::Labels() const {
    return Ask<std::vector<std::string>>([](const Accessible& thing) {
        std::vector<std::string> texts;
        AddLabels(thing, texts);
        return texts;
    });
}

std::vector<std::string> Node::Items() const {
    return Ask<std::vector<std::string>>([](const Accessible& thing) { return Names(ItemsOf(thing)); });
}

std::vector<std::string> Node::SelectedItems() const {
    return Ask<std::vector<std::string>>(SelectedIn);
}

void Node::ExpectText(const std::string& expected) const {
    Expect<std::string>("text", expected, TextOf);
}

void Node::ExpectSelectedText(const std::string& expected) const {
    Expect<std::string>("selected text", expected,
                        [](const Accessible& thing) { return thing.SelectedText(); });
}

void Node::ExpectSelectedItems(const std::vector<std::string>& expected) const {
    Expect<std::vector<std::string>>("selected items", expected, SelectedIn);
}

void Node::ExpectEnabled(bool expected) const {
    Expect<bool>("being enabled", expected,
                 [](const Accessible& thing) { return thing.Is(ATSPI_STATE_SENSITIVE); });
}

void Node::ExpectShown() const {
    Expect<bool>("being shown", true, [](const Accessible& thing) { return thing.Is(ATSPI_STATE_SHOWING); });
}

void Node::ExpectFocused() const {
    Expect<bool>("having the keyboard", true,
                 [](const Accessible& thing) { return thing.Is(ATSPI_STATE_FOCUSED); });
}

void Node::ExpectHidden() const {
    const bool hidden = ComesTrue([this] {
        try {
            const std::optional<Accessible> found = finder_();
            return !found || !found->Is(ATSPI_STATE_SHOWING);
        } catch (const Gone&) {
            return true;
        }
    });
    if (!hidden) ADD_FAILURE() << "still shown: " << what_ << ". " << surroundings_();
}

void Node::Do(const std::string& action) const {
    Await("action \"" + action + "\"", [&](const Accessible& thing) {
        const std::vector<std::string> actions = thing.Actions();
        const auto found = std::find(actions.begin(), actions.end(), action);
        if (found == actions.end() || !thing.Is(ATSPI_STATE_SENSITIVE)) return false;
        thing.Do(static_cast<int>(found - actions.begin()));
        return true;
    });
}

void Node::Pick(const std::string& item) const {
    const Node picked = Item(item);
    const Keyboard keyboard;
    bool opened = false;
    std::optional<std::vector<std::string>> before;
    Await("picking \"" + item + "\"", [&](const Accessible& thing) {
        const Accessible wanted = picked.Now();
        if (!opened) {
            // A menu that opens before its window has become the active one is closed again by that.
            if (!WindowOf(thing).Is(ATSPI_STATE_ACTIVE)) return false;
            opened = true;
            ComboBoxOf(thing).value_or(thing).Do(0);
        }
        if (!wanted.Is(ATSPI_STATE_SHOWING)) return false;
        if (wanted.Is(ATSPI_STATE_SELECTED)) return true;
        const std::vector<std::string> selected = SelectedIn(thing);
        if (selected != before) keyboard.Press("Down");  // else the last key is still on its way
        before = selected;
        return false;
    });
    keyboard.Press("Return");
    picked.ExpectHidden();
}

void Node::Select(const std::string& item) const {
    if (Ask<bool>(IsComboBox)) {
        Pick(item);
        ExpectText(item);
    } else if (Ask<std::string>(RoleOf) == "page tab list") {
        Await("bringing \"" + item + "\" to the front", [&](const Accessible& thing) {
            thing.Select(PlaceOf(item, thing));
            return SelectedIn(thing) == std::vector<std::string>{item};
        });
    } else {
        SetSelected(item, true);
    }
}

void Node::Deselect(const std::string& item) const {
    SetSelected(item, false);
}

void Node::SetSelected(const std::string& item, bool selected) const {
    const Node wanted = Item(item);
    if (wanted.Is(ATSPI_STATE_SELECTED) == selected) return;
    const auto place = Ask<int>([&](const Accessible& thing) { return PlaceOf(item, thing); });
    Press("ctrl+Home");
    for (int above = 0; above < place; ++above) Press("ctrl+Down");
    Press("ctrl+space");
    wanted.Expect<bool>("selection", selected,
                        [](const Accessible& thing) { return thing.Is(ATSPI_STATE_SELECTED); });
}

void Node::Focus() const {
    Await("giving it the keyboard", [](const Accessible& thing) {
        // What is hidden would take the keyboard too, and the keys would be lost.
        if (!thing.Is(ATSPI_STATE_SHOWING) || !WindowOf(thing).Is(ATSPI_STATE_ACTIVE)) return false;
        if (IsWindow(thing) || thing.Is(ATSPI_STATE_FOCUSED)) return true;
        thing.GrabFocus();
        return false;
    });
}

void Node::Press(const std::string& keys) const {
    Focus();
    Keyboard().Press(keys);
}

void Node::Type(const std::string& text, const std::string& taken) const {
    Focus();
    const auto before = Ask<std::string>([](const Accessible& thing) { return thing.Text(); });
    const auto [start, end] =
        Ask<Accessible::Range>([](const Accessible& thing) { return thing.Selection(); });
    const std::string after = Substring(before, 0, start) + taken + Substring(before, end, -1);
    const int caret = start + static_cast<int>(taken.size());
    Keyboard().Type(text);
    ExpectText(after);
    Expect<Accessible::Range>("selection", {caret, caret},
                              [](const Accessible& thing) { return thing.Selection(); });
}

void Node::Replace(const std::string& text, const std::string& taken) const {
    Press("ctrl+a");
    Press("Delete");
    ExpectText("");
    Type(text, taken);
}

}  // namespace ventlock::test
