#pragma once

#include <string>
#include <vector>

#include "core/IList.h"

namespace ventlock {

/// A list without a window.
class ItemList final : public IList {
 public:
    [[nodiscard]] int Count() const override { return static_cast<int>(items_.size()); }
    [[nodiscard]] std::string Text(int index) const override { return At(index).text; }
    [[nodiscard]] std::int32_t ItemData(int index) const override { return At(index).data; }
    void Add(const std::vector<ListItem>& items) override {
        items_.insert(items_.end(), items.begin(), items.end());
    }

 private:
    [[nodiscard]] const ListItem& At(int index) const { return items_.at(static_cast<std::size_t>(index)); }

    std::vector<ListItem> items_;
};

}  // namespace ventlock
