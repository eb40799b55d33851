#include "platform/win32/FileErrors.h"

#include <windows.h>

#include <array>

#include "platform/win32/WideText.h"

namespace ventlock {
namespace {

constexpr unsigned long kDiskQuotaExceeded = 1295;  // not among the names of every compiler's headers

/// The system's sentence without its full stop and line end.
std::string WordsFor(DWORD code) {
    std::array<wchar_t, 1024> buffer{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    std::wstring_view words(buffer.data(), length);
    while (!words.empty() && (words.back() == L'\n' || words.back() == L'\r' || words.back() == L' ')) {
        words.remove_suffix(1);
    }
    if (words.ends_with(L'.')) words.remove_suffix(1);
    return words.empty() ? "error " + std::to_string(code) : FromWideText(words);
}

}  // namespace

ErrorNumber FileErrorNumber(unsigned long code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
            return ErrorNumber::FileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_DIRECTORY:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_NO_NET_OR_BAD_PATH:
        case ERROR_NETWORK_UNREACHABLE:
            return ErrorNumber::PathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_CANT_ACCESS_FILE:
        case ERROR_CANT_RESOLVE_FILENAME:
        case ERROR_NETWORK_ACCESS_DENIED:
        case ERROR_PRIVILEGE_NOT_HELD:
        case ERROR_LOGON_FAILURE:
        case ERROR_SYMLINK_CLASS_DISABLED:
            return ErrorNumber::PathFileAccessError;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_DELETE_PENDING:
        case ERROR_USER_MAPPED_FILE:
            return ErrorNumber::PermissionDenied;
        case ERROR_NOT_READY:
            return ErrorNumber::DiskNotReady;
        case ERROR_INVALID_DRIVE:
            return ErrorNumber::DeviceUnavailable;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case ERROR_FILE_TOO_LARGE:
        case kDiskQuotaExceeded:
            return ErrorNumber::DiskFull;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
            return ErrorNumber::BadFileName;
        case ERROR_TOO_MANY_OPEN_FILES:
            return ErrorNumber::TooManyFiles;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
            return ErrorNumber::OutOfMemory;
        default:
            return ErrorNumber::DeviceIoError;  // 29, 30, 1117 and whatever else a device may say
    }
}

RunTimeError FileError(ErrorNumber number, const std::string& path, unsigned long code) {
    return RunTimeError::OfFile(number, "\"" + path + "\": " + WordsFor(code));
}

RunTimeError FileError(const std::string& path, unsigned long code) {
    return FileError(FileErrorNumber(code), path, code);
}

}  // namespace ventlock
