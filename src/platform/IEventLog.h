#pragma once

#include <cstdint>
#include <string>

namespace ventlock {

class IEventLog {
 public:
    virtual ~IEventLog() = default;

    /// Hands one entry to the system's log under the name "Ventlock". `type` is 1 error, 2 warning,
    /// 4 information. False when the service refuses.
    virtual bool Write(const std::string& text, std::int16_t type) = 0;
};

}  // namespace ventlock
