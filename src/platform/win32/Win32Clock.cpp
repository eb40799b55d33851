#include "platform/win32/Win32Clock.h"

#include <windows.h>

namespace ventlock {

LocalTime Win32Clock::Now() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

}  // namespace ventlock
