#pragma once

#include <algorithm>
#include <chrono>

#include "OdbcApi.h"

namespace ventlock::odbc {

/// A time limit in the whole seconds that drivers take: rounded up, because 0 means "for ever" to them.
inline SQLULEN WholeSeconds(std::chrono::milliseconds limit) noexcept {
    return static_cast<SQLULEN>(
        std::max(std::chrono::ceil<std::chrono::seconds>(limit).count(), std::chrono::seconds::rep{1}));
}

}  // namespace ventlock::odbc
