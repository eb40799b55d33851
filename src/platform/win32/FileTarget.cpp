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

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// True for a path on a drive letter that no drive has.
bool IsDriveMissing(const std::wstring& path) {
    if (path.size() < kBehindDrive || path[kBehindDrive - 1] != L':') return false;
    const std::wstring root = path.substr(kLongPrefix.size(), 2) + L"\\";
    return GetDriveTypeW(root.c_str()) == DRIVE_NO_ROOT_DIR;
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

}  // namespace

std::wstring FullPath(const std::string& path) {
    if (Trim(path).empty()) throw FileError(ErrorNumber::PathFileAccessError, path, ERROR_PATH_NOT_FOUND);
    const std::wstring wide = ToWideText(path);
    if (path.find('\0') != std::string::npos || FromWideText(wide) != path) {
        throw FileError(ErrorNumber::BadFileName, path, ERROR_INVALID_NAME);
    }
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD length =
            GetFullPathNameW(wide.c_str(), static_cast<DWORD>(buffer.size()), buffer.data(), nullptr);
        if (length == 0) throw FileError(path, GetLastError());
        if (length < buffer.size()) return {buffer.data(), length};
        buffer.resize(length + 1);
    }
}

std::wstring SystemPath(const std::string& path) {
    std::wstring full = FullPath(path);
    if (full.starts_with(kDevicePrefix)) throw FileError(path, ERROR_ACCESS_DENIED);
    full = LongForm(std::move(full));
    if (full.find(L':', kBehindDrive) != std::wstring::npos || HasTooLongPart(full)) {
        throw FileError(path, ERROR_INVALID_NAME);
    }
    if (full.ends_with(L'\\')) {
        if (IsFolder(full)) throw FileError(path, ERROR_ACCESS_DENIED);
        throw OpenError(path, full, ERROR_PATH_NOT_FOUND);
    }
    return full;
}

DWORD OpenWhenFree(const std::wstring& path, DWORD access, DWORD share, DWORD disposition, const Pause& pause,
                   FileHandle& file) {
    return TryWhileInUse(
        pause,
        [&]() -> DWORD {
            file = FileHandle(CreateFileW(path.c_str(), access, share, nullptr, disposition,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
            return file.IsOpen() ? ERROR_SUCCESS : GetLastError();
        },
        [&](DWORD code) { return IsInUse(code, path); });
}

RunTimeError OpenError(const std::string& given, const std::wstring& path, DWORD code) {
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) {
        if (IsDriveMissing(path)) return FileError(given, ERROR_INVALID_DRIVE);
        if (!IsFolder(FolderOf(path))) return FileError(given, ERROR_PATH_NOT_FOUND);
    }
    return FileError(given, code);
}

bool IsRegularFile(const FileHandle& file, DWORD& attributes) {
    BY_HANDLE_FILE_INFORMATION facts{};
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    if (GetFileInformationByHandle(file.Get(), &facts) == 0) return false;
    attributes = facts.dwFileAttributes;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return true;
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
}

FileTarget ResolveTarget(const std::string& path, const Pause& pause) {
    FileTarget target;
    target.given = path;
    target.path = SystemPath(path);
    FileHandle file;
    const DWORD code = TryWhileInUse(
        pause,
        [&]() -> DWORD {
            file = OpenForAttributes(target.path);
            return file.IsOpen() ? ERROR_SUCCESS : GetLastError();
        },
        [&](DWORD reason) { return IsInUse(reason, target.path); });
    if (code == ERROR_SUCCESS) {
        if (!IsRegularFile(file, target.attributes)) throw FileError(path, GetLastError());
        target.exists = true;
        std::wstring final = FinalPath(file);
        if (!final.empty()) {
            target.path = std::move(final);
        } else if (IsSymbolicLink(target.path)) {
            throw FileError(path, ERROR_CANT_RESOLVE_FILENAME);
        }
    } else {
        const RunTimeError error = OpenError(path, target.path, code);
        if (error.Number() != ErrorNumber::FileNotFound) throw error;
        // The name is taken all the same: by a link that leads nowhere, which a new file would replace.
        const DWORD attributes = GetFileAttributesW(target.path.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
            throw FileError(path, ERROR_CANT_RESOLVE_FILENAME);
        }
    }
    target.folder = FolderOf(target.path);
    target.name = target.path.substr(target.folder.size());
    return target;
}

bool MayMakeFiles(const std::wstring& folder) {
    return FileHandle(CreateFileW(folder.c_str(), FILE_ADD_FILE, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr))
        .IsOpen();
}

void RequireReplaceableTarget(const FileTarget& target, const Pause& pause) {
    if (target.exists) {
        if ((target.attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            throw FileError(target.given, ERROR_ACCESS_DENIED);
        }
        FileHandle file;
        const DWORD code =
            OpenWhenFree(target.path, FILE_WRITE_DATA | DELETE, kShareAll, OPEN_EXISTING, pause, file);
        if (code != ERROR_SUCCESS) throw OpenError(target.given, target.path, code);
    }
    if (!MayMakeFiles(target.folder)) throw FileError(target.given, GetLastError());
}

}  // namespace ventlock
