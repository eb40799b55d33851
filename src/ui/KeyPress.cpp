#include "ui/KeyPress.h"

#include <wx/event.h>

#include "entry/KeyFilter.h"

namespace ventlock {
namespace {

bool IsCharacter(const wxKeyEvent& event) {
    if ((event.GetModifiers() & (wxMOD_CONTROL | wxMOD_ALT)) != 0) return false;
    return event.GetUnicodeKey() != WXK_NONE && event.GetKeyCode() != WXK_DELETE;
}

}  // namespace

void FilterTyping(wxWindow& window, wxTextEntry& entry) {
    window.Bind(wxEVT_CHAR, [&entry](wxKeyEvent& event) {
        const auto typed = static_cast<char32_t>(event.GetUnicodeKey());
        if (!IsCharacter(event)) {
            event.Skip();
            return;
        }
        const char32_t passed = FilterKey(typed);
        if (passed == 0) return;
        if (passed == typed) {
            event.Skip();
        } else {
            entry.WriteText(wxString(wxUniChar(passed)));
        }
    });
}

}  // namespace ventlock
