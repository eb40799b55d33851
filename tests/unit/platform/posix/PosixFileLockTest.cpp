#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "support/posix/ScriptedCalls.h"
#include "unit/platform/posix/Children.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

class FileLockTest : public testing::Test {
 protected:
    TempFolder folder_;
    PosixFiles impatient_{milliseconds(30)};
    PosixFiles patient_{std::chrono::seconds(60)};
};

TEST_F(FileLockTest, IsAFileBesideTheOneThatItGuardsAndGoesWithIt) {
    auto lock = patient_.Lock(folder_ / "a.ini");
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
    lock.reset();
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(FileLockTest, AnotherHolderIsWaitedForWithinTheBound) {
    const auto lock = patient_.Lock(folder_ / "a.ini");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(TextRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }),
              "Permission denied \"" + folder_ / "a.ini" + "\": Resource temporarily unavailable");
    EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(30));
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 70);
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "b.ini"); }), 0);
}

TEST_F(FileLockTest, NamesThatLeadToTheSameFileShareOneLock) {
    WriteBytes(folder_ / "a.ini", "");
    fs::create_symlink("a.ini", folder_ / "link.ini");
    fs::create_directory_symlink(folder_.Path(), folder_ / "here");
    auto lock = patient_.Lock(folder_ / "link.ini");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 70);
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "here/a.ini"); }), 70);
    lock.reset();
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 0);
}

TEST_F(FileLockTest, OutlastsTheReplacementOfItsFile) {
    const auto lock = patient_.Lock(folder_ / "a.ini");
    patient_.Replace(folder_ / "a.ini", "1");
    patient_.Replace(folder_ / "a.ini", "2");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 70);
}

TEST_F(FileLockTest, KeepsThreadsOfOneProgramApart) {
    constexpr int kThreads = 4;
    constexpr int kTimes = 50;
    std::atomic<int> holders = 0;
    std::atomic<bool> shared = false;
    int count = 0;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < kTimes; ++n) {
                const auto lock = patient_.Lock(folder_ / "a.ini");
                if (++holders != 1) shared = true;
                ++count;
                --holders;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_FALSE(shared);
    EXPECT_EQ(count, kThreads * kTimes);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(FileLockTest, KeepsProgramsApart) {
    const Signal held;
    const Signal release;
    Child other([&] {
        const auto lock = patient_.Lock(folder_ / "a.ini");
        held.Give();
        release.Await();
        return 0;
    });
    held.Await();
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 70);
    release.Give();
    EXPECT_EQ(NumberRaisedBy([&] { patient_.Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(other.ExitCode(), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(FileLockTest, OfAKilledProgramHoldsNobodyUp) {
    const Signal held;
    const Signal never;
    Child other([&] {
        const auto lock = patient_.Lock(folder_ / "a.ini");
        held.Give();
        never.Await();
        return 0;
    });
    held.Await();
    other.Kill();
    EXPECT_EQ(other.ExitCode(), -1);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(FileLockTest, ThatWasTakenAwayBetweenOpeningAndLockingIsTriedAgain) {
    WriteBytes(folder_ / ".a.ini.lock", "");
    ScriptedCalls script;
    script.BeforeFirst("flock", [&] {
        fs::remove(folder_ / ".a.ini.lock");
        WriteBytes(folder_ / ".a.ini.lock", "");
    });
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    const auto lock = files.Lock(folder_ / "a.ini");
    // Without the second try the lock would be held on a file that nobody else finds.
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 70);
}

TEST_F(FileLockTest, ThatIsGoneAfterLockingIsMadeAnew) {
    WriteBytes(folder_ / ".a.ini.lock", "");
    ScriptedCalls script;
    script.BeforeFirst("flock", [&] { fs::remove(folder_ / ".a.ini.lock"); });
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    const auto lock = files.Lock(folder_ / "a.ini");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 70);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
}

TEST_F(FileLockTest, ThatOnlyAnotherUserMayWriteIsHeldAllTheSame) {
    WriteBytes(folder_ / ".a.ini.lock", "");
    fs::permissions(folder_.Path(), fs::perms(0777));
    fs::permissions(folder_ / ".a.ini.lock", fs::perms(0444));
    EXPECT_EQ(
        ExitCodeAsOrdinaryUser([&] { return NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }); }),
        0);
}

TEST_F(FileLockTest, IsNoLinkNoFolderAndNoPipe) {
    WriteBytes(folder_ / "victim", "old");
    fs::create_symlink("victim", folder_ / ".a.ini.lock");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "a.ini"); }), 75);
    fs::create_directory(folder_ / ".b.ini.lock");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "b.ini"); }), 75);
    ASSERT_EQ(mkfifo((folder_ / ".c.ini.lock").c_str(), 0600), 0);
    EXPECT_EQ(NumberRaisedBy([&] { impatient_.Lock(folder_ / "c.ini"); }), 75);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock .b.ini.lock .c.ini.lock victim");
}

TEST_F(FileLockTest, EveryCallThatFailsIsReportedAndLeavesNoLockBehind) {
    for (const char* const call : {"lstat", "open", "flock", "fstat"}) {
        ScriptedCalls script;
        script.FailFirst(call, EIO);
        PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
        EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder_ / "a.ini"); }), 57) << call;
        EXPECT_EQ(folder_.Listing(), "") << call;
    }
}

TEST_F(FileLockTest, ThatAnotherHoldsStaysAfterAFailure) {
    const auto lock = patient_.Lock(folder_ / "a.ini");
    ScriptedCalls script;
    script.FailFirst("flock", EIO);
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder_ / "a.ini"); }), 57);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
}

TEST_F(FileLockTest, RemovesWhatAProgramThatWasKilledWhileReplacingTheFileOrItsBackupHasLeft) {
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
        patient_.Lock(folder_ / "a.ini");
        EXPECT_EQ(folder_.Listing(), "") << name;
    }
}

TEST_F(FileLockTest, LeavesTheTemporaryFilesOfOtherFilesAndFilesOfLikeNamesAlone) {
    const std::string digits(32, 'a');
    const std::string others = ".a.ini.ventlock-" + digits.substr(1) + ".tmp .a.ini.ventlock-" + digits +
                               ".old .a.ini2.ventlock-" + digits + ".tmp .b.ini.ventlock-" + digits + ".tmp";
    std::istringstream names(others);
    for (std::string name; names >> name;) WriteBytes(folder_ / name, "");
    WriteBytes(folder_ / (".a.ini.ventlock-" + digits + ".tmp"), "");
    patient_.Lock(folder_ / "a.ini");
    EXPECT_EQ(folder_.Listing(), others);
}

TEST_F(FileLockTest, IsHadInAFolderThatCannotBeRead) {
    ScriptedCalls script;
    script.FailFirst("list", EACCES);
    PosixFiles files(milliseconds(30), ScriptedCalls::Calls());
    EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

}  // namespace
}  // namespace ventlock::test
