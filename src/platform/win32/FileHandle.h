#pragma once

#include <windows.h>

#include <utility>

#include "platform/win32/FileCalls.h"

namespace ventlock {

/// An open file, folder or process, closed at the end. Calls other than the system's own must outlive it.
class FileHandle {
 public:
    FileHandle() noexcept = default;
    explicit FileHandle(HANDLE handle, const FileCalls& calls = SystemFileCalls()) noexcept
        : calls_(&calls), handle_(handle) {}
    FileHandle(FileHandle&& other) noexcept
        : calls_(other.calls_), handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        if (this != &other) {
            Close();
            calls_ = other.calls_;
            handle_ = std::exchange(other.handle_, INVALID_HANDLE_VALUE);
        }
        return *this;
    }
    ~FileHandle() { Close(); }

    [[nodiscard]] bool IsOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const noexcept { return handle_; }

    /// Closes it now; False and GetLastError when the system reports a failure.
    bool Close() noexcept {
        return !IsOpen() || calls_->closeHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != 0;
    }

 private:
    const FileCalls* calls_ = &SystemFileCalls();
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

/// As long as this object lives the system asks the user nothing for this thread ("There is no disk in the
/// drive", for one): the call fails instead.
class NoSystemBoxes {
 public:
    NoSystemBoxes() noexcept { SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS, &before_); }
    ~NoSystemBoxes() { SetThreadErrorMode(before_, nullptr); }
    NoSystemBoxes(const NoSystemBoxes&) = delete;
    NoSystemBoxes& operator=(const NoSystemBoxes&) = delete;

 private:
    DWORD before_ = 0;
};

}  // namespace ventlock
