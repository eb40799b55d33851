#pragma once

#include "platform/IClock.h"

namespace ventlock {

/// The system's clock in its own time zone.
class Win32Clock final : public IClock {
 public:
    LocalTime Now() override;
};

}  // namespace ventlock
