#include "platform/win32/Win32Files.h"
#include "unit/platform/FilesTest.h"

namespace ventlock::test {

std::unique_ptr<IFiles> HostFiles(std::chrono::milliseconds patience) {
    return std::make_unique<Win32Files>(patience);
}

}  // namespace ventlock::test
