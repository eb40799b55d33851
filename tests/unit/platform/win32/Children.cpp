#include "unit/platform/win32/Children.h"

#include <gtest/gtest.h>

#include <array>
#include <exception>
#include <functional>
#include <iostream>
#include <map>

#include "platform/ProfileEdit.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

constexpr const wchar_t* kTaskVariable = L"VENTLOCK_TEST_TASK";
constexpr const wchar_t* kFolderVariable = L"VENTLOCK_TEST_FOLDER";
constexpr DWORD kLongestWait = 120000;  // milliseconds
constexpr int kThrown = 100;
constexpr UINT kKilled = 99;

std::string Variable(const wchar_t* name) {
    std::array<wchar_t, 1024> value{};
    const DWORD length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    return FromWideText({value.data(), length});
}

void HoldLock(const std::string& folder) {
    Win32Files files;
    const auto lock = files.Lock(folder + "\\a.ini");
    Signal(folder, "held").Give();
    Signal(folder, "release").Await();
}

void Report(const std::string& folder) {
    WriteBytes(folder + "\\report.txt", FromWideText(GetCommandLineW()));
    const Signal end(folder, "end");
    Signal(folder, "started").Give();
    end.Await();
}

void WriteKeys(const std::string& folder, const std::string& section) {
    Win32Files files(std::chrono::seconds(60));
    const ProfileStore store(files, CodePage(1252));
    for (int i = 0; i < 25; ++i) store.Write(folder + "\\Pyx.ini", section, std::to_string(i), "here");
}

}  // namespace

ChildTask::ChildTask(const std::string& task, const std::string& folder) {
    SetEnvironmentVariableW(kTaskVariable, ToWideText(task).c_str());
    SetEnvironmentVariableW(kFolderVariable, ToWideText(folder).c_str());
}

ChildTask::~ChildTask() {
    SetEnvironmentVariableW(kTaskVariable, nullptr);
    SetEnvironmentVariableW(kFolderVariable, nullptr);
}

std::optional<int> RunTask() {
    const std::string task = Variable(kTaskVariable);
    if (task.empty()) return std::nullopt;
    const std::string folder = Variable(kFolderVariable);
    const std::map<std::string, std::function<void()>> tasks{
        {kHoldLock, [&] { HoldLock(folder); }},
        {kNothing, [] {}},
        {kReport, [&] { Report(folder); }},
        {kWriteFirst, [&] { WriteKeys(folder, kWriteFirst); }},
        {kWriteSecond, [&] { WriteKeys(folder, kWriteSecond); }},
    };
    try {
        tasks.at(task)();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "in the child: " << error.what() << std::endl;
        return kThrown;
    }
}

std::string ThisProgram() {
    std::array<wchar_t, 1024> path{};
    return FromWideText({path.data(), GetModuleFileNameW(nullptr, path.data(), DWORD{path.size()})});
}

Child::Child(const std::string& task, const std::string& folder) {
    const ChildTask environment(task, folder);
    STARTUPINFOW conditions{};
    conditions.cb = sizeof(conditions);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(ToWideText(ThisProgram()).c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &conditions, &process) == 0) {
        ADD_FAILURE() << "no process could be made: " << GetLastError();
        return;
    }
    FileHandle(process.hThread).Close();
    process_ = FileHandle(process.hProcess);
}

Child::~Child() {
    ExitCode();
}

int Child::ExitCode() const {
    DWORD code = 0;
    EXPECT_EQ(WaitForSingleObject(process_.Get(), kLongestWait), WAIT_OBJECT_0) << "the child does not end";
    EXPECT_NE(GetExitCodeProcess(process_.Get(), &code), 0);
    return static_cast<int>(code);
}

void Child::Kill() const {
    EXPECT_NE(TerminateProcess(process_.Get(), kKilled), 0);
}

Signal::Signal(const std::string& folder, const std::string& name)
    : event_(CreateEventW(
          nullptr, TRUE, FALSE,
          ToWideText("Local\\" + folder.substr(folder.find_last_of("\\/") + 1) + " " + name).c_str())) {}

void Signal::Give() const {
    EXPECT_NE(SetEvent(event_.Get()), 0);
}

void Signal::Await() const {
    EXPECT_EQ(WaitForSingleObject(event_.Get(), kLongestWait), WAIT_OBJECT_0) << "the signal is not given";
}

}  // namespace ventlock::test
