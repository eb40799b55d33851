#pragma once

#include <valgrind/callgrind.h>

#include <chrono>

#include "support/Usage.h"

namespace ventlock::bench {

/// Takes the time of work in the harness's own process. Under callgrind this work alone is counted.
template <class Work>
Usage Timed(Work&& work) {
    Usage usage;
    CALLGRIND_TOGGLE_COLLECT;
    const auto begin = std::chrono::steady_clock::now();
    work();
    usage.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    CALLGRIND_TOGGLE_COLLECT;
    return usage;
}

}  // namespace ventlock::bench
