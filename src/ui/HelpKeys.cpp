#include "ui/HelpKeys.h"

#include <wx/event.h>
#include <wx/notebook.h>

#include <algorithm>
#include <vector>

namespace ventlock {
namespace {

using Stops = std::vector<wxWindow*>;

wxNotebook& TabsOf(wxHtmlHelpWindow& help) {
    return *wxStaticCast(help.FindWindow(wxID_HTML_NOTEBOOK), wxNotebook);
}

/// Where the keyboard can go: the page first, then what is on the tab in front.
Stops StopsOf(wxHtmlHelpWindow& help) {
    Stops stops{help.GetHtmlWindow()};
    if (!help.GetSplitterWindow()->IsSplit()) return stops;
    for (wxWindow* control : TabsOf(help).GetCurrentPage()->GetChildren())
        if (control->CanAcceptFocusFromKeyboard()) stops.push_back(control);
    return stops;
}

/// From what is no stop, such as the toolbar, it goes to the page.
void GoOn(wxHtmlHelpWindow& help, wxWindow* from, bool isBackward) {
    Stops stops = StopsOf(help);
    if (isBackward) std::reverse(stops.begin() + 1, stops.end());
    const auto at = std::find_if(stops.begin(), stops.end(),
                                 [from](const wxWindow* stop) { return stop->IsDescendant(from); });
    const auto next = at == stops.end() || at + 1 == stops.end() ? stops.begin() : at + 1;
    (*next)->SetFocusFromKbd();
}

void TurnTabs(wxHtmlHelpWindow& help, bool isForward) {
    if (!help.GetSplitterWindow()->IsSplit()) return;
    TabsOf(help).AdvanceSelection(isForward);
    StopsOf(help).at(1)->SetFocusFromKbd();
}

bool IsListOfPages(const wxWindow* control) {
    if (control == nullptr) return false;
    const wxWindowID id = control->GetId();
    return id == wxID_HTML_TREECTRL || id == wxID_HTML_INDEXLIST || id == wxID_HTML_SEARCHLIST;
}

bool IsTaken(wxHtmlHelpFrame& frame, const wxKeyEvent& event) {
    wxHtmlHelpWindow& help = *frame.GetHelpWindow();
    wxHtmlWindow& page = *help.GetHtmlWindow();
    auto* const from = wxDynamicCast(event.GetEventObject(), wxWindow);
    const int modifiers = event.GetModifiers();
    switch (event.GetKeyCode()) {
        case WXK_ESCAPE:
            if (modifiers != wxMOD_NONE) return false;
            frame.Close();
            return true;
        case WXK_TAB:
            if ((modifiers & ~wxMOD_SHIFT) != wxMOD_NONE) return false;
            GoOn(help, from, modifiers == wxMOD_SHIFT);
            return true;
        case WXK_RETURN:
        case WXK_NUMPAD_ENTER:
            if (modifiers != wxMOD_NONE || !IsListOfPages(from)) return false;
            page.SetFocus();
            return true;
        case WXK_PAGEUP:
        case WXK_PAGEDOWN:
            if (modifiers != wxMOD_CONTROL) return false;
            TurnTabs(help, event.GetKeyCode() == WXK_PAGEDOWN);
            return true;
        case WXK_LEFT:
        case WXK_RIGHT:
            if (modifiers != wxMOD_ALT) return false;
            if (event.GetKeyCode() == WXK_LEFT ? page.HistoryBack() : page.HistoryForward())
                help.NotifyPageChanged();
            return true;
        default:
            return false;
    }
}

}  // namespace

void AddHelpKeys(wxHtmlHelpFrame& frame) {
    // The tree of contents is born behind the bookmarks.
    wxWindow* const tree = frame.FindWindow(wxID_HTML_TREECTRL);
    tree->MoveBeforeInTabOrder(tree->GetParent()->GetChildren().GetFirst()->GetData());
    frame.Bind(wxEVT_CHAR_HOOK, [&frame](wxKeyEvent& event) {
        if (!IsTaken(frame, event)) event.Skip();
    });
}

void FocusHelpPage(wxHtmlHelpFrame& frame) {
    frame.GetHelpWindow()->GetHtmlWindow()->SetFocus();
}

}  // namespace ventlock
