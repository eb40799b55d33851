#pragma once

#include <cstddef>

/// Longest texts, in characters, that the device database takes; its schema declares the same.
namespace ventlock::limits {

inline constexpr std::size_t kName = 64;
inline constexpr std::size_t kDescription = 255;

}  // namespace ventlock::limits
