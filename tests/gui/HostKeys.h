#pragma once

#include <string>
#include <vector>

namespace ventlock::test {

/// Stands for a control with the focus of which the toolkit does not tell.
inline constexpr const char* kUntold = "v";

/// The stops that the Tab key makes at a drop-down list of the window, given its control's name: on one host
/// the arrow of an editable list is a stop of its own.
std::vector<std::string> StopsOfList(const std::string& name);

/// Presses the keys that select or deselect the first item, when a list of many selections has just got the
/// focus.
void ToggleFirstItem();

/// Presses the key that a message box's Help button answers to.
void PressHelpButton();

/// Whether the only button of a message box has the keyboard from the beginning. That of Windows has, Wine's
/// has not.
bool MessageBoxButtonHasKeys();

/// Whether keys reach a control of the dialog that has come in front of the window.
bool DialogTakesKeys();

/// Types a path into the platform's file dialog, in place of what stands there.
void TypeFileName(const std::string& path);

}  // namespace ventlock::test
