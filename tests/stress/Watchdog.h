#pragma once

#include <wx/timer.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace ventlock::test {

/// Measures how long the window's thread goes without looking for events, which is how long the window does
/// not answer; and ends the process when that never ends. What other programs take of the processor meanwhile
/// does not count.
class Watchdog {
 public:
    Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// From now on until End an action is watched.
    void Begin();

    /// The longest silence of the action.
    std::chrono::milliseconds End();

 private:
    using Clock = std::chrono::steady_clock;

    void Beat();
    void Watch(const std::stop_token& stop) const;

    wxTimer timer_;
    Clock::duration longest_{0};
    Clock::duration waited_{0};  ///< for a processor, until last_
    std::atomic<Clock::time_point> last_ = Clock::now();
    std::atomic<bool> isWatching_ = false;
    std::jthread thread_;  // last, so that it sees the other members made
};

}  // namespace ventlock::test
