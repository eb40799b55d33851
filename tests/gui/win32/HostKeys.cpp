#include "gui/HostKeys.h"

#include <windows.h>
#include <wx/defs.h>

#include "gui/Input.h"

namespace ventlock::test {

std::vector<std::string> StopsOfList(const std::string& name) {
    return {name};
}

// The item that was selected last is the one that keys go to. Wine's list tells of a change by the space key
// with the next key only, the one of Windows at once.
void ToggleFirstItem() {
    PressKey(WXK_HOME);
    PressKey(WXK_SPACE);
    PressKey(WXK_HOME);
}

void PressHelpButton() {
    PressKey(WXK_TAB);
    PressKey(WXK_SPACE);
}

bool MessageBoxButtonHasKeys() {
    return false;
}

bool DialogTakesKeys() {
    return GetFocus() != nullptr;
}

void TypeFileName(const std::string& path) {
    PressKey(WXK_HOME);
    PressKey(WXK_END, wxMOD_SHIFT);
    TypeText(path);
}

}  // namespace ventlock::test
