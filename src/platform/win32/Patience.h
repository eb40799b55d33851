#pragma once

#include <windows.h>

#include <array>
#include <chrono>
#include <string>

#include "platform/Pause.h"
#include "platform/win32/FileCalls.h"

namespace ventlock {

/// The pauses while another program, a virus scanner for one, has a file open for a moment: one second in
/// all.
inline constexpr std::array<std::chrono::milliseconds, 8> kPausesWhileInUse{
    std::chrono::milliseconds(5),   std::chrono::milliseconds(10), std::chrono::milliseconds(20),
    std::chrono::milliseconds(40),  std::chrono::milliseconds(75), std::chrono::milliseconds(150),
    std::chrono::milliseconds(300), std::chrono::milliseconds(400)};

/// Tries until it no longer fails because the file is in use, or until the pauses are used up.
/// @param attempt  gives the system's code, ERROR_SUCCESS for success
/// @param isInUse  tells of a code whether it may pass
/// @return the last code
template <class Attempt, class IsInUse>
DWORD TryWhileInUse(const Pause& pause, Attempt attempt, IsInUse isInUse) {
    DWORD code = attempt();
    for (const auto time : kPausesWhileInUse) {
        if (!isInUse(code)) break;
        pause(time);
        code = attempt();
    }
    return code;
}

/// True for a code by which opening `path` fails while another program has it open or is about to delete or
/// replace it.
inline bool IsInUse(const FileCalls& calls, DWORD code, const std::wstring& path) {
    if (code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION || code == ERROR_DELETE_PENDING) {
        return true;
    }
    // A file that goes when its last user closes it can be neither opened nor asked for its attributes.
    return code == ERROR_ACCESS_DENIED && calls.getFileAttributes(path.c_str()) == INVALID_FILE_ATTRIBUTES &&
           GetLastError() == ERROR_ACCESS_DENIED;
}

}  // namespace ventlock
