#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "support/Usage.h"

namespace ventlock::bench {

/// Starts programs and takes what they use, from a process of its own: the memory of whoever starts a program
/// counts as that program's, so it must be small. Made first of all in `main`, while the harness has nothing
/// yet.
class Starter {
 public:
    Starter();
    ~Starter();
    Starter(const Starter&) = delete;
    Starter& operator=(const Starter&) = delete;

    /// Runs programs in turn, each to its end, and adds up what they took, starts included. Their answers are
    /// dropped. The words in VENTLOCK_BENCH_PREFIX are put before each command.
    /// @param commands  the program, searched in PATH, and its arguments
    /// @throws std::runtime_error when one cannot be started or ends with anything but 0; its last
    /// errors are in the text then
    Usage Run(const std::vector<std::vector<std::string>>& commands,
              const std::vector<std::string>& environment) const;

    /// Starts one program, as Run does. Finish must be called before the next one is started.
    /// @return its process @throws std::runtime_error when it cannot be started
    int Start(const std::vector<std::string>& command, const std::vector<std::string>& environment) const;

    /// Waits for the end of the program started last. @throws std::runtime_error as Run does
    /// @param program  for that text
    Usage Finish(const std::string& program) const;

    /// Whether the program started last ends in time, so that Finish does not wait.
    [[nodiscard]] bool EndsWithin(std::chrono::milliseconds patience) const;

 private:
    int process_ = 0;
    int socket_ = -1;
};

}  // namespace ventlock::bench
