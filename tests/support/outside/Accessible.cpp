#include "support/outside/Accessible.h"

#include "support/outside/Waiting.h"

namespace ventlock::test {
namespace {

struct Release {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Release>;

/// Calls with a place for the error that may come back.
template <typename Call>
auto Ask(Call call) {
    GError* error = nullptr;
    const auto answer = call(&error);
    if (error != nullptr) {
        const std::string text = error->message;
        g_error_free(error);
        throw Gone(text);
    }
    return answer;
}

template <typename Call>
auto AskFor(Call call) {
    auto* const object = Ask(call);
    if (object == nullptr) throw Gone("no answer");
    return Owned<std::remove_pointer_t<decltype(object)>>(object);
}

std::string Taken(gchar* text) {
    const std::string copy = text == nullptr ? "" : text;
    g_free(text);
    return copy;
}

Owned<AtspiText> TextOf(AtspiAccessible* node) {
    Owned<AtspiText> text(atspi_accessible_get_text_iface(node));
    if (text == nullptr) throw Gone("it holds no text");
    return text;
}

}  // namespace

Accessible::Accessible(AtspiAccessible* owned) : node_(owned, Release()) {}

Accessible Accessible::Registry() {
    // Without a main loop of its own the library keeps no copies: each question goes to the program.
    if (atspi_init() > 1)
        throw Gone("there is no accessibility bus: run the tests by with_display.sh --accessible");
    constexpr auto kLongest = std::chrono::milliseconds(kPatience);  // a busy machine answers late
    atspi_set_timeout(static_cast<int>(kLongest.count()), 0);
    AtspiAccessible* const registry = atspi_get_desktop(0);
    if (registry == nullptr) throw Gone("the accessibility registry does not answer");
    return Accessible(registry);
}

std::string Accessible::Role() const {
    return Taken(Ask([&](GError** error) { return atspi_accessible_get_role_name(node_.get(), error); }));
}

std::string Accessible::Name() const {
    return Taken(Ask([&](GError** error) { return atspi_accessible_get_name(node_.get(), error); }));
}

bool Accessible::Is(AtspiStateType state) const {
    const Owned<AtspiStateSet> states(atspi_accessible_get_state_set(node_.get()));
    if (states == nullptr) throw Gone("no answer");
    return atspi_state_set_contains(states.get(), state) != FALSE;
}

std::vector<Accessible> Accessible::Children() const {
    std::vector<Accessible> children;
    const int count =
        Ask([&](GError** error) { return atspi_accessible_get_child_count(node_.get(), error); });
    for (int index = 0; index < count; ++index) {
        AtspiAccessible* const child = Ask(
            [&](GError** error) { return atspi_accessible_get_child_at_index(node_.get(), index, error); });
        // A child that went between the two questions is not there.
        if (child != nullptr) children.push_back(Accessible(child));
    }
    return children;
}

Accessible Accessible::Parent() const {
    return Accessible(
        AskFor([&](GError** error) { return atspi_accessible_get_parent(node_.get(), error); }).release());
}

std::vector<Accessible> Accessible::Labelled() const {
    std::vector<Accessible> targets;
    GArray* const relations =
        Ask([&](GError** error) { return atspi_accessible_get_relation_set(node_.get(), error); });
    if (relations == nullptr) return targets;
    for (guint at = 0; at < relations->len; ++at) {
        const Owned<AtspiRelation> relation(g_array_index(relations, AtspiRelation*, at));
        if (atspi_relation_get_relation_type(relation.get()) != ATSPI_RELATION_LABEL_FOR) continue;
        for (int target = 0; target < atspi_relation_get_n_targets(relation.get()); ++target) {
            targets.push_back(Accessible(atspi_relation_get_target(relation.get(), target)));
        }
    }
    g_array_free(relations, TRUE);
    return targets;
}

bool Accessible::HasText() const {
    return Owned<AtspiText>(atspi_accessible_get_text_iface(node_.get())) != nullptr;
}

std::string Accessible::Text() const {
    const Owned<AtspiText> text = TextOf(node_.get());
    return Taken(Ask([&](GError** error) { return atspi_text_get_text(text.get(), 0, -1, error); }));
}

Accessible::Range Accessible::Selection() const {
    const Owned<AtspiText> text = TextOf(node_.get());
    if (Ask([&](GError** error) { return atspi_text_get_n_selections(text.get(), error); }) == 0) {
        const int caret = Ask([&](GError** error) { return atspi_text_get_caret_offset(text.get(), error); });
        return {caret, caret};
    }
    AtspiRange* const range =
        Ask([&](GError** error) { return atspi_text_get_selection(text.get(), 0, error); });
    const Range selection{range->start_offset, range->end_offset};
    g_free(range);
    return selection;
}

std::string Accessible::SelectedText() const {
    const auto [start, end] = Selection();
    const std::string text = Text();
    return Taken(g_utf8_substring(text.c_str(), start, end));
}

std::vector<std::string> Accessible::Actions() const {
    std::vector<std::string> names;
    const Owned<AtspiAction> action(atspi_accessible_get_action_iface(node_.get()));
    if (action == nullptr) return names;
    const int count = Ask([&](GError** error) { return atspi_action_get_n_actions(action.get(), error); });
    for (int index = 0; index < count; ++index) {
        names.push_back(Taken(
            Ask([&](GError** error) { return atspi_action_get_action_name(action.get(), index, error); })));
    }
    return names;
}

void Accessible::Do(int action) const {
    const Owned<AtspiAction> actions(atspi_accessible_get_action_iface(node_.get()));
    if (actions == nullptr) throw Gone("there is nothing to do with it");
    Ask([&](GError** error) { return atspi_action_do_action(actions.get(), action, error); });
}

void Accessible::Select(int child) const {
    const Owned<AtspiSelection> selection(atspi_accessible_get_selection_iface(node_.get()));
    if (selection == nullptr) throw Gone("nothing can be selected in it");
    Ask([&](GError** error) { return atspi_selection_select_child(selection.get(), child, error); });
}

void Accessible::GrabFocus() const {
    const Owned<AtspiComponent> component(atspi_accessible_get_component_iface(node_.get()));
    if (component == nullptr) throw Gone("it cannot be given the keyboard");
    Ask([&](GError** error) { return atspi_component_grab_focus(component.get(), error); });
}

int Accessible::Process() const {
    return static_cast<int>(
        Ask([&](GError** error) { return atspi_accessible_get_process_id(node_.get(), error); }));
}

std::string Accessible::Tree(int depth) const {
    std::string text(static_cast<std::size_t>(depth) * 2, ' ');
    try {
        text += Role() + " \"" + Name() + "\"";
        for (const auto& [state, word] :
             {std::pair{ATSPI_STATE_SHOWING, " showing"}, std::pair{ATSPI_STATE_SENSITIVE, " enabled"},
              std::pair{ATSPI_STATE_ACTIVE, " active"}, std::pair{ATSPI_STATE_FOCUSED, " focused"},
              std::pair{ATSPI_STATE_SELECTED, " selected"}}) {
            if (Is(state)) text += word;
        }
        if (HasText()) text += " says \"" + Text() + "\"";
        for (const Accessible& target : Labelled()) text += " labels " + target.Role();
        for (const std::string& action : Actions()) text += " <" + action + ">";
        text += "\n";
        for (const Accessible& child : Children()) text += child.Tree(depth + 1);
    } catch (const Gone& gone) {
        text += std::string(" is gone: ") + gone.what() + "\n";
    }
    return text;
}

}  // namespace ventlock::test
