// What is done to the window as a whole.

#include <array>

#include "gui/Commands.h"
#include "gui/Input.h"
#include "stress/Actions.h"
#include "stress/Desktop.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

void ShowTab(User& user) {
    wxNotebook& tabs = *user.Controls().sstVentlock;
    const int tab = user.Decide().Below(static_cast<int>(tabs.GetPageCount()));
    user.Note(std::to_string(tab));
    tabs.SetSelection(static_cast<std::size_t>(tab));
}

void TurnTabByKeys(User& user) {
    const int key = user.Decide().OneIn(2) ? WXK_PAGEDOWN : WXK_PAGEUP;
    if (user.TakeKeyboard(*user.Controls().cmdClose)) user.Press([&] { PressKey(key, wxMOD_CONTROL); });
}

void ClickTab(User& user) {
    wxNotebook& tabs = *user.Controls().sstVentlock;
    const int wanted = user.Decide().Below(static_cast<int>(tabs.GetPageCount()));
    user.Note(std::to_string(wanted));
    if (!user.TakeKeyboard(*user.Controls().cmdClose)) return;
    for (int x = 0; x < tabs.GetSize().x; x += 8) {
        const wxPoint place(x, 12);
        if (tabs.HitTest(place) != wanted) continue;
        user.Press([&] { ClickAt(tabs.ClientToScreen(place)); });
        return;
    }
}

void MoveFocus(User& user) {
    if (user.Decide().OneIn(2)) {
        user.Box().Box().SetFocus();
        return;
    }
    if (!user.TakeKeyboard(user.Box().Box())) return;
    const int tabs = 1 + user.Decide().Below(6);
    const int modifiers = user.Decide().OneIn(2) ? wxMOD_SHIFT : wxMOD_NONE;
    user.Press([&] {
        for (int i = 0; i < tabs; ++i) PressKey(WXK_TAB, modifiers);
    });
}

void ChangeColours(User& user) {
    wxSysColourChangedEvent event;
    event.SetEventObject(&user.Window());
    user.Window().HandleWindowEvent(event);
}

void ChangeTheme(User& user) {
    static const std::string themes[] = {"Adwaita", "HighContrast", "HighContrastInverse"};
    const std::string theme = user.Decide().OneOf(themes);
    user.Note(theme);
    UseTheme(theme);
}

void Resize(User& user) {
    const wxSize size(100 + user.Decide().Below(1500), 100 + user.Decide().Below(1000));
    user.Note(FromWx(wxString::Format("%d x %d", size.x, size.y)));
    user.Window().SetSize(size);
}

void Move(User& user) {
    user.Window().Move(user.Decide().Below(1500), user.Decide().Below(800));
}

void ChangeState(User& user) {
    frmMain& window = user.Window();
    switch (user.Decide().Below(3)) {
        case 0:
            user.Note("minimise");
            return window.Iconize();
        case 1:
            user.Note("maximise");
            return window.Maximize(!window.IsMaximized());
        default:
            user.Note("restore");
            return window.Restore();
    }
}

void Close(User& user) {
    user.NameGoodFiles();
    switch (user.Decide().Below(4)) {
        case 0:
            return user.ChooseItem('F', *user.Window().Menu().mnuExit);
        case 1:
            user.Note("by the window manager");
            if (user.TakeKeyboard(user.Controls().txtMain[kIniPathBox]->Box())) {
                PressKey(WXK_F4, wxMOD_ALT);
                WaitUntil("the end", [&] { return user.Window().IsUnloading(); });
            }
            return;
        default:
            return user.PressButton(*user.Controls().cmdClose);
    }
}

}  // namespace

std::span<const Action> WindowActions() {
    static const std::array actions{
        Action{"show a tab", 6, ShowTab},
        Action{"turn the tab by keys", 2, TurnTabByKeys},
        Action{"click a tab", 2, ClickTab},
        Action{"move the focus", 4, MoveFocus},
        Action{"change the colours", 2, ChangeColours},
        Action{"change the theme", 1, ChangeTheme},
        Action{"resize", 3, Resize},
        Action{"move", 2, Move},
        Action{"change the window's state", 4, ChangeState},
        Action{"close", 2, Close},
    };
    return actions;
}

}  // namespace ventlock::test
