#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/posix/FileCalls.h"
#include "support/CallScript.h"

namespace ventlock::test {

/// The system's file calls, written down one after the other, any of which can be made to fail. When they
/// stutter, every other call of read, write, fsync, flock and open is interrupted by a signal first. One at a
/// time.
class ScriptedCalls final : public CallScript {
 public:
    ScriptedCalls();
    ~ScriptedCalls() override;

    /// Calls for a PosixFiles; usable while this object lives.
    static FileCalls Calls();

    /// Paths and flags of all calls of open so far.
    [[nodiscard]] const std::vector<std::pair<std::string, int>>& Opened() const { return opened_; }

    [[nodiscard]] int OpenFiles() const override;

    /// For the calls themselves: writes one down; False and errno when it is to fail.
    bool Pass(const std::string& name);
    void NoteOpen(const char* path, int flags) { opened_.emplace_back(path, flags); }
    [[nodiscard]] bool Interrupts();

 private:
    std::vector<std::pair<std::string, int>> opened_;
    bool interrupted_ = false;
    int openBefore_;
};

}  // namespace ventlock::test
