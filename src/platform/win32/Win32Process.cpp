#include "platform/win32/Win32Process.h"

#include <windows.h>

#include "base/RunTimeError.h"
#include "platform/win32/FileHandle.h"
#include "platform/win32/FileTarget.h"

namespace ventlock {
namespace {

/// The full path; in the form for long ones only when it is long, because the program sees it as its name.
std::wstring ProgramPath(const std::string& path) {
    const std::wstring systemPath = SystemPath(SystemFileCalls(), path);
    std::wstring full = FullPath(SystemFileCalls(), path);
    return full.size() < MAX_PATH ? full : systemPath;
}

bool StartProgram(const std::wstring& program) {
    DWORD kind = 0;
    if (GetBinaryTypeW(program.c_str(), &kind) == 0) return false;
    std::wstring commandLine = L"\"" + program + L"\"";
    STARTUPINFOW conditions{};
    conditions.cb = sizeof(conditions);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &conditions, &process) == 0) {
        return false;
    }
    FileHandle(process.hThread).Close();
    FileHandle(process.hProcess).Close();
    return true;
}

}  // namespace

bool Win32Process::Start(const std::string& path) {
    const NoSystemBoxes quiet;
    try {
        return StartProgram(ProgramPath(path));
    } catch (const RunTimeError&) {
        return false;  // a path that no program can have
    }
}

}  // namespace ventlock
