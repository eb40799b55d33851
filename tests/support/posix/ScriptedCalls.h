#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/posix/FileCalls.h"

namespace ventlock::test {

/// The system's file calls, written down one after the other, any of which can be made to fail. One at a
/// time.
class ScriptedCalls {
 public:
    ScriptedCalls();
    ~ScriptedCalls();
    ScriptedCalls(const ScriptedCalls&) = delete;
    ScriptedCalls& operator=(const ScriptedCalls&) = delete;

    /// Calls for a PosixFiles; usable while this object lives.
    static FileCalls Calls();

    /// The call at `index` (0: the first one) fails with `error` and does nothing, but a close does close.
    void FailAt(std::size_t index, int error);

    /// The first call of `name` fails with `error`.
    void FailFirst(const std::string& name, int error);

    /// From now on a write stores one byte at a time and every other call of read, write, fsync, flock and
    /// open is interrupted by a signal first.
    void Stutter() { stutters_ = true; }

    /// From now on nothing is brought to the disk, which is slow and shows only when the power is cut.
    void SkipFlushes() { flushes_ = false; }

    /// Runs before a call of `name` that succeeds is passed on, once.
    void BeforeFirst(const std::string& name, std::function<void()> action);

    /// Names of the calls made so far.
    [[nodiscard]] const std::vector<std::string>& Made() const { return made_; }

    /// Paths and flags of all calls of open so far.
    [[nodiscard]] const std::vector<std::pair<std::string, int>>& Opened() const { return opened_; }

    /// For the calls themselves: writes one down; False and errno when it is to fail.
    bool Pass(const std::string& name);
    void NoteOpen(const char* path, int flags) { opened_.emplace_back(path, flags); }
    [[nodiscard]] bool Interrupts();
    [[nodiscard]] bool Stutters() const { return stutters_; }
    [[nodiscard]] bool Flushes() const { return flushes_; }

 private:
    std::vector<std::string> made_;
    std::vector<std::pair<std::string, int>> opened_;
    std::size_t failIndex_ = static_cast<std::size_t>(-1);
    std::string failName_;
    int error_ = 0;
    bool stutters_ = false;
    bool interrupted_ = false;
    bool flushes_ = true;
    std::string actionName_;
    std::function<void()> action_;
};

}  // namespace ventlock::test
