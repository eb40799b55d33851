#include "gui/DropDown.h"

#include <gtest/gtest.h>
#include <wx/menu.h>
#include <wx/timer.h>

#include "gui/Input.h"
#include "ui/WxText.h"

namespace ventlock::test {
namespace {

constexpr int kBetweenKeysMs =
    60;  // an open list has a loop of its own, so that nothing else could press keys

std::vector<std::string> CaptionsOf(const wxMenu& menu) {
    std::vector<std::string> captions;
    for (const wxMenuItem* item : menu.GetMenuItems()) {
        const std::string caption = item->IsSeparator() ? "-" : FromWx(item->GetItemLabel());
        captions.push_back(item->IsEnabled() || item->IsSeparator() ? caption : "[" + caption + "]");
    }
    return captions;
}

}  // namespace

std::vector<std::string> InDropDown(frmMain& window, std::size_t box, const std::function<void()>& drop,
                                    const std::vector<int>& keys) {
    wxTextCtrl& field = window.Controls().txtMain[box]->Box();
    std::vector<std::string> captions;
    bool isOpen = false;
    bool isClosed = false;
    wxTimer press;
    std::size_t next = 0;
    press.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        PressKey(keys[next]);
        if (++next < keys.size()) press.StartOnce(kBetweenKeysMs);
    });
    const auto onOpen = [&](wxMenuEvent& event) {
        event.Skip();
        if (isOpen) return;
        isOpen = true;
        captions = CaptionsOf(*event.GetMenu());
        press.StartOnce(kBetweenKeysMs);
    };
    const auto onClose = [&](wxMenuEvent& event) {
        event.Skip();
        isClosed = true;
    };
    field.Bind(wxEVT_MENU_OPEN, onOpen);
    field.Bind(wxEVT_MENU_CLOSE, onClose);
    drop();
    WaitUntil("the list to open and to close", [&] { return isOpen && isClosed && !window.IsBusy(); });
    field.Unbind(wxEVT_MENU_OPEN, onOpen);
    field.Unbind(wxEVT_MENU_CLOSE, onClose);
    return captions;
}

}  // namespace ventlock::test
