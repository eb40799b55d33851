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
    int Add(const std::string& text) override {
        items_.push_back({text, 0});
        return Count() - 1;
    }
    void SetItemData(int index, std::int32_t data) override {
        items_.at(static_cast<std::size_t>(index)).data = data;
    }

 private:
    struct Item {
        std::string text;
        std::int32_t data = 0;
    };
    [[nodiscard]] const Item& At(int index) const { return items_.at(static_cast<std::size_t>(index)); }

    std::vector<Item> items_;
};

}  // namespace ventlock
