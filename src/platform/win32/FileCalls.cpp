#include "platform/win32/FileCalls.h"

namespace ventlock {

namespace {

BOOL List(const wchar_t* pattern, std::vector<std::wstring>& names) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(pattern, &found);
    if (search == INVALID_HANDLE_VALUE) return FALSE;
    do {
        names.emplace_back(&found.cFileName[0]);
    } while (FindNextFileW(search, &found) != 0);
    const DWORD reason = GetLastError();
    FindClose(search);
    SetLastError(reason);
    return reason == ERROR_NO_MORE_FILES ? TRUE : FALSE;
}

}  // namespace

const FileCalls& SystemFileCalls() {
    // Not their addresses: the system's functions have a calling convention of their own in 32 bits.
    static const FileCalls kCalls{
        .createFile =
            [](const wchar_t* path, DWORD access, DWORD share, DWORD disposition, DWORD flags) {
                return CreateFileW(path, access, share, nullptr, disposition, flags, nullptr);
            },
        .closeHandle = [](HANDLE file) { return CloseHandle(file); },
        .readFile = [](HANDLE file, void* buffer, DWORD size,
                       DWORD* count) { return ReadFile(file, buffer, size, count, nullptr); },
        .writeFile = [](HANDLE file, const void* buffer, DWORD size,
                        DWORD* count) { return WriteFile(file, buffer, size, count, nullptr); },
        .flushFileBuffers = [](HANDLE file) { return FlushFileBuffers(file); },
        .getFileSize = [](HANDLE file, LARGE_INTEGER* size) { return GetFileSizeEx(file, size); },
        .getFileType = [](HANDLE file) { return GetFileType(file); },
        .getFileInformation =
            [](HANDLE file, BY_HANDLE_FILE_INFORMATION* facts) {
                return GetFileInformationByHandle(file, facts);
            },
        .getAttributeTag =
            [](HANDLE file, FILE_ATTRIBUTE_TAG_INFO* facts) {
                return GetFileInformationByHandleEx(file, FileAttributeTagInfo, facts, sizeof(*facts));
            },
        .getFinalPathName =
            [](HANDLE file, wchar_t* buffer, DWORD size, DWORD spelling) {
                return GetFinalPathNameByHandleW(file, buffer, size, spelling);
            },
        .getFullPathName = [](const wchar_t* path, DWORD size,
                              wchar_t* buffer) { return GetFullPathNameW(path, size, buffer, nullptr); },
        .getFileAttributes = [](const wchar_t* path) { return GetFileAttributesW(path); },
        .getDriveType = [](const wchar_t* root) { return GetDriveTypeW(root); },
        .getAccessList =
            [](HANDLE file, void* descriptor, DWORD size, DWORD* needed) {
                return GetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, descriptor, size, needed);
            },
        .setAccessList =
            [](HANDLE file, void* descriptor) {
                return SetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, descriptor);
            },
        .moveFile = [](const wchar_t* from, const wchar_t* to,
                       DWORD flags) { return MoveFileExW(from, to, flags); },
        .deleteFile = [](const wchar_t* path) { return DeleteFileW(path); },
        .list = List,
    };
    return kCalls;
}

}  // namespace ventlock
