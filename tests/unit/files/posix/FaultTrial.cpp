#include "unit/files/posix/FaultTrial.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "base/RunTimeError.h"
#include "platform/posix/PosixFiles.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

constexpr std::array kErrors{ENOSPC, EIO, EACCES, EROFS, EMFILE};

FolderContent ContentOf(const std::string& folder) {
    FolderContent content;
    for (const auto& entry : fs::directory_iterator(folder)) {
        content[entry.path().filename().string()] = ReadBytes(entry.path().string());
    }
    return content;
}

int OpenDescriptors() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd")) ++count;
    return count;
}

std::string WithoutFolder(std::string text, const std::string& folder) {
    const std::size_t at = text.find(folder);
    return at == std::string::npos ? text : text.replace(at, folder.size(), "<folder>");
}

template <class Arrange>
Trial TryWith(const FileOperation& operation, Arrange arrange) {
    const TempFolder folder("/dev/shm");  // in memory: thousands of replacements on a disk take minutes
    for (const auto& [name, bytes] : operation.before) WriteBytes(folder / name, bytes);
    Trial trial;
    const int open = OpenDescriptors();
    {
        ScriptedCalls script;
        script.SkipFlushes();
        arrange(script);
        trial.outcome = operation.run(folder.Path());
        trial.calls = script.Made();
    }
    trial.leakedDescriptors = OpenDescriptors() - open;
    for (std::string& message : trial.outcome.messages) message = WithoutFolder(message, folder.Path());
    trial.after = ContentOf(folder.Path());
    PosixFiles files;
    for (const auto& [name, bytes] : trial.after) {
        if (!name.starts_with('.')) files.Lock(folder / name);
    }
    trial.later = ContentOf(folder.Path());
    return trial;
}

}  // namespace

Trial Try(const FileOperation& operation, const std::optional<Fault>& fault) {
    return TryWith(operation, [&](ScriptedCalls& script) {
        if (fault) script.FailAt(fault->call, fault->error);
    });
}

Trial TryStuttering(const FileOperation& operation) {
    return TryWith(operation, [](ScriptedCalls& script) { script.Stutter(); });
}

void FailEveryCall(
    const char* name, const FileOperation& operation, std::size_t leastCalls,
    const std::function<void(const Trial& clean, const Trial& trial, const Fault& fault)>& check,
    const std::function<bool(std::size_t call)>& isTried) {
    const Trial clean = Try(operation);
    ASSERT_TRUE(clean.outcome.isDone);
    ASSERT_EQ(clean.outcome.messages, std::vector<std::string>{});
    ASSERT_EQ(clean.leakedDescriptors, 0);
    std::size_t calls = 0;
    std::size_t cases = 0;
    for (std::size_t call = 0; call < clean.calls.size(); ++call) {
        if (isTried && !isTried(call)) continue;
        ++calls;
        for (const int error : kErrors) {
            SCOPED_TRACE("call " + std::to_string(call) + ", " + clean.calls[call] + ": " +
                         strerrorname_np(error));
            const Trial trial = Try(operation, Fault{call, error});
            EXPECT_EQ(trial.leakedDescriptors, 0);
            check(clean, trial, {call, error});
            ++cases;
        }
    }
    std::printf("file faults: %s: %zu calls x %zu errors = %zu cases\n", name, calls, kErrors.size(), cases);
    EXPECT_GE(calls, leastCalls);
    EXPECT_EQ(cases, calls * kErrors.size());
}

int NumberOf(int error) {
    static const std::map<int, int> kNumbers{
        {ENOSPC, 61}, {EIO, 57}, {EACCES, 75}, {EROFS, 75}, {EMFILE, 67}};
    return kNumbers.at(error);
}

std::string CauseOf(int error) {
    return std::string(DescriptionOf(static_cast<ErrorNumber>(NumberOf(error)))) + " (" +
           std::to_string(NumberOf(error)) + ")";
}

}  // namespace ventlock::test
