#include "platform/posix/PosixClock.h"

#include <ctime>

namespace ventlock {

LocalTime PosixClock::Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    tzset();  // localtime_r by itself need not look at TZ
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace ventlock
