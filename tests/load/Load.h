#pragma once

#include <cstdlib>
#include <string_view>

namespace ventlock::test {

/// How much load a test puts on: `ordinary` in every run of all tests, `full` when VENTLOCK_LOAD is "full".
inline int LoadSize(int ordinary, int full) {
    const char* const load = std::getenv("VENTLOCK_LOAD");
    return load != nullptr && std::string_view(load) == "full" ? full : ordinary;
}

}  // namespace ventlock::test
