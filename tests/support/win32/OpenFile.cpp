#include "support/win32/OpenFile.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/WideText.h"

namespace ventlock::test {

bool IsOpen(const std::string& path) {
    const HANDLE alone = CreateFileW(ToWideText(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
    if (alone != INVALID_HANDLE_VALUE) {
        CloseHandle(alone);
        return false;
    }
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION}) << path;
    return true;
}

}  // namespace ventlock::test
