#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace ventlock {

/// What is done between two tries while another program is in the way: waits for the time given.
using Pause = std::function<void(std::chrono::milliseconds)>;

/// How long the lock of a file is waited for while another program holds it.
inline constexpr std::chrono::milliseconds kLockPatience = std::chrono::seconds(10);

/// Lets the thread sleep.
inline void SleepFor(std::chrono::milliseconds time) {
    std::this_thread::sleep_for(time);
}

}  // namespace ventlock
