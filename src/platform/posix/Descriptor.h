#pragma once

#include <cerrno>
#include <utility>

#include "platform/posix/FileCalls.h"

namespace ventlock {

/// Repeats a system call for as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

/// An open file, closed at the end. `calls` must outlive it.
class Descriptor {
 public:
    Descriptor(const FileCalls& calls, int number) : calls_(&calls), number_(number) {}
    Descriptor(Descriptor&& other) noexcept
        : calls_(other.calls_), number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() { Close(); }

    [[nodiscard]] bool IsOpen() const noexcept { return number_ >= 0; }
    [[nodiscard]] int Number() const noexcept { return number_; }

    /// Closes it now; False and errno when the system reports that written bytes were lost.
    bool Close() noexcept {
        if (!IsOpen()) return true;
        // An interrupted close has closed all the same; a second one could hit another file.
        return calls_->close(std::exchange(number_, -1)) == 0 || errno == EINTR;
    }

 private:
    const FileCalls* calls_;
    int number_;
};

}  // namespace ventlock
