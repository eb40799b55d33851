// What every single system call that fails makes of each operation on a file, and what is told of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/RunTimeError.h"
#include "platform/IFiles.h"
#include "support/FaultTrial.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// What is done to "a.ini" in a folder that holds `before`.
FileWork Work(const FolderContent& before,
              const std::function<void(IFiles& files, const std::string& path)>& operate) {
    return {before, [operate](const std::string& folder) -> Outcome {
                const std::unique_ptr<IFiles> files = ScriptedFiles();
                try {
                    operate(*files, folder + "/a.ini");
                } catch (const RunTimeError& error) {
                    return {false, {error.what()}};
                }
                return {true, {}};
            }};
}

/// A failure tells its cause and names the file.
void ExpectTold(const Trial& trial, const Fault& fault, const std::string& name = "a.ini") {
    if (trial.outcome.isDone) {
        EXPECT_THAT(trial.outcome.messages, IsEmpty());
    } else {
        EXPECT_THAT(trial.outcome.messages, ElementsAre(TextOf(fault, trial, name)));
    }
}

/// Every call fails, every byte is the last one that the disk takes.
void FailEveryCallAndByte(const char* name, const FileWork& work, std::size_t leastCalls,
                          const CheckTrial& check) {
    FailEveryCall(name, work, leastCalls, check);
    FillTheDisk(work, 1, check);
    EXPECT_EQ(TryStuttering(work).after, Try(work).after);
}

TEST(FileOperationFaults, OfALookLeaveNoTrace) {
    for (const FolderContent& before : {FolderContent{}, FolderContent{{"a.ini", "old"}}}) {
        const FileWork work =
            Work(before, [](IFiles& files, const std::string& path) { files.RequireReplaceable(path); });
        FailEveryCall("RequireReplaceable", work, 3,
                      [&](const Trial& /*clean*/, const Trial& trial, const Fault& fault) {
                          EXPECT_EQ(trial.after, before);
                          ExpectTold(trial, fault);
                      });
    }
}

TEST(FileOperationFaults, OfAQuestionForExistenceAreNoErrors) {
    const FolderContent before{{"a.ini", "old"}};
    const FileWork work = Work(before, [](IFiles& files, const std::string& path) { files.Exists(path); });
    FailEveryCall("Exists", work, 1, [&](const Trial& /*clean*/, const Trial& trial, const Fault& /*fault*/) {
        EXPECT_EQ(trial.after, before);
        EXPECT_TRUE(trial.outcome.isDone);
    });
}

TEST(FileOperationFaults, OfAReaderGiveNoPartOfAFile) {
    const FolderContent before{{"a.ini", "old"}};
    const FileWork work = Work(before, [](IFiles& files, const std::string& path) {
        const std::string bytes = files.ReadAll(path);
        EXPECT_EQ(bytes, "old");
    });
    FailEveryCall("ReadAll", work, 5, [&](const Trial& /*clean*/, const Trial& trial, const Fault& fault) {
        EXPECT_EQ(trial.after, before);
        ExpectTold(trial, fault);
    });
    EXPECT_TRUE(TryStuttering(work).outcome.isDone);
}

TEST(FileOperationFaults, OfAReaderOfTheBeginningAreTold) {
    const FolderContent before{{"a.ini", "old"}};
    const FileWork work = Work(before, [](IFiles& files, const std::string& path) {
        const std::string bytes = files.ReadBeginning(path, 2);
        EXPECT_EQ(bytes, "ol");
    });
    FailEveryCall("ReadBeginning", work, 4,
                  [&](const Trial& /*clean*/, const Trial& trial, const Fault& fault) {
                      EXPECT_EQ(trial.after, before);
                      ExpectTold(trial, fault);
                  });
    EXPECT_TRUE(TryStuttering(work).outcome.isDone);
}

