#include "gui/HostKeys.h"

#include <wx/defs.h>

#include "gui/Input.h"

namespace ventlock::test {

std::vector<std::string> StopsOfList(const std::string& name) {
    return {name};
}

void ToggleFirstItem() {
    PressKey(WXK_HOME);  // the item that was selected last is the one that keys go to
    PressKey(WXK_SPACE);
}

void PressHelpButton() {
    PressKey(WXK_TAB);
    PressKey(WXK_SPACE);
}

}  // namespace ventlock::test
