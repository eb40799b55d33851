#pragma once

#include <string>

#include "gui/GuiWorld.h"
#include "gui/Input.h"

namespace ventlock::test {

/// Starts a window and waits until it stands at `pixels`: before, the window manager is still putting its
/// border around it.
inline frmMain& StartAt(GuiWorld& world, wxPoint pixels) {
    frmMain& window = world.Start();
    WaitUntil("the window's place", [&] { return window.IsActive() && window.GetPosition() == pixels; });
    return window;
}

/// The same for a window that is stored at a place in twips.
inline frmMain& StartAt(GuiWorld& world, const std::string& left, const std::string& top, wxPoint pixels) {
    world.Put("WindowLeft", left);
    world.Put("WindowTop", top);
    return StartAt(world, pixels);
}

}  // namespace ventlock::test
