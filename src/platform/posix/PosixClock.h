#pragma once

#include "platform/IClock.h"

namespace ventlock {

/// The system's clock in the user's time zone (TZ).
class PosixClock final : public IClock {
 public:
    LocalTime Now() override;
};

}  // namespace ventlock
