#pragma once

#include <cstdint>

#include "platform/Recordset.h"

namespace ventlock {

/// The largest number of a column on a walk through its rows, kept in 16 bits. Starts at 0.
class RunningMaximum {
 public:
    /// Keeps the column's number when it is greater. NULL and text without a number change nothing.
    /// @return True when the number was kept
    /// @throws RunTimeError 6 when the number to keep exceeds 16 bits.
    bool Consider(const Field& field);

    /// The number after the largest. @throws RunTimeError 6 past 32767.
    [[nodiscard]] std::int16_t Next() const;

 private:
    std::int16_t largest_ = 0;
};

}  // namespace ventlock
