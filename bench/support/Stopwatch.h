#pragma once

#include <valgrind/callgrind.h>

#include <chrono>
#include <string>

#include "support/Usage.h"

namespace ventlock::bench {

/// Takes the time of work in the harness's own process. Under callgrind this work alone is counted, in a file
/// of its own that tells `label`.
template <class Work>
Usage Timed(const std::string& label, Work&& work) {
    Usage usage;
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    const auto begin = std::chrono::steady_clock::now();
    work();
    usage.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(label.c_str());
    return usage;
}

}  // namespace ventlock::bench
