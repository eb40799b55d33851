#pragma once

#include <cstdint>

namespace ventlock {

/// Where a window stands on the screen, in twips, 15 a pixel.
class IWindowPlace {
 public:
    virtual ~IWindowPlace() = default;

    /// The place of the window when it is neither minimised nor maximised; limited to what fits.
    [[nodiscard]] virtual std::int16_t Left() const = 0;
    [[nodiscard]] virtual std::int16_t Top() const = 0;

    /// Puts the window there, unless it is minimised or maximised. A place off every display is kept, but the
    /// window shows on the primary one.
    virtual void Move(std::int16_t left, std::int16_t top) = 0;
};

}  // namespace ventlock
