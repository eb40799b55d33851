#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace ventlock {

/// The system's functions that file operations are made of, each with the system's own meaning: on failure
/// what its function gives for that (FALSE where nothing else is said) and GetLastError. Parameters for which
/// nobody here has a use are left out.
struct FileCalls {
    /// INVALID_HANDLE_VALUE
    HANDLE (*createFile)(const wchar_t* path, DWORD access, DWORD share, DWORD disposition, DWORD flags);
    BOOL (*closeHandle)(HANDLE file);
    BOOL (*readFile)(HANDLE file, void* buffer, DWORD size, DWORD* count);
    BOOL (*writeFile)(HANDLE file, const void* buffer, DWORD size, DWORD* count);
    BOOL (*flushFileBuffers)(HANDLE file);
    BOOL (*getFileSize)(HANDLE file, LARGE_INTEGER* size);
    DWORD (*getFileType)(HANDLE file);  ///< FILE_TYPE_UNKNOWN, which is NO_ERROR for what is of no known type
    BOOL (*getFileInformation)(HANDLE file, BY_HANDLE_FILE_INFORMATION* facts);
    BOOL (*getAttributeTag)(HANDLE file, FILE_ATTRIBUTE_TAG_INFO* facts);
    DWORD (*getFinalPathName)(HANDLE file, wchar_t* buffer, DWORD size, DWORD spelling);  ///< 0
    DWORD (*getFullPathName)(const wchar_t* path, DWORD size, wchar_t* buffer);           ///< 0
    DWORD (*getFileAttributes)(const wchar_t* path);  ///< INVALID_FILE_ATTRIBUTES
    UINT (*getDriveType)(const wchar_t* root);        ///< DRIVE_UNKNOWN, without GetLastError
    BOOL (*getAccessList)(HANDLE file, void* descriptor, DWORD size, DWORD* needed);
    BOOL (*setAccessList)(HANDLE file, void* descriptor);
    BOOL (*moveFile)(const wchar_t* from, const wchar_t* to, DWORD flags);
    BOOL (*deleteFile)(const wchar_t* path);
    /// FindFirstFile, FindNextFile, FindClose
    BOOL (*list)(const wchar_t* pattern, std::vector<std::wstring>& names);
};

/// The system's own calls.
const FileCalls& SystemFileCalls();

}  // namespace ventlock
