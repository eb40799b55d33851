#include "db/RunningMaximum.h"

#include "base/Numbers.h"

namespace ventlock {

bool RunningMaximum::Consider(const Field& field) {
    if (field.IsNull()) return false;
    const double number = NumericValue(*field.Value());
    if (number <= largest_) return false;
    largest_ = ToInteger(number);
    return true;
}

std::int16_t RunningMaximum::Next() const {
    return ToInteger(largest_ + 1.0);
}

}  // namespace ventlock
