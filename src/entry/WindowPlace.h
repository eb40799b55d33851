#pragma once

#include <cstdint>

namespace ventlock {

/// The window's place is stored in twips, whatever the display's resolution.
inline constexpr int kTwipsPerPixel = 15;

/// A position or length in twips: rounded half to even and, beyond 16 bits, the nearest that fits.
std::int16_t ToTwips(double pixels);

/// The nearest whole pixel. What ToTwips made of whole pixels comes back as it was, as far as it fitted.
int ToPixels(std::int16_t twips);

/// Outer size of a window in pixels, frame and title included.
struct WindowSize {
    int width = 0;
    int height = 0;

    bool operator==(const WindowSize&) const = default;
};

/// The smallest size of the main window: 6000 x 5145 twips.
inline constexpr WindowSize kSmallestWindow{.width = 400, .height = 343};

/// The size with a height, then a width, that is too small made the smallest one; the other stays.
WindowSize MinimumSize(WindowSize pixels);

}  // namespace ventlock
