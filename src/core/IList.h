#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ventlock {

/// An item of a list, with a number that belongs to it.
struct ListItem {
    std::string text;
    std::int32_t data = 0;
};

/// A list or combo box as the rules below the window see it. Indexes count from 0.
class IList {
 public:
    virtual ~IList() = default;
    [[nodiscard]] virtual int Count() const = 0;
    [[nodiscard]] virtual std::string Text(int index) const = 0;
    [[nodiscard]] virtual std::int32_t ItemData(int index) const = 0;

    /// Adds items at the end. In one call: a list in a window may measure itself anew after each.
    virtual void Add(const std::vector<ListItem>& items) = 0;
};

/// A window's place on the screen; any unit, the same for all four.
class IBounds {
 public:
    virtual ~IBounds() = default;
    [[nodiscard]] virtual double Left() const = 0;
    [[nodiscard]] virtual double Top() const = 0;
    [[nodiscard]] virtual double Width() const = 0;
    [[nodiscard]] virtual double Height() const = 0;
    virtual void Move(double left, double top) = 0;
};

}  // namespace ventlock
