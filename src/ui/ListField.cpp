#include "ui/ListField.h"

#include <utility>

#include "ui/WxText.h"

namespace ventlock {

int ListField::Count() const {
    return static_cast<int>(itemData_.size());
}

std::string ListField::Text(int index) const {
    return FromWx(box_.GetString(static_cast<unsigned>(index)));
}

std::int32_t ListField::ItemData(int index) const {
    return itemData_.at(static_cast<std::size_t>(index));
}

void ListField::Add(const std::vector<ListItem>& items) {
    if (items.empty()) return;
    box_.Append(TextsToWx(items));
    for (const ListItem& item : items) itemData_.push_back(item.data);
}

void ListField::Clear() {
    box_.Clear();
    itemData_.clear();
    index_ = -1;
}

ListChoice ListField::Choice() const {
    return {index_, index_ < 0 ? 0 : ItemData(index_), Text(), Count()};
}

FixedList::FixedList(wxChoice& box, std::function<void()> onClick)
    : ListField(box), choice_(box), onClick_(std::move(onClick)) {
    choice_.Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        KeepIndex(event.GetSelection());
        onClick_();
    });
}

void FixedList::Select(int index) {
    if (index == Index()) return;
    KeepIndex(index);
    choice_.SetSelection(index);
    if (index >= 0) onClick_();
}

std::string FixedList::Text() const {
    return Index() < 0 ? std::string() : Text(Index());
}

EditableList::EditableList(wxComboBox& box, std::function<void()> onChange)
    : ListField(box), combo_(box), onChange_(std::move(onChange)) {
    combo_.Bind(wxEVT_TEXT, [this](wxCommandEvent&) { TakeTyped(); });
    combo_.Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) { TakePicked(event.GetSelection()); });
}

void EditableList::Clear() {
    Show("", -1);  // first: the toolkit empties the text together with the items and tells of it
    ListField::Clear();
}

// A pick raises both events, in an order that differs between the ports of the toolkit; a text that is known
// already was not typed.
void EditableList::TakeTyped() {
    std::string text = FromWx(combo_.GetValue());
    if (text == text_) return;
    text_ = std::move(text);
    KeepIndex(-1);
    onChange_();
}

void EditableList::TakePicked(int index) {
    if (index < 0) return;
    KeepIndex(index);
    text_ = Text(index);
    onChange_();
}

void EditableList::Show(const std::string& text, int index) {
    text_ = text;  // before the toolkit speaks of it
    KeepIndex(index);
    if (index >= 0) {
        combo_.SetSelection(index);  // the arrow keys go on from there
    } else if (FromWx(combo_.GetValue()) != text) {
        combo_.ChangeValue(ToWx(text));
    }
}

void EditableList::Select(int index) {
    if (index == Index() && (index >= 0 || text_.empty())) return;
    const std::string text = index < 0 ? std::string() : Text(index);
    const bool isChanged = text != text_;
    Show(text, index);
    if (index >= 0 && isChanged) onChange_();
}

std::string EditableList::Text() const {
    return text_;
}

void EditableList::SetText(const std::string& text) {
    if (text == text_) return;
    Show(text, -1);
    onChange_();
}

}  // namespace ventlock
