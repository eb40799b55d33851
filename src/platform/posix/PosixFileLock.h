#pragma once

#include <chrono>
#include <string>

#include "platform/IFiles.h"
#include "platform/Pause.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/FileTarget.h"

namespace ventlock {

/// The lock of a file: a file of its own, ".<name>.lock", beside the one it guards, because replacing that
/// one changes what an open descriptor of it refers to. It keeps threads of one process apart too and is
/// taken away when the lock is released; one left by a killed process holds nobody up.
class PosixFileLock final : public IFileLock {
 public:
    /// Tries for up to `patience`. `calls` must outlive the lock.
    /// @throws RunTimeError 70 when another holds the lock for longer, else what the system says.
    PosixFileLock(const FileCalls& calls, const FileTarget& target, std::chrono::milliseconds patience,
                  const Pause& pause);
    ~PosixFileLock() override;

 private:
    [[nodiscard]] Descriptor Acquire(std::chrono::milliseconds patience, const Pause& pause) const;
    [[nodiscard]] Descriptor Open() const;
    [[nodiscard]] int OpenExisting() const;
    [[nodiscard]] bool IsLocked(const Descriptor& file) const;
    [[nodiscard]] bool StillNames(const Descriptor& file) const;
    /// After a failure: whatever another holds must stay.
    void TakeAwayUnheld(const Descriptor& file) const;

    const FileCalls& calls_;
    std::string given_;
    std::string path_;
    Descriptor file_;
};

}  // namespace ventlock
