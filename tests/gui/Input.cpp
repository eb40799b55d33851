#include "gui/Input.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/stopwatch.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

namespace ventlock::test {
namespace {

constexpr unsigned long kBetweenLooksMs = 2;

}  // namespace

bool WaitUntil(const char* what, const std::function<bool()>& done, int limitMs) {
    for (const wxStopWatch watch; watch.Time() < limitMs; wxMilliSleep(kBetweenLooksMs)) {
        wxTheApp->Yield(true);
        if (done()) return true;
    }
    ADD_FAILURE() << "waited in vain for " << what;
    return false;
}

void Pump() {
    while (wxTheApp->Pending()) wxTheApp->Dispatch();
    wxTheApp->Yield(true);
}

bool ReadyToType(wxWindow& control) {
    auto* window = wxDynamicCast(wxGetTopLevelParent(&control), wxTopLevelWindow);
    window->Raise();
    control.SetFocus();
    return WaitUntil("the focus", [&] { return window->IsActive() && wxWindow::FindFocus() == &control; });
}

void TypeText(const std::string& text) {
    wxUIActionSimulator simulator;
    simulator.Text(text.c_str());
}

void PressKey(int key, int modifiers) {
    wxUIActionSimulator simulator;
    simulator.Char(key, modifiers);
}

void Click(wxWindow& control) {
    const wxSize size = control.GetClientSize();
    wxUIActionSimulator simulator;  // first: it waits a little, and a new window finds its place meanwhile
    simulator.MouseMove(control.ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
    simulator.MouseClick();
}

void ClickAt(const wxPoint& place) {
    wxUIActionSimulator simulator;
    simulator.MouseMove(place);
    simulator.MouseClick();
}

}  // namespace ventlock::test
