#include "gui/HostKeys.h"

#include <wx/defs.h>

#include "gui/Input.h"

namespace ventlock::test {

std::vector<std::string> StopsOfList(const std::string& name) {
    if (name == "cboDeviceProtocol") return {kUntold};
    return {name, kUntold};
}

void ToggleFirstItem() {
    PressKey(WXK_SPACE, wxMOD_CONTROL);
}

void PressHelpButton() {
    PressKey('H', wxMOD_ALT);
}

bool MessageBoxButtonHasKeys() {
    return true;
}

bool DialogTakesKeys() {
    return true;  // with the window's activation at the latest
}

// A slash opens the dialog's field for a path.
void TypeFileName(const std::string& path) {
    TypeText(path);
}

}  // namespace ventlock::test
