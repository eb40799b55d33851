#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ventlock {

/// Of a new file, less the process's file mode mask.
inline constexpr mode_t kOrdinaryMode = 0666;

/// How a file is opened whose name others may use. O_NONBLOCK: a pipe of that name must not hold the program
/// up before it can be refused. O_NOFOLLOW: a link that has come since the target was found counts no more
/// than any other that may not be followed.
inline constexpr int kHowToOpen = O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;

/// The system calls that file operations are made of, each with the system's own meaning: -1 and errno on
/// failure.
struct FileCalls {
    int (*open)(const char* path, int flags, mode_t mode);
    int (*close)(int descriptor);
    ssize_t (*read)(int descriptor, void* buffer, std::size_t size);
    ssize_t (*write)(int descriptor, const void* buffer, std::size_t size);
    int (*fsync)(int descriptor);
    int (*fstat)(int descriptor, struct stat* facts);
    int (*lstat)(const char* path, struct stat* facts);
    int (*stat)(const char* path, struct stat* facts);
    ssize_t (*readlink)(const char* path, char* buffer, std::size_t size);
    int (*access)(const char* path, int mode);  ///< by the effective user
    int (*fchmod)(int descriptor, mode_t mode);
    int (*fchown)(int descriptor, uid_t user, gid_t group);
    int (*rename)(const char* from, const char* to);
    int (*unlink)(const char* path);
    int (*flock)(int descriptor, int operation);
    int (*list)(const char* folder, std::vector<std::string>& names);  ///< opendir, readdir, closedir
};

/// The system's own calls.
const FileCalls& SystemFileCalls();

}  // namespace ventlock
