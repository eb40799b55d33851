#include "stress/Watchdog.h"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <mutex>

namespace ventlock::test {
namespace {

constexpr int kBetweenBeatsMs = 10;
constexpr std::chrono::seconds kBetweenLooks{1};
constexpr std::chrono::seconds kHang{120};

/// How long this thread has waited for a processor so far, as the system counts it; 0 where it does not.
std::chrono::nanoseconds WaitedForProcessor() {
    std::ifstream statistics("/proc/thread-self/schedstat");
    std::int64_t run = 0;
    std::int64_t waited = 0;
    statistics >> run >> waited;
    return std::chrono::nanoseconds(waited);
}

}  // namespace

Watchdog::Watchdog() : thread_([this](const std::stop_token& stop) { Watch(stop); }) {
    timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Beat(); });
    timer_.Start(kBetweenBeatsMs);
}

void Watchdog::Begin() {
    longest_ = Clock::duration::zero();
    waited_ = WaitedForProcessor();
    last_ = Clock::now();
    isWatching_ = true;
}

std::chrono::milliseconds Watchdog::End() {
    Beat();
    isWatching_ = false;
    return std::chrono::duration_cast<std::chrono::milliseconds>(longest_);
}

void Watchdog::Beat() {
    const Clock::time_point now = Clock::now();
    const Clock::duration waited = WaitedForProcessor();
    longest_ = std::max(longest_, now - last_.load() - (waited - waited_));
    waited_ = waited;
    last_ = now;
}

void Watchdog::Watch(const std::stop_token& stop) const {
    std::mutex mutex;
    std::condition_variable_any looks;
    std::unique_lock lock(mutex);
    while (!looks.wait_for(lock, stop, kBetweenLooks, [&] { return stop.stop_requested(); })) {
        if (!isWatching_ || Clock::now() - last_.load() < kHang) continue;
        std::cerr << "the window's thread hangs\n";
        std::abort();
    }
}

}  // namespace ventlock::test
