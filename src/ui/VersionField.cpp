#include "ui/VersionField.h"

#include <utility>

#include "ui/WxText.h"

namespace ventlock {

VersionField::VersionField(wxListBox& box, std::function<void()> onClick) : box_(box) {
    box_.Bind(wxEVT_LISTBOX, [onClick = std::move(onClick)](wxCommandEvent&) { onClick(); });
}

int VersionField::Count() const {
    return static_cast<int>(box_.GetCount());
}

std::string VersionField::Text(int index) const {
    return FromWx(box_.GetString(static_cast<unsigned>(index)));
}

void VersionField::Add(const std::vector<ListItem>& items) {
    if (!items.empty()) box_.Append(TextsToWx(items));
}

bool VersionField::IsSelected(int index) const {
    return box_.IsSelected(index);
}

void VersionField::Select(int index) {
    box_.SetSelection(index);
}

void VersionField::SelectOnly(const std::vector<std::string>& versions) {
    for (int i = 0; i < Count(); ++i) box_.Deselect(i);
    for (const std::string& version : versions) {
        if (box_.FindString(ToWx(version), true) == wxNOT_FOUND) Add({{version}});
        Select(box_.FindString(ToWx(version), true));
    }
}

std::vector<OfferedVersion> VersionField::Versions() const {
    std::vector<OfferedVersion> versions;
    versions.reserve(static_cast<std::size_t>(Count()));
    for (int i = 0; i < Count(); ++i) versions.push_back({Text(i), IsSelected(i)});
    return versions;
}

}  // namespace ventlock
