#pragma once

#include "ui/MainControls.h"
#include "ui/MainMenu.h"

namespace ventlock {

/// Gives each control of the main window a name for screen readers that no other has, made of the captions
/// that the window shows: a field is named by its tab and its label, a button with dots by the menu item that
/// does the same, the arrow of a list by its tool tip.
void NameControls(MainControls& controls, const MainMenu& menu);

}  // namespace ventlock
