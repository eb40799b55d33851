#pragma once

#include <chrono>
#include <functional>

#include "platform/Database.h"

namespace ventlock::test {

/// Limits that a test can wait for.
inline constexpr DatabaseTimeLimits kShort{std::chrono::milliseconds(200), std::chrono::milliseconds(300),
                                           std::chrono::milliseconds(400)};

/// How long `work` takes.
inline std::chrono::milliseconds TimeOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
}

}  // namespace ventlock::test
