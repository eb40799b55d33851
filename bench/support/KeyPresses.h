#pragma once

#include <wx/textctrl.h>

#include <functional>
#include <string>

namespace ventlock::bench {

/// What a key press takes, in seconds from the key's event: the middle one of many.
struct KeyPressTimes {
    double handled = 0;  ///< until the program has done what it does about it
    double painted = 0;  ///< until the window has been painted again
};

/// Presses keys in a field of a window that is shown, one after the other: a letter into the empty field, and
/// the key that takes it away. Under callgrind one press is counted in a file of its own that has a label.
/// @param afterEach  looks at what has come of a key; not timed
KeyPressTimes TimesOfKeyPress(wxTextCtrl& field, const std::function<void()>& afterEach);

/// As programs write it into their answers: both in nanoseconds.
std::string ToText(const KeyPressTimes& times);

}  // namespace ventlock::bench
