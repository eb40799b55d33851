#pragma once

namespace ventlock {

/// Local wall-clock time; month and day count from 1, hour from 0.
struct LocalTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class IClock {
 public:
    virtual ~IClock() = default;
    virtual LocalTime Now() = 0;
};

}  // namespace ventlock
