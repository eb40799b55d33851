#include "support/FaultTrial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "base/RunTimeError.h"
#include "platform/Host.h"
#include "support/SystemWords.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

FolderContent ContentOf(const std::string& folder) {
    FolderContent content;
    for (const auto& entry : fs::directory_iterator(PathOf(folder))) {
        content[Utf8Of(entry.path().filename())] = ReadBytes(Utf8Of(entry.path()));
    }
    return content;
}

std::string WithoutFolder(std::string text, const std::string& folder) {
    const std::size_t at = text.find(folder);
    return at == std::string::npos ? text : text.replace(at, folder.size(), "<folder>");
}

template <class Arrange>
Trial TryWith(const FileWork& work, Arrange arrange) {
    const TempFolder folder(QuickFolder());
    for (const auto& [name, bytes] : work.before) WriteBytes(folder / name, bytes);
    Trial trial;
    {
        const std::unique_ptr<CallScript> script = BeginScript();
        script->SkipFlushes();
        arrange(*script);
        trial.outcome = work.run(folder.Path());
        trial.calls = script->Made();
        trial.subjects = script->Subjects();
        trial.failed = script->FirstFailed();
        trial.leakedFiles = script->OpenFiles();
    }
    for (std::string& message : trial.outcome.messages) message = WithoutFolder(message, folder.Path());
    trial.after = ContentOf(folder.Path());
    const std::unique_ptr<Host> host = CreateHost("ventlock");
    for (const auto& [name, bytes] : trial.after) {
        if (!name.starts_with('.')) host->Files().Lock(folder / name);
    }
    trial.later = ContentOf(folder.Path());
    return trial;
}

void ExpectOnlyFilesOf(const FileWork& work, const Trial& clean, const FolderContent& content,
                       const std::string& allowedEnding) {
    for (const auto& [name, bytes] : content) {
        EXPECT_TRUE(work.before.contains(name) || clean.after.contains(name) ||
                    (!allowedEnding.empty() && name.ends_with(allowedEnding)))
            << name;
    }
}

}  // namespace

Trial Try(const FileWork& work) {
    return TryWith(work, [](CallScript& /*script*/) {});
}

Trial Try(const FileWork& work, const Fault& fault) {
    return TryWith(
        work, [&](CallScript& script) { script.FailAt(fault.call, fault.reason.error, fault.reason.stays); });
}

Trial TryStuttering(const FileWork& work) {
    return TryWith(work, [](CallScript& script) { script.Stutter(); });
}

void FailEveryCall(const char* name, const FileWork& work, std::size_t leastCalls, const CheckTrial& check,
                   const std::function<bool(std::size_t call)>& isTried) {
    const Trial clean = Try(work);
    ASSERT_TRUE(clean.outcome.isDone);
    ASSERT_EQ(clean.outcome.messages, std::vector<std::string>{});
    ASSERT_EQ(clean.leakedFiles, 0);
    const std::vector<FaultReason>& reasons = FaultReasons();
    std::size_t calls = 0;
    std::size_t cases = 0;
    for (std::size_t call = 0; call < clean.calls.size(); ++call) {
        if (isTried && !isTried(call)) continue;
        ++calls;
        for (const FaultReason& reason : reasons) {
            SCOPED_TRACE("call " + std::to_string(call) + ", " + clean.calls[call] + " " +
                         clean.subjects[call] + ": " + reason.name);
            const Trial trial = Try(work, Fault{call, reason});
            EXPECT_EQ(trial.leakedFiles, 0);
            check(clean, trial, {call, reason});
            ++cases;
        }
    }
    std::printf("file faults: %s: %zu calls x %zu reasons = %zu cases\n", name, calls, reasons.size(), cases);
    EXPECT_GE(calls, leastCalls);
    EXPECT_EQ(cases, calls * reasons.size());
}

void FillTheDisk(const FileWork& work, std::size_t step, const CheckTrial& check) {
    const Trial clean = Try(work);
    FaultReason reason = FullDisk();
    reason.stays = true;
    std::size_t room = 0;
    for (;; room += step) {
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        const Trial trial = TryWith(work, [&](CallScript& script) { script.LimitRoom(room, reason.error); });
        EXPECT_EQ(trial.leakedFiles, 0);
        if (!trial.failed) {
            EXPECT_EQ(trial.after, clean.after);
            break;
        }
        check(clean, trial, {*trial.failed, reason});
    }
    EXPECT_GT(room, 0U);
}

std::string BytesOf(const FolderContent& content, const std::string& name) {
    const auto found = content.find(name);
    return found == content.end() ? "<none>" : found->second;
}

void ExpectOldOrNew(const FileWork& work, const Trial& clean, const Trial& trial, const std::string& name) {
    const std::string bytes = BytesOf(trial.after, name);
    if (bytes == BytesOf(clean.after, name)) return;
    EXPECT_EQ(bytes, BytesOf(work.before, name)) << name;
}

void ExpectNothingBeside(const FileWork& work, const Trial& clean, const Trial& trial, const Fault& fault) {
    ExpectOnlyFilesOf(work, clean, trial.after, trial.calls[fault.call] == "unlink" ? ".lock" : "");
    ExpectOnlyFilesOf(work, clean, trial.later, "");
}

std::size_t LastReplacementBegins(const Trial& clean) {
    const ReplacingCalls names = CallsOfReplacing();
    const auto last = std::find(clean.calls.rbegin(), clean.calls.rend(), names.last);
    const auto first = std::find(last, clean.calls.rend(), names.first);
    return static_cast<std::size_t>(clean.calls.rend() - first) - 1;
}

std::string CauseOf(int number) {
    return std::string(DescriptionOf(static_cast<ErrorNumber>(number))) + " (" + std::to_string(number) + ")";
}

std::string TextOf(const Fault& fault, const Trial& trial, const std::string& name) {
    const auto number = static_cast<ErrorNumber>(NumberOf(fault, trial));
    return std::string(DescriptionOf(number)) + " \"<folder>/" + name +
           "\": " + SystemWords(fault.reason.error);
}

}  // namespace ventlock::test
