#include "platform/posix/FileCalls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdio>

namespace ventlock {

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
    };
    return kCalls;
}

}  // namespace ventlock
