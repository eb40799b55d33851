#include "db/RunningMaximum.h"

#include "base/Numbers.h"

namespace ventlock {

void RunningMaximum::Consider(const Field& field) {
    if (field.IsNull()) return;
    const double number = NumericValue(*field.Value());
    if (number > largest_) largest_ = ToInteger(number);
}

std::int16_t RunningMaximum::Next() const {
    return ToInteger(largest_ + 1.0);
}

}  // namespace ventlock
