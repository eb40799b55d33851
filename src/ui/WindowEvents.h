#pragma once

#include <chrono>
#include <functional>

#include "platform/IEvents.h"

namespace ventlock {

/// Lets pending window events run during long work: not more often than every 10 ms, never from within
/// itself.
class WindowEvents final : public IEvents {
 public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// @param dispatch  runs the pending events
    /// @param now       the time, for those who want another
    explicit WindowEvents(std::function<void()> dispatch, Clock now = std::chrono::steady_clock::now);

    void Yield() override;

 private:
    std::function<void()> dispatch_;
    Clock now_;
    std::chrono::steady_clock::time_point last_;
    bool isDispatching_ = false;
};

/// Runs the toolkit's pending events.
void DispatchPendingEvents();

}  // namespace ventlock
