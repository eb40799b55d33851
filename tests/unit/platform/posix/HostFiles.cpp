#include "platform/posix/PosixFiles.h"
#include "unit/platform/FilesTest.h"

namespace ventlock::test {

std::unique_ptr<IFiles> HostFiles(std::chrono::milliseconds patience) {
    return std::make_unique<PosixFiles>(patience);
}

}  // namespace ventlock::test
