#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "support/posix/ScriptedCalls.h"
#include "unit/platform/FilesTest.h"
#include "unit/platform/posix/Children.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

using PosixFileLockTest = FileLockTest;

TEST_F(PosixFileLockTest, NamesThatLeadToTheSameFileShareOneLock) {
    WriteBytes(folder_ / "a.ini", "");
    fs::create_symlink("a.ini", folder_ / "link.ini");
    fs::create_directory_symlink(folder_.Path(), folder_ / "here");
    auto lock = patient_->Lock(folder_ / "link.ini");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "here/a.ini"); }), 70);
    lock.reset();
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 0);
}

TEST_F(PosixFileLockTest, KeepsProgramsApart) {
    const Signal held;
    const Signal release;
    Child other([&] {
        const auto lock = patient_->Lock(folder_ / "a.ini");
        held.Give();
        release.Await();
        return 0;
    });
    held.Await();
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
    release.Give();
    EXPECT_EQ(NumberRaisedBy([&] { patient_->Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(other.ExitCode(), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(PosixFileLockTest, OfAKilledProgramHoldsNobodyUp) {
    const Signal held;
    const Signal never;
    Child other([&] {
        const auto lock = patient_->Lock(folder_ / "a.ini");
        held.Give();
        never.Await();
        return 0;
    });
    held.Await();
    other.Kill();
    EXPECT_EQ(other.ExitCode(), -1);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(PosixFileLockTest, ThatWasTakenAwayBetweenOpeningAndLockingIsTriedAgain) {
    WriteBytes(folder_ / ".a.ini.lock", "");
    ScriptedCalls script;
    script.BeforeFirst("flock", [&] {
        fs::remove(folder_ / ".a.ini.lock");
        WriteBytes(folder_ / ".a.ini.lock", "");
    });
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    const auto lock = files.Lock(folder_ / "a.ini");
    // Without the second try the lock would be held on a file that nobody else finds.
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
}

TEST_F(PosixFileLockTest, ThatIsGoneAfterLockingIsMadeAnew) {
    WriteBytes(folder_ / ".a.ini.lock", "");
    ScriptedCalls script;
    script.BeforeFirst("flock", [&] { fs::remove(folder_ / ".a.ini.lock"); });
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    const auto lock = files.Lock(folder_ / "a.ini");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
}

TEST_F(PosixFileLockTest, ThatOnlyAnotherUserMayWriteIsHeldAllTheSame) {
    WriteBytes(folder_ / ".a.ini.lock", "");
    fs::permissions(folder_.Path(), fs::perms(0777));
    fs::permissions(folder_ / ".a.ini.lock", fs::perms(0444));
    EXPECT_EQ(
        ExitCodeAsOrdinaryUser([&] { return NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }); }),
        0);
}

TEST_F(PosixFileLockTest, IsNoLinkNoFolderAndNoPipe) {
    WriteBytes(folder_ / "victim", "old");
    fs::create_symlink("victim", folder_ / ".a.ini.lock");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 75);
    fs::create_directory(folder_ / ".b.ini.lock");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "b.ini"); }), 75);
    ASSERT_EQ(mkfifo((folder_ / ".c.ini.lock").c_str(), 0600), 0);
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "c.ini"); }), 75);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock .b.ini.lock .c.ini.lock victim");
}

TEST_F(PosixFileLockTest, EveryCallThatFailsIsReportedAndLeavesNoLockBehind) {
    for (const char* const call : {"lstat", "open", "flock", "fstat"}) {
        ScriptedCalls script;
        script.FailFirst(call, EIO);
        PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
        EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder_ / "a.ini"); }), 57) << call;
        EXPECT_EQ(folder_.Listing(), "") << call;
    }
}

TEST_F(PosixFileLockTest, ThatAnotherHoldsStaysAfterAFailure) {
    const auto lock = patient_->Lock(folder_ / "a.ini");
    ScriptedCalls script;
    script.FailFirst("flock", EIO);
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder_ / "a.ini"); }), 57);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
}

TEST_F(PosixFileLockTest, RemovesWhatAProgramThatWasKilledWhileReplacingTheFileOrItsBackupHasLeft) {
    for (const std::string name : {"a.ini", "a.ini.bak"}) {
        const Signal writing;
        const Signal never;
        Child other([&] {
            ScriptedCalls script;
            script.BeforeFirst("rename", [&] {
                writing.Give();
                never.Await();
            });
            PosixFiles(milliseconds(0), ScriptedCalls::Calls()).Replace(folder_ / name, "new");
            return 0;
        });
        writing.Await();
        other.Kill();
        EXPECT_EQ(other.ExitCode(), -1);
        EXPECT_THAT(folder_.Listing(),
                    testing::MatchesRegex("\\." + name + "\\.ventlock-[0-9a-f]{32}\\.tmp"));
        patient_->Lock(folder_ / "a.ini");
        EXPECT_EQ(folder_.Listing(), "") << name;
    }
}

TEST_F(PosixFileLockTest, LeavesTheTemporaryFilesOfOtherFilesAndFilesOfLikeNamesAlone) {
    const std::string digits(32, 'a');
    const std::string others = ".a.ini.ventlock-" + digits.substr(1) + ".tmp .a.ini.ventlock-" + digits +
                               ".old .a.ini2.ventlock-" + digits + ".tmp .b.ini.ventlock-" + digits + ".tmp";
    std::istringstream names(others);
    for (std::string name; names >> name;) WriteBytes(folder_ / name, "");
    WriteBytes(folder_ / (".a.ini.ventlock-" + digits + ".tmp"), "");
    patient_->Lock(folder_ / "a.ini");
    EXPECT_EQ(folder_.Listing(), others);
}

TEST_F(PosixFileLockTest, IsHadInAFolderThatCannotBeRead) {
    ScriptedCalls script;
    script.FailFirst("list", EACCES);
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

}  // namespace
}  // namespace ventlock::test
