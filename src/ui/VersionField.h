#pragma once

#include <wx/listbox.h>

#include <functional>
#include <string>
#include <vector>

#include "core/IList.h"
#include "entry/EntryForm.h"

namespace ventlock {

/// The list of versions that may be offered, any number of which is selected.
class VersionField final : public IList {
 public:
    /// `box` must outlive this object. `onClick` runs when the user selects or unselects a version.
    VersionField(wxListBox& box, std::function<void()> onClick);
    VersionField(const VersionField&) = delete;
    VersionField& operator=(const VersionField&) = delete;

    [[nodiscard]] int Count() const override;
    [[nodiscard]] std::string Text(int index) const override;
    [[nodiscard]] std::int32_t ItemData(int /*index*/) const override { return 0; }
    void Add(const std::vector<ListItem>& items) override;

    [[nodiscard]] bool IsSelected(int index) const;

    /// Selects one more; runs no handler.
    void Select(int index);

    /// Selects these and no others; one that is not offered is added. Runs no handler.
    void SelectOnly(const std::vector<std::string>& versions);

    [[nodiscard]] std::vector<OfferedVersion> Versions() const;
    [[nodiscard]] wxListBox& Box() const noexcept { return box_; }

 private:
    wxListBox& box_;
};

}  // namespace ventlock
