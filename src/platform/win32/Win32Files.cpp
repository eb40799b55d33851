#include "platform/win32/Win32Files.h"

#include <vector>

#include "base/RunTimeError.h"
#include "platform/win32/FileErrors.h"
#include "platform/win32/FileHandle.h"
#include "platform/win32/FileTarget.h"
#include "platform/win32/FinalPath.h"
#include "platform/win32/ReplacementFile.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32FileLock.h"

namespace ventlock {
namespace {

constexpr DWORD kBufferSize = 65536;

/// Opens a regular file.
FileHandle Open(const FileCalls& calls, const std::string& path, DWORD access, DWORD share, DWORD disposition,
                const Pause& pause, DWORD& attributes) {
    const std::wstring systemPath = SystemPath(calls, path);
    FileHandle file;
    const DWORD code = OpenWhenFree(calls, systemPath, access, share, disposition, pause, file);
    if (code != ERROR_SUCCESS) throw OpenError(calls, path, systemPath, code);
    if (!IsRegularFile(calls, file, attributes)) throw FileError(path, GetLastError());
    return file;
}

/// The path in the form that the system takes at any length; empty for one that no folder can have.
std::wstring FolderPath(const FileCalls& calls, const std::string& path) {
    try {
        return LongForm(FullPath(calls, path));
    } catch (const RunTimeError&) {
        return {};
    }
}

}  // namespace

bool Win32Files::Exists(const std::string& path) {
    const NoSystemBoxes quiet;
    try {
        const FileHandle file = OpenForAttributes(calls_, SystemPath(calls_, path));
        DWORD attributes = 0;
        return file.IsOpen() && IsRegularFile(calls_, file, attributes);
    } catch (const RunTimeError&) {
        return false;  // a path that no file can have
    }
}

std::optional<std::vector<std::string>> Win32Files::FilesIn(const std::string& folder) {
    const NoSystemBoxes quiet;
    const auto isFolder = [&](const std::wstring& path) {
        const DWORD attributes = calls_.getFileAttributes(path.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    };
    std::wstring path = FolderPath(calls_, folder);
    if (path.empty() || !isFolder(path)) return std::nullopt;
    if (!path.ends_with(L'\\')) path += L'\\';
    std::vector<std::wstring> found;
    if (calls_.list((path + L"*").c_str(), found) == 0) throw FileError(folder, GetLastError());
    std::vector<std::string> names;
    for (const std::wstring& name : found) {
        // A path of this form is taken as it stands, so that "." leads nowhere.
        const bool isPart = name == L"." || name == L"..";
        if (!isPart && !isFolder(path + name)) names.push_back(FromWideText(name));
    }
    return names;
}

void Win32Files::RequireReplaceable(const std::string& path) {
    const NoSystemBoxes quiet;
    RequireReplaceableTarget(calls_, ResolveTarget(calls_, path, pause_), pause_);
}

std::string Win32Files::ReadAll(const std::string& path) {
    const NoSystemBoxes quiet;
    DWORD attributes = 0;
    const FileHandle file = Open(calls_, path, GENERIC_READ, kShareAll, OPEN_EXISTING, pause_, attributes);
    LARGE_INTEGER size{};
    if (calls_.getFileSize(file.Get(), &size) == 0) throw FileError(path, GetLastError());
    if (size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
        throw FileError(ErrorNumber::OutOfMemory, path, ERROR_FILE_TOO_LARGE);
    }
    std::string bytes;
    std::vector<char> buffer(kBufferSize);
    for (;;) {
        DWORD count = 0;
        if (calls_.readFile(file.Get(), buffer.data(), kBufferSize, &count) == 0) {
            throw FileError(path, GetLastError());
        }
        if (count == 0) return bytes;
        bytes.append(buffer.data(), count);
    }
}

void Win32Files::Replace(const std::string& path, std::string_view bytes) {
    const NoSystemBoxes quiet;
    const FileTarget target = ResolveTarget(calls_, path, pause_);
    RequireReplaceableTarget(calls_, target, pause_);
    ReplacementFile file(calls_, target, pause_);
    file.Write(bytes);
    file.Commit();
}

void Win32Files::Copy(const std::string& from, const std::string& to) {
    Replace(to, ReadAll(from));
}

void Win32Files::Append(const std::string& path, std::string_view bytes) {
    const NoSystemBoxes quiet;
    DWORD attributes = 0;
    FileHandle file = Open(calls_, path, FILE_APPEND_DATA | FILE_READ_ATTRIBUTES,
                           FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_ALWAYS, pause_, attributes);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) throw FileError(path, ERROR_ACCESS_DENIED);
    if (!WriteAll(calls_, file, bytes) || !file.Close()) throw FileError(path, GetLastError());
}

std::unique_ptr<IFileLock> Win32Files::Lock(const std::string& path) {
    const NoSystemBoxes quiet;
    const FileTarget target = ResolveTarget(calls_, path, pause_);
    auto lock = std::make_unique<Win32FileLock>(calls_, target, lockPatience_, pause_);
    RemoveLeftOvers(calls_, target);
    try {
        RemoveLeftOvers(calls_, ResolveTarget(calls_, path + kBackupEnding, pause_));
    } catch (const RunTimeError&) {
        return lock;  // a backup that cannot be written is told by whoever writes it
    }
    return lock;
}

}  // namespace ventlock
