#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/posix/FileCalls.h"

namespace ventlock {

/// The regular file that a path leads to, there or still to be made.
struct FileTarget {
    std::string given;   ///< the path as it was given, for messages
    std::string path;    ///< the path behind every symbolic link, so that replacing it leaves the links alone
    std::string folder;  ///< its folder, "." without one
    std::string name;    ///< its name in that folder
    bool exists = false;
    struct stat facts {};  ///< only when it exists
};

/// True for a path that begins with a letter, ":" and "\". No such file ever exists here.
bool IsDrivePath(std::string_view path);

/// The folder part of a path, "." without one, "/" for the root.
std::string FolderOf(std::string_view path);

/// @throws RunTimeError 75 for an empty or blank path, 76 for a drive-letter path, 52 for one that holds a
/// NUL.
void RequireUsablePath(const std::string& path);

/// Follows the links of `path` to their end; a link to a missing file leads to the file that is to be made.
/// @throws RunTimeError as RequireUsablePath; 75 for what is no regular file, for links in a circle and for
/// another user's link in a folder that others may write to, 76 when the folder is missing, else what the
/// system says.
FileTarget ResolveTarget(const FileCalls& calls, const std::string& path);

/// Refuses a target that must not be replaced: one without any write permission, which holds for every user,
/// one that the user may not write, and a folder in which no file can be made. @throws RunTimeError
/// mostly 75.
void RequireReplaceableTarget(const FileCalls& calls, const FileTarget& target);

}  // namespace ventlock
