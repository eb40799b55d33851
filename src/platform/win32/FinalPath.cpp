#include "platform/win32/FinalPath.h"

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/win32/FileTarget.h"

namespace ventlock {
namespace {

constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kLongServerPrefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view kServerPrefix = L"\\\\";

/// The path with drive letter or server, in the spelling that `spelling` asks for; empty with GetLastError.
std::wstring ToldPath(const FileCalls& calls, const FileHandle& file, DWORD spelling) {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD length = calls.getFinalPathName(
            file.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), spelling | VOLUME_NAME_DOS);
        if (length == 0) return {};
        if (length < buffer.size()) return {buffer.data(), length};
        buffer.resize(std::size_t{length} + 1);
    }
}

}  // namespace

FileHandle OpenForAttributes(const FileCalls& calls, const std::wstring& path) {
    return FileHandle(calls.createFile(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING,
                                       FILE_FLAG_BACKUP_SEMANTICS),
                      calls);
}

std::wstring FinalPath(const FileCalls& calls, const FileHandle& file) {
    // The file system's spelling takes the right to look into every folder before it, which may be missing.
    std::wstring path = ToldPath(calls, file, FILE_NAME_NORMALIZED);
    return path.empty() ? ToldPath(calls, file, FILE_NAME_OPENED) : path;
}

bool IsSymbolicLink(const FileCalls& calls, const std::wstring& path) {
    const FileHandle link(calls.createFile(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING,
                                           FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT),
                          calls);
    FILE_ATTRIBUTE_TAG_INFO facts{};
    return link.IsOpen() && calls.getAttributeTag(link.Get(), &facts) != 0 &&
           (facts.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           facts.ReparseTag == IO_REPARSE_TAG_SYMLINK;
}

std::wstring LongForm(std::wstring path) {
    if (path.starts_with(kLongPrefix)) return path;
    if (path.starts_with(kServerPrefix)) {
        path.replace(0, kServerPrefix.size(), kLongServerPrefix);
    } else {
        path.insert(0, kLongPrefix);
    }
    return path;
}

std::wstring ShortForm(const std::wstring& path) {
    std::wstring result = path;
    if (path.starts_with(kLongServerPrefix)) {
        result.replace(0, kLongServerPrefix.size(), kServerPrefix);
    } else if (path.starts_with(kLongPrefix) && path.find(L":\\") == kLongPrefix.size() + 1) {
        result.erase(0, kLongPrefix.size());
    }
    return result.size() < MAX_PATH ? result : path;
}

}  // namespace ventlock
