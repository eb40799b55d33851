#include "platform/win32/Win32Host.h"

#include <utility>

namespace ventlock {

Win32Host::Win32Host(std::string exeName, Pause pause)
    : files_(kLockPatience, std::move(pause)), paths_(std::move(exeName)) {}

std::unique_ptr<Host> CreateHost(std::string exeName, Pause pause) {
    return std::make_unique<Win32Host>(std::move(exeName), std::move(pause));
}

}  // namespace ventlock
