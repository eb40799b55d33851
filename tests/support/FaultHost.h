#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/IFiles.h"
#include "support/CallScript.h"

namespace ventlock::test {

struct Fault;
struct Trial;

/// A reason for which calls are made to fail on this host.
struct FaultReason {
    int error;         ///< the system's code
    const char* name;  ///< in messages of tests
    int number;        ///< the run-time error that the code stands for
    bool stays;        ///< whether the call goes on failing when it is tried again
};

const std::vector<FaultReason>& FaultReasons();

/// The reason that a full disk gives.
const FaultReason& FullDisk();

/// A script for this host's calls, begun with its making. One at a time.
std::unique_ptr<CallScript> BeginScript();

/// Files over the scripted calls. A lock that cannot be had is given up at once, and no pause takes time.
std::unique_ptr<IFiles> ScriptedFiles();

/// By which of its calls a replacement of a file begins and by which one the new bytes get into its place.
struct ReplacingCalls {
    const char* first;
    const char* last;
};
ReplacingCalls CallsOfReplacing();

/// The number of the run-time error that tells of the fault, where it ends an operation.
int NumberOf(const Fault& fault, const Trial& trial);

/// A folder in which many small files are quickly made.
std::filesystem::path QuickFolder();

}  // namespace ventlock::test
