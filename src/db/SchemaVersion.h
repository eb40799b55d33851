#pragma once

#include <cstdint>

/// The codes that FindVersion gives for a connected database. Anything that needs the current schema tests
/// for kCurrentSchema or more.
namespace ventlock {

inline constexpr std::int16_t kOldSchema = 4;
inline constexpr std::int16_t kCurrentSchema = 5;
inline constexpr std::int16_t kUnsupportedSchema = 6;
inline constexpr std::int16_t kUnreadableSchema = 7;

}  // namespace ventlock
