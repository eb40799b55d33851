#include "e2e/RunProgram.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <thread>

#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

/// The two ends of a stream: the test reads `ours`, the program writes to `theirs`.
struct Stream {
    HANDLE ours = nullptr;
    HANDLE theirs = nullptr;
};

Stream Pipe() {
    Stream stream;
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    EXPECT_TRUE(CreatePipe(&stream.ours, &stream.theirs, &inherited, 0));
    EXPECT_TRUE(SetHandleInformation(stream.ours, HANDLE_FLAG_INHERIT, 0));
    return stream;
}

std::string ReadToEnd(HANDLE stream) {
    std::string text;
    std::array<char, 4096> buffer{};
    DWORD count = 0;
    while (ReadFile(stream, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) && count > 0)
        text.append(buffer.data(), count);
    return text;
}

/// One argument as the C run time of a program takes it apart again.
std::wstring Quoted(const std::string& argument) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t unit : ToWideText(argument)) {
        if (unit == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = unit == L'\\' ? backslashes + 1 : 0;
        quoted += unit;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring CommandLine(const std::vector<std::string>& command) {
    std::wstring line;
    for (const std::string& argument : command) line += (line.empty() ? L"" : L" ") + Quoted(argument);
    return line;
}

std::wstring EnvironmentBlock(const std::vector<std::string>& environment) {
    std::wstring block;
    for (const std::string& variable : environment) block += ToWideText(variable) + L'\0';
    return block + L'\0';
}

}  // namespace

struct RunningProgram::Handles {
    HANDLE process = nullptr;
    int id = -1;
    HANDLE out = nullptr;
    HANDLE err = nullptr;
};

RunningProgram::RunningProgram(const ProgramCall& call) : handles_(std::make_unique<Handles>()) {
    EXPECT_FALSE(call.errorsGoToTerminal) << "there are no such terminals on this host";
    EXPECT_FALSE(call.answersGoToAFullDisk) << "there is no such device on this host";
    const Stream out = Pipe();
    const Stream err = Pipe();
    handles_->out = out.ours;
    handles_->err = err.ours;

    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = out.theirs;
    startup.hStdError = err.theirs;
    PROCESS_INFORMATION started{};
    std::wstring line = CommandLine(call.command);
    std::wstring environment = EnvironmentBlock(call.environment);
    const BOOL isStarted =
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_UNICODE_ENVIRONMENT,
                       call.environment.empty() ? nullptr : environment.data(),
                       call.folder.empty() ? nullptr : ToWideText(call.folder).c_str(), &startup, &started);
    const DWORD error = GetLastError();
    CloseHandle(out.theirs);
    CloseHandle(err.theirs);
    if (!isStarted) {
        ADD_FAILURE() << call.command.front() << " cannot be started: error " << error;
        return;
    }
    CloseHandle(started.hThread);
    handles_->process = started.hProcess;
    handles_->id = static_cast<int>(started.dwProcessId);
}

RunningProgram::~RunningProgram() {
    EXPECT_EQ(handles_->process, nullptr) << "a program was started and not waited for";
    CloseHandle(handles_->out);
    CloseHandle(handles_->err);
}

int RunningProgram::Process() const {
    return handles_->id;
}

ProgramResult RunningProgram::Wait() {
    ProgramResult result;
    std::thread errors([&] { result.err = ReadToEnd(handles_->err); });
    result.out = ReadToEnd(handles_->out);
    errors.join();
    if (handles_->process == nullptr) return result;
    DWORD code = 0;
    WaitForSingleObject(handles_->process, INFINITE);
    if (GetExitCodeProcess(handles_->process, &code)) result.exitCode = static_cast<int>(code);
    CloseHandle(handles_->process);
    handles_->process = nullptr;
    return result;
}

ProgramResult RunProgram(const ProgramCall& call) {
    return RunningProgram(call).Wait();
}

}  // namespace ventlock::test