TEST(FileOperationFaults, OfAReaderOfWhatMayBeMissingNeverMakeItMissing) {
    const FolderContent before{{"a.ini", "old"}};
    const FileWork work = Work(before, [](IFiles& files, const std::string& path) {
        const std::optional<std::string> bytes = files.ReadIfThere(path);
        EXPECT_EQ(bytes, "old");
    });
    FailEveryCall("ReadIfThere", work, 5,
                  [&](const Trial& /*clean*/, const Trial& trial, const Fault& fault) {
                      EXPECT_EQ(trial.after, before);
                      if (!trial.outcome.isDone) ExpectTold(trial, fault);
                  });
}

TEST(FileOperationFaults, OfAReplacementLeaveTheOldFileOrTheNewOne) {
    for (const FolderContent& before : {FolderContent{}, FolderContent{{"a.ini", "old"}}}) {
        const FileWork work =
            Work(before, [](IFiles& files, const std::string& path) { files.Replace(path, "new bytes"); });
        FailEveryCallAndByte("Replace", work, 11,
                             [&](const Trial& clean, const Trial& trial, const Fault& fault) {
                                 ExpectNothingBeside(work, clean, trial, fault);
                                 ExpectOldOrNew(work, clean, trial, "a.ini");
                                 ExpectTold(trial, fault);
                                 if (trial.outcome.isDone) {
                                     EXPECT_EQ(trial.after, clean.after);
                                 }
                             });
    }
}

TEST(FileOperationFaults, OfACopyNameTheFileThatTheyMet) {
    for (const FolderContent& before :
         {FolderContent{{"a.ini", "new bytes"}}, FolderContent{{"a.ini", "new bytes"}, {"b.ini", "old"}}}) {
        const FileWork work = Work(before, [](IFiles& files, const std::string& path) {
            files.Copy(path, path.substr(0, path.size() - 5) + "b.ini");
        });
        FailEveryCallAndByte("Copy", work, 16,
                             [&](const Trial& clean, const Trial& trial, const Fault& fault) {
                                 ExpectNothingBeside(work, clean, trial, fault);
                                 ExpectOldOrNew(work, clean, trial, "b.ini");
                                 EXPECT_EQ(trial.after.at("a.ini"), "new bytes");
                                 const bool isWriting = fault.call >= LastReplacementBegins(clean);
                                 ExpectTold(trial, fault, isWriting ? "b.ini" : "a.ini");
                             });
    }
}

TEST(FileOperationFaults, OfAnAppendTakeNothingAway) {
    for (const FolderContent& before : {FolderContent{}, FolderContent{{"a.ini", "old"}}}) {
        const FileWork work =
            Work(before, [](IFiles& files, const std::string& path) { files.Append(path, ", more"); });
        FailEveryCallAndByte("Append", work, 4,
                             [&](const Trial& clean, const Trial& trial, const Fault& fault) {
                                 ExpectNothingBeside(work, clean, trial, fault);
                                 ExpectTold(trial, fault);
                                 if (trial.outcome.isDone) {
                                     EXPECT_EQ(trial.after, clean.after);
                                 } else if (!before.empty()) {
                                     EXPECT_THAT(BytesOf(trial.after, "a.ini"), StartsWith("old"));
                                 }
                             });
    }
}

TEST(FileOperationFaults, OfALockLeaveNoneBehind) {
    const std::string leftOver = ".a.ini.ventlock-" + std::string(32, 'a') + ".tmp";
    const FolderContent files{{"a.ini", "old"}};
    FileWork work = Work(files, [](IFiles& all, const std::string& path) { all.Lock(path); });
    work.before[leftOver] = "half";
    FailEveryCall("Lock", work, 6, [&](const Trial& clean, const Trial& trial, const Fault& fault) {
        EXPECT_EQ(clean.after, files);
        ExpectNothingBeside(work, clean, trial, fault);
        EXPECT_EQ(trial.later, files);
        ExpectTold(trial, fault);
    });
}

}  // namespace
}  // namespace ventlock::test
