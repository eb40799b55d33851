#pragma once

#include <memory>
#include <string>
#include <vector>

namespace ventlock::test {

/// How a program is to be started. It reads nothing: its standard input is at its end.
struct ProgramCall {
    std::vector<std::string> command;      ///< path of the program, then its arguments
    std::vector<std::string> environment;  ///< "NAME=value" each, and nothing else
    std::string folder;                    ///< the program's working folder
    bool errorsGoToTerminal = false;       ///< standard error is a terminal of its own, of 80 columns
    bool answersGoToAFullDisk = false;     ///< nothing can be written to standard output
};

/// What came of a program that has ended.
struct ProgramResult {
    int exitCode = -1;  ///< -1: it did not end by itself
    std::string out;
    std::string err;  ///< from a terminal: with its line ends, CR LF
};

/// A program on its run. Whoever starts one must wait for it.
class RunningProgram {
 public:
    /// A program that cannot be started fails the test.
    explicit RunningProgram(const ProgramCall& call);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// What it is known by to the system, until Wait has returned.
    [[nodiscard]] int Process() const;

    /// Reads both streams to their ends and waits for the program's end.
    ProgramResult Wait();

 private:
    struct Handles;  // of the host: the process, and the streams that it writes to

    std::unique_ptr<Handles> handles_;
};

/// Runs a program to its end.
ProgramResult RunProgram(const ProgramCall& call);

}  // namespace ventlock::test
