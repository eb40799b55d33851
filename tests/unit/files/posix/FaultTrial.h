#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/posix/ScriptedCalls.h"

namespace ventlock::test {

/// What an operation told of itself.
struct Outcome {
    bool isDone = false;
    std::vector<std::string> messages;
};

/// Files of a folder, bytes by name.
using FolderContent = std::map<std::string, std::string>;

/// Work on the files of a folder, whose system calls are those of ScriptedCalls.
struct FileOperation {
    FolderContent before;  ///< what the folder holds at first
    std::function<Outcome(const std::string& folder)> run;
};

/// One call of an operation that fails.
struct Fault {
    std::size_t call;  ///< counted from 0
    int error;
};

/// An operation that was tried once, in a folder of its own.
struct Trial {
    Outcome outcome;
    FolderContent after;
    FolderContent later;  ///< what the folder holds when every file in it has been locked and released again
    std::vector<std::string> calls;  ///< names of the system calls made
    int leakedDescriptors = 0;
};

/// In messages of an outcome the trial's folder is "<folder>".
Trial Try(const FileOperation& operation, const std::optional<Fault>& fault = {});

/// Every call of reading, writing, opening, locking and flushing is interrupted first, and a write takes one
/// byte at a time.
Trial TryStuttering(const FileOperation& operation);

/// Tries the operation without a fault, then with every single call failing for every reason, and gives each
/// trial to `check`. Prints how many these were. Fails the test when the operation makes fewer calls than
/// `leastCalls`, does not end well without a fault, or leaves a descriptor open.
/// @param name   in what is printed
/// @param isTried  chooses the calls that are to fail; all of them when empty
void FailEveryCall(
    const char* name, const FileOperation& operation, std::size_t leastCalls,
    const std::function<void(const Trial& clean, const Trial& trial, const Fault& fault)>& check,
    const std::function<bool(std::size_t call)>& isTried = {});

/// The number that stands for a system call's error.
int NumberOf(int error);

/// "description (number)" of a system call's error, as log entries end.
std::string CauseOf(int error);

}  // namespace ventlock::test
