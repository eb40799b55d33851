#include "ui/TextField.h"

#include <utility>

#include "ui/WxText.h"

namespace ventlock {

TextField::TextField(wxTextCtrl& box, std::function<void()> onChange)
    : box_(box), look_(box), onChange_(std::move(onChange)) {
    box_.Bind(wxEVT_TEXT, [this](wxCommandEvent&) { onChange_(); });
}

std::string TextField::Text() const {
    return FromWx(box_.GetValue());
}

void TextField::SetText(const std::string& text) {
    if (Text() == text) return;
    box_.ChangeValue(ToWx(text));  // no event: the toolkit would raise one for an equal text too
    onChange_();
}

}  // namespace ventlock
