#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/FileCalls.h"
#include "platform/win32/FileHandle.h"

namespace ventlock {

/// Opens what the links of a path lead to, file or folder, for its attributes alone, in nobody's way. Not
/// open with GetLastError when it fails.
FileHandle OpenForAttributes(const FileCalls& calls, const std::wstring& path);

/// The path of an open file or folder behind every link, beginning with "\\?\", in the spelling of the file
/// system or, where that cannot be asked for, in the one it was opened with. Empty with GetLastError where
/// the system tells none.
std::wstring FinalPath(const FileCalls& calls, const FileHandle& file);

/// True when the path itself, not a folder before it, is a symbolic link, wherever that leads.
bool IsSymbolicLink(const FileCalls& calls, const std::wstring& path);

/// A full path of a drive or a server in the form that the system takes at any length: "\\?\C:\a" for "C:\a",
/// "\\?\UNC\server\share" for "\\server\share". A path that begins with "\\?\" is given as it is.
std::wstring LongForm(std::wstring path);

/// The reverse of LongForm where every program takes the result, which is shorter than MAX_PATH; else the
/// path as it is.
std::wstring ShortForm(const std::wstring& path);

}  // namespace ventlock
