#pragma once

#include "platform/IEvents.h"
#include "platform/Pause.h"

namespace ventlock {

/// Sleeps and lets pending window events run; `events` must outlive the pause.
inline Pause YieldingPause(IEvents& events) {
    return [&events](std::chrono::milliseconds time) {
        SleepFor(time);
        events.Yield();
    };
}

}  // namespace ventlock
