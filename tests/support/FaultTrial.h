#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/FaultHost.h"

namespace ventlock::test {

/// What an operation told of itself.
struct Outcome {
    bool isDone = false;
    std::vector<std::string> messages;
};

/// Files of a folder, bytes by name.
using FolderContent = std::map<std::string, std::string>;

/// Work on the files of a folder, done with ScriptedFiles.
struct FileWork {
    FolderContent before;  ///< what the folder holds at first
    std::function<Outcome(const std::string& folder)> run;
};

/// One call of an operation that fails.
struct Fault {
    std::size_t call;  ///< counted from 0
    FaultReason reason;
};

/// An operation that was tried once, in a folder of its own.
struct Trial {
    Outcome outcome;
    FolderContent after;
    FolderContent later;  ///< what the folder holds when every file in it has been locked and released again
    std::vector<std::string> calls;     ///< names of the system calls made
    std::vector<std::string> subjects;  ///< the files that they were made for, where the host tells them
    std::optional<std::size_t> failed;  ///< the first call that was made to fail
    int leakedFiles = 0;
};

/// Tries the work without a fault. In messages of an outcome the trial's folder is "<folder>".
Trial Try(const FileWork& work);

/// With one call failing.
Trial Try(const FileWork& work, const Fault& fault);

/// With a system that does as little at once as it may: a write takes one byte.
Trial TryStuttering(const FileWork& work);

using CheckTrial = std::function<void(const Trial& clean, const Trial& trial, const Fault& fault)>;

/// Tries the work without a fault, then with every single call failing for every reason, and gives each trial
/// to `check`. Prints how many these were. Fails the test when the work makes fewer calls than `leastCalls`,
/// does not end well without a fault, or leaves a file open.
/// @param name   in what is printed
/// @param isTried  chooses the calls that are to fail; all of them when empty
void FailEveryCall(const char* name, const FileWork& work, std::size_t leastCalls, const CheckTrial& check,
                   const std::function<bool(std::size_t call)>& isTried = {});

/// Tries the work on disks that are full at once, after `step` bytes, after twice as many and so on until
/// there is room for all of it, and gives each trial in which a write failed to `check`, with a reason that
/// stays.
void FillTheDisk(const FileWork& work, std::size_t step, const CheckTrial& check);

/// A file's bytes, "<none>" without the file.
std::string BytesOf(const FolderContent& content, const std::string& name);

/// Whether the trial's file is that of before or of a run without a fault.
void ExpectOldOrNew(const FileWork& work, const Trial& clean, const Trial& trial, const std::string& name);

/// Nothing stands in the folder but the files of before and of a run without a fault. Only a lock whose own
/// removal failed may stay, for its next holder to remove.
void ExpectNothingBeside(const FileWork& work, const Trial& clean, const Trial& trial, const Fault& fault);

/// The index of the first call of the work's last replacement of a file.
std::size_t LastReplacementBegins(const Trial& clean);

/// "description (number)" of a run-time error, as log entries end.
std::string CauseOf(int number);

/// All that the run-time error of the fault tells when it is told of the file `name` of the folder.
std::string TextOf(const Fault& fault, const Trial& trial, const std::string& name);

}  // namespace ventlock::test
