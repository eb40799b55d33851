#include "platform/posix/PosixHost.h"

#include <utility>

namespace ventlock {

PosixHost::PosixHost(std::string exeName) : paths_(std::move(exeName)) {}

std::unique_ptr<Host> CreateHost(std::string exeName) {
    return std::make_unique<PosixHost>(std::move(exeName));
}

}  // namespace ventlock
