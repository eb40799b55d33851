#include "ui/DropList.h"

#include <wx/menu.h>

#include <utility>

#include "ui/WxText.h"

namespace ventlock {
namespace {

/// A menu item's caption that reads as the text does: "&" and tabs mean something to the toolkit.
wxString Literal(const std::string& text) {
    wxString literal = ToWx(text);
    literal.Replace("&", "&&");
    literal.Replace("\t", " ");
    return literal.empty() ? wxString(" ") : literal;  // the toolkit refuses an empty one
}

wxString CaptionOf(const DropListContent::Item& item) {
    return Literal(item.hint.empty() ? item.text : item.text + " \u2013 " + item.hint);
}

}  // namespace

DropList::DropList(wxTextCtrl& field, wxButton& button, std::function<void()> onDrop)
    : field_(field), button_(button), onDrop_(std::move(onDrop)) {
    button_.Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { onDrop_(); });
    field_.Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_DOWN && event.GetModifiers() == wxMOD_ALT) {
            onDrop_();
        } else {
            event.Skip();
        }
    });
}

DropListChoice DropList::Choose(const DropListContent& content) {
    wxMenu menu;
    std::vector<int> ids;
    for (const DropListContent::Item& item : content.items)
        ids.push_back(menu.Append(wxID_ANY, CaptionOf(item))->GetId());
    if (ids.empty()) menu.Append(wxID_ANY, Literal(content.whenEmpty))->Enable(false);
    int clearId = wxID_NONE;
    if (!content.clear.empty()) {
        menu.AppendSeparator();
        wxMenuItem* clear = menu.Append(wxID_ANY, ToWx(content.clear));
        clear->Enable(!ids.empty());
        clearId = clear->GetId();
    }
    const int chosen = field_.GetPopupMenuSelectionFromUser(menu, 0, field_.GetSize().y);
    field_.SetFocus();
    if (chosen == wxID_NONE) return {};
    for (std::size_t i = 0; i < ids.size(); ++i)
        if (ids[i] == chosen) return {.item = i, .isToClear = false};
    return {.item = {}, .isToClear = chosen == clearId};
}

}  // namespace ventlock
