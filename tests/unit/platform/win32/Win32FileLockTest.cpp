#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/win32/Win32Files.h"
#include "unit/platform/FilesTest.h"
#include "unit/platform/win32/Children.h"
#include "unit/platform/win32/FileFacts.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

using Win32FileLockTest = FileLockTest;

TEST_F(Win32FileLockTest, IsAHiddenFile) {
    const auto lock = patient_->Lock(folder_ / "a.ini");
    EXPECT_NE(AttributesOf(folder_ / ".a.ini.lock") & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(Win32FileLockTest, IsTriedAgainAfterEveryPause) {
    auto lock = patient_->Lock(folder_ / "a.ini");
    int pauses = 0;
    Win32Files other(std::chrono::seconds(60), [&](milliseconds) {
        if (++pauses == 3) lock.reset();
    });
    const auto second = other.Lock(folder_ / "a.ini");
    EXPECT_EQ(pauses, 3);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
}

TEST_F(Win32FileLockTest, NamesThatLeadToTheSameFileShareOneLock) {
    for (const bool isThere : {false, true}) {
        if (isThere) WriteBytes(folder_ / "a.ini", "");
        auto lock = patient_->Lock(folder_ / "a.ini");
        EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "A.Ini"); }), 70);
        EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_.Path() + "/./a.ini"); }), 70);
        lock.reset();
        EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "A.Ini"); }), 0);
    }
}

TEST_F(Win32FileLockTest, OfALinkIsThatOfItsFile) {
    WriteBytes(folder_ / "a.ini", "");
    if (!MakeLink(folder_ / "link.ini", "a.ini")) GTEST_SKIP() << "this user can make no links";
    const auto lock = patient_->Lock(folder_ / "link.ini");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock a.ini link.ini");
}

TEST_F(Win32FileLockTest, KeepsProgramsApart) {
    const Signal held(folder_.Path(), "held");
    const Signal release(folder_.Path(), "release");
    const Child other(kHoldLock, folder_.Path());
    held.Await();
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
    release.Give();
    EXPECT_EQ(NumberRaisedBy([&] { patient_->Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(other.ExitCode(), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(Win32FileLockTest, OfAKilledProgramHoldsNobodyUpAndLeavesNothing) {
    const Signal held(folder_.Path(), "held");
    const Child other(kHoldLock, folder_.Path());
    held.Await();
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 70);
    other.Kill();
    EXPECT_NE(other.ExitCode(), 0);
    EXPECT_EQ(NumberRaisedBy([&] { patient_->Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(Win32FileLockTest, OneThatALossOfPowerLeftBehindHoldsNobodyUp) {
    WriteBytes(folder_ / ".a.ini.lock", "");
    EXPECT_EQ(NumberRaisedBy([&] { impatient_->Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(Win32FileLockTest, RemovesWhatAnEndedProgramHasLeftOfTheFileAndItsBackupAndNothingElse) {
    const std::string digits(32, 'a');
    for (const std::string name : {"a.ini", "a.ini.bak", "a.ini2", "b.ini"}) {
        WriteBytes(folder_ / ("." + name + ".ventlock-" + digits + ".tmp"), "");
    }
    WriteBytes(folder_ / (".a.ini.ventlock-" + digits.substr(1) + ".tmp"), "");
    patient_->Lock(folder_ / "a.ini");
    EXPECT_EQ(folder_.Listing(), ".a.ini.ventlock-" + digits.substr(1) + ".tmp .a.ini2.ventlock-" + digits +
                                     ".tmp .b.ini.ventlock-" + digits + ".tmp");
}

TEST_F(Win32FileLockTest, AFolderInItsPlaceIs75AtOnce) {
    fs::create_directory(folder_ / ".a.ini.lock");
    int pauses = 0;
    Win32Files files(std::chrono::seconds(60), [&](milliseconds) { ++pauses; });
    EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder_ / "a.ini"); }), 75);
    EXPECT_EQ(pauses, 0);
    EXPECT_EQ(folder_.Listing(), ".a.ini.lock");
}

}  // namespace
}  // namespace ventlock::test
