#pragma once

#include <string>

namespace ventlock {

class IProcess {
 public:
    virtual ~IProcess() = default;

    /// Starts the program at `path` without a shell, without arguments and without waiting for it.
    /// False when it cannot be started.
    virtual bool Start(const std::string& path) = 0;
};

}  // namespace ventlock
