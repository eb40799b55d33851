#include "platform/posix/FileCalls.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace ventlock {

namespace {

int List(const char* folder, std::vector<std::string>& names) {
    DIR* const stream = ::opendir(folder);
    if (stream == nullptr) return -1;
    errno = 0;
    while (const dirent* const entry = ::readdir(stream)) names.emplace_back(&entry->d_name[0]);
    const int reason = errno;  // 0 at the folder's end
    ::closedir(stream);
    errno = reason;
    return reason == 0 ? 0 : -1;
}

}  // namespace

const FileCalls& SystemFileCalls() {
    static const FileCalls kCalls{
        .open = [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
        .close = ::close,
        .read = ::read,
        .write = ::write,
        .fsync = ::fsync,
        .fstat = ::fstat,
        .lstat = ::lstat,
        .stat = ::stat,
        .readlink = ::readlink,
        .access = [](const char* path, int mode) { return ::faccessat(AT_FDCWD, path, mode, AT_EACCESS); },
        .fchmod = ::fchmod,
        .fchown = ::fchown,
        .rename = std::rename,
        .unlink = ::unlink,
        .flock = ::flock,
        .list = List,
    };
    return kCalls;
}

}  // namespace ventlock
