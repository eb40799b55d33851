#pragma once

#include <chrono>
#include <string>

#include "platform/IFiles.h"
#include "platform/win32/FileCalls.h"
#include "platform/win32/FileHandle.h"
#include "platform/win32/FileTarget.h"
#include "platform/win32/Patience.h"

namespace ventlock {

/// The lock of a file: a hidden file of its own, ".<name>.lock", beside the one it guards, that nobody else
/// can open while it is held. It keeps threads of one process apart too; the system takes it away when it is
/// released or its program ends, however it ends.
class Win32FileLock final : public IFileLock {
 public:
    /// Tries for up to `patience`. `calls` must outlive this object. @throws RunTimeError 70 when another
    /// holds the lock for longer, else what the system says.
    Win32FileLock(const FileCalls& calls, const FileTarget& target, std::chrono::milliseconds patience,
                  const Pause& pause);

 private:
    FileHandle file_;
};

}  // namespace ventlock
