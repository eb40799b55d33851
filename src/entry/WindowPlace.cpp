#include "entry/WindowPlace.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Numbers.h"

namespace ventlock {

std::int16_t ToTwips(double pixels) {
    constexpr double kLowest = std::numeric_limits<std::int16_t>::min();
    constexpr double kHighest = std::numeric_limits<std::int16_t>::max();
    return ToInteger(std::clamp(pixels * kTwipsPerPixel, kLowest, kHighest));
}

int ToPixels(std::int16_t twips) {
    return static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsPerPixel));
}

WindowSize MinimumSize(WindowSize pixels) {
    pixels.height = std::max(pixels.height, kSmallestWindow.height);
    pixels.width = std::max(pixels.width, kSmallestWindow.width);
    return pixels;
}

}  // namespace ventlock
