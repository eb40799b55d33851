#include "support/FaultHost.h"

#include <cerrno>

#include "platform/posix/PosixFiles.h"
#include "support/FaultTrial.h"
#include "support/posix/ScriptedCalls.h"

namespace ventlock::test {

const std::vector<FaultReason>& FaultReasons() {
    static const std::vector<FaultReason> kReasons{{ENOSPC, "ENOSPC", 61, false},
                                                   {EIO, "EIO", 57, false},
                                                   {EACCES, "EACCES", 75, false},
                                                   {EROFS, "EROFS", 75, false},
                                                   {EMFILE, "EMFILE", 67, false}};
    return kReasons;
}

const FaultReason& FullDisk() {
    return FaultReasons().front();
}

std::unique_ptr<CallScript> BeginScript() {
    return std::make_unique<ScriptedCalls>();
}

std::unique_ptr<IFiles> ScriptedFiles() {
    return std::make_unique<PosixFiles>(std::chrono::milliseconds(0), ScriptedCalls::Calls());
}

ReplacingCalls CallsOfReplacing() {
    return {"lstat", "rename"};
}

int NumberOf(const Fault& fault, const Trial& /*trial*/) {
    return fault.reason.number;
}

std::filesystem::path QuickFolder() {
    return "/dev/shm";  // in memory: thousands of replacements on a disk take minutes
}

}  // namespace ventlock::test
