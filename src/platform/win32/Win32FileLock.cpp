#include "platform/win32/Win32FileLock.h"

#include "base/RunTimeError.h"
#include "platform/win32/FileErrors.h"

namespace ventlock {
namespace {

constexpr std::chrono::milliseconds kPause{5};  // between two tries

FileHandle TryToOpen(const FileCalls& calls, const std::wstring& path) {
    return FileHandle(
        calls.createFile(path.c_str(), GENERIC_READ, 0, OPEN_ALWAYS,
                         FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT),
        calls);
}

/// True when the code tells of a holder. A lock that is just being released is denied; so is one that can
/// never be had: a folder, a read-only file and whatever is in a folder that takes no files.
bool IsHeld(const FileCalls& calls, DWORD code, const std::wstring& path, const std::wstring& folder) {
    if (code != ERROR_ACCESS_DENIED) return IsInUse(calls, code, path);
    const DWORD attributes = calls.getFileAttributes(path.c_str());
    const bool isObstacle = attributes != INVALID_FILE_ATTRIBUTES &&
                            (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0;
    return !isObstacle && MayMakeFiles(calls, folder);
}

FileHandle Acquire(const FileCalls& calls, const FileTarget& target, std::chrono::milliseconds patience,
                   const Pause& pause) {
    const std::wstring path = target.folder + L"." + target.name + L".lock";
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        FileHandle file = TryToOpen(calls, path);
        if (file.IsOpen()) return file;
        const DWORD code = GetLastError();
        if (!IsHeld(calls, code, path, target.folder)) throw OpenError(calls, target.given, path, code);
        if (std::chrono::steady_clock::now() >= end) {
            throw FileError(ErrorNumber::PermissionDenied, target.given, code);
        }
        pause(kPause);
    }
}

}  // namespace

Win32FileLock::Win32FileLock(const FileCalls& calls, const FileTarget& target,
                             std::chrono::milliseconds patience, const Pause& pause)
    : file_(Acquire(calls, target, patience, pause)) {}

}  // namespace ventlock
