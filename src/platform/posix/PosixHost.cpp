#include "platform/posix/PosixHost.h"

#include <utility>

namespace ventlock {

PosixHost::PosixHost(std::string exeName, Pause pause)
    : files_(kLockPatience, std::move(pause)), paths_(std::move(exeName)) {}

std::unique_ptr<Host> CreateHost(std::string exeName, Pause pause) {
    return std::make_unique<PosixHost>(std::move(exeName), std::move(pause));
}

}  // namespace ventlock
