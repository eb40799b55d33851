// Typing and choosing.

#include <array>

#include "gui/Input.h"
#include "stress/Actions.h"
#include "stress/Desktop.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

void ReplaceText(User& user) {
    wxTextCtrl& box = user.Box().Box();
    const std::string text = user.Text();
    user.Note('"' + text.substr(0, 40) + '"');
    box.SetValue(ToWx(text));
}

void InsertText(User& user) {
    wxTextCtrl& box = user.Box().Box();
    const std::string text = user.Text();
    user.Note('"' + text.substr(0, 40) + '"');
    box.SetInsertionPoint(user.Decide().Below(static_cast<int>(box.GetLastPosition()) + 1));
    box.WriteText(ToWx(text));
}

void TypeIntoBox(User& user) {
    wxTextCtrl& box = user.Box().Box();
    const std::string keys = user.Keys();
    const bool replaces = user.Decide().OneIn(2);
    user.Note('"' + keys + '"');
    if (!user.TakeKeyboard(box)) return;
    user.Press([&] {
        if (replaces) PressKey('A', wxMOD_CONTROL);
        TypeText(keys);
        PressKey(WXK_BACK);
    });
}

void FillEntry(User& user) {
    user.FillEntry();
}

void TypeIntoList(User& user) {
    EditableList* const list = user.List();
    if (list == nullptr) return;
    if (user.Decide().OneIn(4)) {
        const std::string keys = user.Keys();
        user.Note("keys \"" + keys + '"');
        if (user.TakeKeyboard(list->Combo())) user.Press([&] { TypeText(keys); });
        return;
    }
    static const std::string texts[] = {"Pressure", "pressure", " Gauge ",       "01",
                                        "0a",       "1F",       "something new", ""};
    const std::string text = user.Decide().OneOf(texts);
    user.Note('"' + text + '"');
    list->Combo().SetValue(ToWx(text));
}

void PickFromList(User& user) {
    EditableList* const list = user.List();
    if (list == nullptr || list->Count() == 0) return;
    const int item = user.Decide().Below(list->Count());
    user.Note(std::to_string(item));
    PickItem(list->Combo(), item);
}

void PickByArrow(User& user) {
    EditableList* const list = user.List();
    if (list == nullptr || !user.TakeKeyboard(list->Combo())) return;
    const int key = user.Decide().OneIn(2) ? WXK_DOWN : WXK_UP;
    user.Press([&] { PressKey(key); });
}

void DeselectInList(User& user) {
    if (EditableList* const list = user.List()) list->Combo().SetValue("");
}

void PickProtocol(User& user) {
    const FixedList& list = *user.Controls().cboDeviceProtocol;
    if (list.Count() == 0 || !list.Box().IsEnabled()) return;
    const int item = user.Decide().Below(list.Count());
    user.Note(std::to_string(item));
    PickItem(list.Box(), item);
}

void ToggleAnyVersion(User& user) {
    const int count = user.Controls().lstTAVVersionSupport->Count();
    if (count == 0) return;
    const int index = user.Decide().Below(count);
    user.Note(std::to_string(index));
    user.ToggleVersion(index);
}

void ToggleVersionByKeys(User& user) {
    if (user.Controls().lstTAVVersionSupport->Count() == 0) return;
    if (!user.TakeKeyboard(user.Controls().lstTAVVersionSupport->Box())) return;
    const bool isNext = user.Decide().OneIn(2);
    user.Press([&] {
        if (isNext) PressKey(WXK_DOWN, wxMOD_CONTROL);
        PressKey(WXK_SPACE, wxMOD_CONTROL);
    });
}

}  // namespace

std::span<const Action> FieldActions() {
    static const std::array actions{
        Action{"replace a text", 26, ReplaceText},
        Action{"insert a text", 10, InsertText},
        Action{"type into a text box", 6, TypeIntoBox},
        Action{"fill the entry", 14, FillEntry},
        Action{"type into a list", 10, TypeIntoList},
        Action{"pick from a list", 10, PickFromList},
        Action{"pick by an arrow key", 2, PickByArrow},
        Action{"empty a list's text", 4, DeselectInList},
        Action{"pick a protocol", 12, PickProtocol},
        Action{"toggle a version", 6, ToggleAnyVersion},
        Action{"toggle a version by keys", 2, ToggleVersionByKeys},
    };
    return actions;
}

}  // namespace ventlock::test
