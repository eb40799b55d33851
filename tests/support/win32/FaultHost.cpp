#include "support/FaultHost.h"

#include <windows.h>

#include "base/RunTimeError.h"
#include "platform/win32/Win32Files.h"
#include "support/FaultTrial.h"
#include "support/win32/ScriptedCalls.h"

namespace ventlock::test {

const std::vector<FaultReason>& FaultReasons() {
    static const std::vector<FaultReason> kReasons{
        {ERROR_DISK_FULL, "ERROR_DISK_FULL", 61, false},
        {ERROR_ACCESS_DENIED, "ERROR_ACCESS_DENIED", 75, false},
        {ERROR_ACCESS_DENIED, "ERROR_ACCESS_DENIED that stays", 75, true},
        {ERROR_SHARING_VIOLATION, "ERROR_SHARING_VIOLATION", 70, false},
        {ERROR_SHARING_VIOLATION, "ERROR_SHARING_VIOLATION that stays", 70, true},
        {ERROR_WRITE_PROTECT, "ERROR_WRITE_PROTECT", 75, false},
        {ERROR_TOO_MANY_OPEN_FILES, "ERROR_TOO_MANY_OPEN_FILES", 67, false}};
    return kReasons;
}

const FaultReason& FullDisk() {
    return FaultReasons().front();
}

std::unique_ptr<CallScript> BeginScript() {
    return std::make_unique<ScriptedCalls>();
}

std::unique_ptr<IFiles> ScriptedFiles() {
    return std::make_unique<Win32Files>(std::chrono::milliseconds(0), ScriptedCalls::Calls(),
                                        [](std::chrono::milliseconds) {});
}

ReplacingCalls CallsOfReplacing() {
    return {"getFullPathName", "moveFile"};
}

int NumberOf(const Fault& fault, const Trial& trial) {
    if (fault.reason.error != ERROR_ACCESS_DENIED) return fault.reason.number;
    const std::string& subject = trial.subjects[fault.call];
    // The lock's file is denied while another lets go of it, and so is the place of a file that was just seen
    // to be replaceable while another has it open.
    if (trial.calls[fault.call] != "moveFile") return subject.ends_with(".lock") ? 70 : fault.reason.number;
    for (std::size_t call = 0; call < fault.call; ++call) {
        const bool wasThere = trial.calls[call] == "getFinalPathName" && trial.subjects[call] == subject;
        if (wasThere) return 70;
    }
    return fault.reason.number;
}

std::filesystem::path QuickFolder() {
    return std::filesystem::temp_directory_path();
}

}  // namespace ventlock::test
