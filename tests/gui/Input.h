#pragma once

#include <wx/window.h>

#include <functional>
#include <string>

namespace ventlock::test {

/// Dispatches events until `done`; fails the test and gives False when that takes longer than the limit.
bool WaitUntil(const char* what, const std::function<bool()>& done, int limitMs = 10000);

/// Dispatches what has come so far.
void Pump();

/// Gives a control the focus and waits until keys will reach it.
bool ReadyToType(wxWindow& control);

/// Types a text of ASCII characters into the control with the focus, by real key events.
void TypeText(const std::string& text);

/// Presses a key with modifiers (wxMOD_CONTROL ...), by real key events.
void PressKey(int key, int modifiers = 0);

/// Clicks the middle of a control with the real mouse.
void Click(wxWindow& control);

/// Clicks a place of the screen with the real mouse.
void ClickAt(const wxPoint& place);

}  // namespace ventlock::test
