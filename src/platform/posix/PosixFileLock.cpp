#include "platform/posix/PosixFileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

#include "base/RunTimeError.h"
#include "platform/posix/FileErrors.h"

namespace ventlock {
namespace {

constexpr std::chrono::milliseconds kPause{5};  // between two tries

}  // namespace

PosixFileLock::PosixFileLock(const FileCalls& calls, const FileTarget& target,
                             std::chrono::milliseconds patience, const Pause& pause)
    : calls_(calls),
      given_(target.given),
      path_(target.folder + "/." + target.name + ".lock"),
      file_(Acquire(patience, pause)) {}

PosixFileLock::~PosixFileLock() {
    // Taken away while still held: whoever has it open finds out by StillNames and makes a new one.
    calls_.unlink(path_.c_str());
}

Descriptor PosixFileLock::Acquire(std::chrono::milliseconds patience, const Pause& pause) const {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        Descriptor file = Open();
        bool isLocked = false;
        try {
            isLocked = IsLocked(file);
            // Its holder may have taken it away between our open and our lock: then it guards nothing any
            // more.
            if (isLocked && StillNames(file)) return file;
        } catch (const RunTimeError&) {
            TakeAwayUnheld(file);
            throw;
        }
        if (std::chrono::steady_clock::now() >= end) throw FileError(given_, EWOULDBLOCK);
        if (!isLocked) pause(kPause);
    }
}

Descriptor PosixFileLock::Open() const {
    for (;;) {
        // Found first and made second: in a shared folder the system refuses O_CREAT on another user's file.
        int number = OpenExisting();
        if (number < 0 && errno == ENOENT) {
            number = Uninterrupted([&] {
                return calls_.open(path_.c_str(), kHowToOpen | O_RDWR | O_CREAT | O_EXCL, kOrdinaryMode);
            });
            if (number < 0 && errno == EEXIST) continue;
        }
        if (number >= 0) return {calls_, number};
        if (errno == ENOENT) throw FileError(ErrorNumber::PathNotFound, given_, ENOENT);
        throw FileError(given_, errno);
    }
}

int PosixFileLock::OpenExisting() const {
    // Network file systems lock only what is open for writing; another user's file may only be open for
    // reading.
    const int number = Uninterrupted([&] { return calls_.open(path_.c_str(), kHowToOpen | O_RDWR, 0); });
    if (number >= 0 || errno != EACCES) return number;
    return Uninterrupted([&] { return calls_.open(path_.c_str(), kHowToOpen | O_RDONLY, 0); });
}

bool PosixFileLock::IsLocked(const Descriptor& file) const {
    if (Uninterrupted([&] { return calls_.flock(file.Number(), LOCK_EX | LOCK_NB); }) == 0) return true;
    if (errno != EWOULDBLOCK) throw FileError(given_, errno);
    return false;
}

void PosixFileLock::TakeAwayUnheld(const Descriptor& file) const {
    try {
        if (IsLocked(file) && StillNames(file)) calls_.unlink(path_.c_str());
    } catch (const RunTimeError&) {
        return;  // it may be another's; left where it is it holds nobody up
    }
}

bool PosixFileLock::StillNames(const Descriptor& file) const {
    struct stat held {};
    struct stat named {};
    if (calls_.fstat(file.Number(), &held) != 0) throw FileError(given_, errno);
    if (!S_ISREG(held.st_mode)) throw FileError(given_, EACCES);
    if (calls_.lstat(path_.c_str(), &named) != 0) {
        if (errno == ENOENT) return false;
        throw FileError(given_, errno);
    }
    return held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

}  // namespace ventlock
