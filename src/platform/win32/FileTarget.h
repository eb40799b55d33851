#pragma once

#include <windows.h>

#include <string>

#include "base/RunTimeError.h"
#include "platform/win32/FileCalls.h"
#include "platform/win32/FileHandle.h"
#include "platform/win32/Patience.h"

namespace ventlock {

/// Sharing that gets in nobody's way.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The regular file that a path leads to, there or still to be made.
struct FileTarget {
    std::string given;  ///< the path as it was given, for messages
    std::wstring path;  ///< the path behind every symbolic link, so that replacing it leaves the links alone
    std::wstring folder;  ///< its folder, with "\" at the end
    std::wstring name;    ///< its name in that folder
    bool exists = false;
    DWORD attributes = 0;  ///< only when it exists
};

/// The path from the drive or the server on, with "\" between its parts, "." and ".." resolved.
/// @throws RunTimeError 75 for an empty or blank path, 52 for one that holds a NUL or is no UTF-8.
std::wstring FullPath(const FileCalls& calls, const std::string& path);

/// The full path in the form that the system takes at any length, beginning with "\\?\".
/// @throws RunTimeError as FullPath; 75 for a device and for a path that ends in "\" and names a folder, 76
/// when it names none, 68 when its drive is missing; 52 for a stream of a file and for a part of more than
/// 255 units.
std::wstring SystemPath(const FileCalls& calls, const std::string& path);

/// Opens a file, waiting within the bound of TryWhileInUse for other programs.
/// @return the system's code, ERROR_SUCCESS when `file` is open
DWORD OpenWhenFree(const FileCalls& calls, const std::wstring& path, DWORD access, DWORD share,
                   DWORD disposition, const Pause& pause, FileHandle& file);

/// The error of a file that could not be opened: 68 when its drive is missing, 76 when its folder is, why the
/// folder cannot be looked at, else what the code stands for.
RunTimeError OpenError(const FileCalls& calls, const std::string& given, const std::wstring& path,
                       DWORD code);

/// True for an open regular file; its attributes are then in `attributes`. False with GetLastError.
bool IsRegularFile(const FileCalls& calls, const FileHandle& file, DWORD& attributes);

/// Follows the links of `path` to their end.
/// @throws RunTimeError as SystemPath; 75 for what is no regular file, for links in a circle, for a link that
/// leads nowhere and for one whose end the system does not tell, 76 when the folder is missing, 68 when the
/// drive is, else what the system says.
FileTarget ResolveTarget(const FileCalls& calls, const std::string& path, const Pause& pause);

/// Refuses a target that must not be replaced: one that is read-only or that the user may not write or
/// delete, and a folder in which the user may make no file. Leaves no trace.
/// @throws RunTimeError mostly 75; 70 when another program holds the file and goes on doing so.
void RequireReplaceableTarget(const FileCalls& calls, const FileTarget& target, const Pause& pause);

/// False when the system lets the user make no file in the folder; GetLastError tells why.
bool MayMakeFiles(const FileCalls& calls, const std::wstring& folder);

}  // namespace ventlock
