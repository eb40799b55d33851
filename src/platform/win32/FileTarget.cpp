#include "platform/win32/FileTarget.h"

#include <string_view>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/win32/FileErrors.h"
#include "platform/win32/FinalPath.h"
#include "platform/win32/WideText.h"

namespace ventlock {
namespace {

constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";
constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::size_t kBehindDrive = 6;  // of "\\?\C:"
constexpr std::size_t kLongestPart = 255;

/// ERROR_SUCCESS for a folder, ERROR_PATH_NOT_FOUND where there is none, else why the system does not tell.
DWORD LookForFolder(const FileCalls& calls, const std::wstring& path) {
    const DWORD attributes = calls.getFileAttributes(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD code = GetLastError();
        return code == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : code;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? ERROR_SUCCESS : ERROR_PATH_NOT_FOUND;
}

/// True for a path on a drive letter that no drive has.
bool IsDriveMissing(const FileCalls& calls, const std::wstring& path) {
    if (path.size() < kBehindDrive || path[kBehindDrive - 1] != L':') return false;
    const std::wstring root = path.substr(kLongPrefix.size(), 2) + L"\\";
    return calls.getDriveType(root.c_str()) == DRIVE_NO_ROOT_DIR;
}

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\') + 1);
}

bool HasTooLongPart(std::wstring_view path) {
    for (;;) {
        const std::size_t end = path.find(L'\\');
        if (path.substr(0, end).size() > kLongestPart) return true;
        if (end == std::wstring_view::npos) return false;
        path.remove_prefix(end + 1);
    }
}

/// A name by which no file can be opened may be taken all the same: by a link that leads nowhere, which a new
/// file would replace.
void RequireFreeName(const FileCalls& calls, const FileTarget& target, const Pause& pause) {
    DWORD attributes = 0;
    const DWORD code = TryWhileInUse(
        pause,
        [&]() -> DWORD {
            attributes = calls.getFileAttributes(target.path.c_str());
            return attributes != INVALID_FILE_ATTRIBUTES ? ERROR_SUCCESS : GetLastError();
        },
        [&](DWORD reason) { return IsInUse(calls, reason, target.path); });
    if (code == ERROR_SUCCESS && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        throw FileError(target.given, ERROR_CANT_RESOLVE_FILENAME);
    }
    if (code != ERROR_SUCCESS && code != ERROR_FILE_NOT_FOUND) throw FileError(target.given, code);
}

}  // namespace

std::wstring FullPath(const FileCalls& calls, const std::string& path) {
    if (Trim(path).empty()) throw FileError(ErrorNumber::PathFileAccessError, path, ERROR_PATH_NOT_FOUND);
    const std::wstring wide = ToWideText(path);
    if (path.find('\0') != std::string::npos || FromWideText(wide) != path) {
        throw FileError(ErrorNumber::BadFileName, path, ERROR_INVALID_NAME);
    }
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD length =
            calls.getFullPathName(wide.c_str(), static_cast<DWORD>(buffer.size()), buffer.data());
        if (length == 0) throw FileError(path, GetLastError());
        if (length < buffer.size()) return {buffer.data(), length};
        buffer.resize(length + 1);
    }
}

std::wstring SystemPath(const FileCalls& calls, const std::string& path) {
    std::wstring full = FullPath(calls, path);
    if (full.starts_with(kDevicePrefix)) throw FileError(path, ERROR_ACCESS_DENIED);
    full = LongForm(std::move(full));
    if (full.find(L':', kBehindDrive) != std::wstring::npos || HasTooLongPart(full)) {
        throw FileError(path, ERROR_INVALID_NAME);
    }
    if (full.ends_with(L'\\')) {
        const DWORD code = LookForFolder(calls, full);
        if (code == ERROR_SUCCESS) throw FileError(path, ERROR_ACCESS_DENIED);
        throw OpenError(calls, path, full, code);
    }
    return full;
}

DWORD OpenWhenFree(const FileCalls& calls, const std::wstring& path, DWORD access, DWORD share,
                   DWORD disposition, const Pause& pause, FileHandle& file) {
    return TryWhileInUse(
        pause,
        [&]() -> DWORD {
            file = FileHandle(
                calls.createFile(path.c_str(), access, share, disposition, FILE_ATTRIBUTE_NORMAL), calls);
            return file.IsOpen() ? ERROR_SUCCESS : GetLastError();
        },
        [&](DWORD code) { return IsInUse(calls, code, path); });
}

RunTimeError OpenError(const FileCalls& calls, const std::string& given, const std::wstring& path,
                       DWORD code) {
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) {
        if (IsDriveMissing(calls, path)) return FileError(given, ERROR_INVALID_DRIVE);
        const DWORD folderCode = LookForFolder(calls, FolderOf(path));
        if (folderCode != ERROR_SUCCESS) return FileError(given, folderCode);
    }
    return FileError(given, code);
}

bool IsRegularFile(const FileCalls& calls, const FileHandle& file, DWORD& attributes) {
    BY_HANDLE_FILE_INFORMATION facts{};
    SetLastError(NO_ERROR);  // what is of no known type leaves that, a failure does not
    const DWORD type = calls.getFileType(file.Get());
    if (type != FILE_TYPE_DISK) {
        if (type != FILE_TYPE_UNKNOWN || GetLastError() == NO_ERROR) SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    if (calls.getFileInformation(file.Get(), &facts) == 0) return false;
    attributes = facts.dwFileAttributes;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return true;
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
}

FileTarget ResolveTarget(const FileCalls& calls, const std::string& path, const Pause& pause) {
    FileTarget target;
    target.given = path;
    target.path = SystemPath(calls, path);
    FileHandle file;
    const DWORD code = TryWhileInUse(
        pause,
        [&]() -> DWORD {
            file = OpenForAttributes(calls, target.path);
            return file.IsOpen() ? ERROR_SUCCESS : GetLastError();
        },
        [&](DWORD reason) { return IsInUse(calls, reason, target.path); });
    if (code == ERROR_SUCCESS) {
        if (!IsRegularFile(calls, file, target.attributes)) throw FileError(path, GetLastError());
        target.exists = true;
        std::wstring final = FinalPath(calls, file);
        if (!final.empty()) {
            target.path = std::move(final);
        } else if (IsSymbolicLink(calls, target.path)) {
            throw FileError(path, ERROR_CANT_RESOLVE_FILENAME);
        }
    } else {
        const RunTimeError error = OpenError(calls, path, target.path, code);
        if (error.Number() != ErrorNumber::FileNotFound) throw error;
        RequireFreeName(calls, target, pause);
    }
    target.folder = FolderOf(target.path);
    target.name = target.path.substr(target.folder.size());
    return target;
}

bool MayMakeFiles(const FileCalls& calls, const std::wstring& folder) {
    return FileHandle(calls.createFile(folder.c_str(), FILE_ADD_FILE, kShareAll, OPEN_EXISTING,
                                       FILE_FLAG_BACKUP_SEMANTICS),
                      calls)
        .IsOpen();
}

void RequireReplaceableTarget(const FileCalls& calls, const FileTarget& target, const Pause& pause) {
    if (target.exists) {
        if ((target.attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            throw FileError(target.given, ERROR_ACCESS_DENIED);
        }
        FileHandle file;
        const DWORD code =
            OpenWhenFree(calls, target.path, FILE_WRITE_DATA | DELETE, kShareAll, OPEN_EXISTING, pause, file);
        if (code != ERROR_SUCCESS) throw OpenError(calls, target.given, target.path, code);
    }
    if (!MayMakeFiles(calls, target.folder)) throw FileError(target.given, GetLastError());
}

}  // namespace ventlock
