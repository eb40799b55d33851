#include "platform/posix/FileTarget.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/posix/FileErrors.h"

namespace ventlock {
namespace {

constexpr int kMostLinks = 40;
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kOthersWrite = S_IWGRP | S_IWOTH;
constexpr uid_t kSuperuser = 0;

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// In a folder that others may write to anybody can put a link that leads the user's own rights elsewhere.
/// There it counts only when it is the user's, the folder owner's or the superuser's.
void RequireTrustedLink(const FileCalls& calls, const FileTarget& target) {
    struct stat folder {};
    if (calls.stat(FolderOf(target.path).c_str(), &folder) != 0) throw FileError(target.given, errno);
    if ((folder.st_mode & kOthersWrite) == 0) return;
    const uid_t owner = target.facts.st_uid;
    if (owner == geteuid() || owner == folder.st_uid || owner == kSuperuser) return;
    throw RunTimeError::OfFile(ErrorNumber::PathFileAccessError,
                               "\"" + target.given + "\": Another user's symbolic link in a shared folder");
}

std::string LinkText(const FileCalls& calls, const FileTarget& target) {
    std::array<char, PATH_MAX> buffer{};
    const ssize_t length = calls.readlink(target.path.c_str(), buffer.data(), buffer.size());
    if (length < 0) throw FileError(target.given, errno);
    std::string text(buffer.data(), static_cast<std::size_t>(length));
    return text.starts_with('/') ? text : FolderOf(target.path) + "/" + text;
}

void RequireFolder(const FileCalls& calls, const FileTarget& target) {
    struct stat facts {};
    const bool isThere = calls.stat(target.folder.c_str(), &facts) == 0;
    if (!isThere && errno != ENOENT) throw FileError(target.given, errno);
    if (!isThere || !S_ISDIR(facts.st_mode) || target.name.empty()) {
        throw FileError(ErrorNumber::PathNotFound, target.given, ENOENT);
    }
}

}  // namespace

bool IsDrivePath(std::string_view path) {
    return path.size() >= 3 && IsLetter(path[0]) && path[1] == ':' && path[2] == '\\';
}

std::string FolderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return ".";
    return std::string(slash == 0 ? "/" : path.substr(0, slash));
}

void RequireUsablePath(const std::string& path) {
    if (Trim(path).empty()) throw FileError(ErrorNumber::PathFileAccessError, path, ENOENT);
    if (IsDrivePath(path)) throw FileError(ErrorNumber::PathNotFound, path, ENOENT);
    if (path.find('\0') != std::string::npos) throw FileError(ErrorNumber::BadFileName, path, EINVAL);
}

FileTarget ResolveTarget(const FileCalls& calls, const std::string& path) {
    RequireUsablePath(path);
    FileTarget target;
    target.given = path;
    target.path = path;
    for (int links = 0; links < kMostLinks; ++links) {
        target.exists = calls.lstat(target.path.c_str(), &target.facts) == 0;
        if (!target.exists && errno != ENOENT) throw FileError(path, errno);
        if (target.exists && S_ISLNK(target.facts.st_mode)) {
            RequireTrustedLink(calls, target);
            target.path = LinkText(calls, target);
            continue;
        }
        target.folder = FolderOf(target.path);
        target.name = target.path.substr(target.path.rfind('/') + 1);
        if (!target.exists) {
            RequireFolder(calls, target);
        } else if (!S_ISREG(target.facts.st_mode)) {
            throw FileError(ErrorNumber::PathFileAccessError, path,
                            S_ISDIR(target.facts.st_mode) ? EISDIR : EACCES);
        }
        return target;
    }
    throw FileError(path, ELOOP);
}

void RequireReplaceableTarget(const FileCalls& calls, const FileTarget& target) {
    if (target.exists) {
        if ((target.facts.st_mode & kAnyWrite) == 0) throw FileError(target.given, EACCES);
        if (calls.access(target.path.c_str(), W_OK) != 0) throw FileError(target.given, errno);
    }
    if (calls.access(target.folder.c_str(), W_OK | X_OK) != 0) throw FileError(target.given, errno);
}

}  // namespace ventlock
