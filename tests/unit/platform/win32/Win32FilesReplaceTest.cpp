#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "platform/win32/ReplacementFile.h"
#include "platform/win32/Win32Files.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "unit/platform/win32/Children.h"
#include "unit/platform/win32/FileFacts.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// Files whose pauses take no time; what is done in them is the test's.
class Win32ReplaceTest : public testing::Test {
 protected:
    /// All that was waited for.
    [[nodiscard]] milliseconds Waited() const { return waited_; }

    TempFolder folder_;
    milliseconds waited_{0};
    std::function<void()> duringPause_ = [] {};
    Win32Files files_{std::chrono::seconds(10), [this](milliseconds time) {
                          waited_ += time;
                          duringPause_();
                      }};
};

constexpr DWORD kShareEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr milliseconds kBound(1000);

TEST_F(Win32ReplaceTest, AnExistingFileKeepsItsAttributes) {
    WriteBytes(folder_ / "a.ini", "old");
    for (const DWORD attributes : std::vector<DWORD>{FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM,
                                                     FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}) {
        const FileAttributes set(folder_ / "a.ini", attributes | FILE_ATTRIBUTE_ARCHIVE);
        files_.Replace(folder_ / "a.ini", "new");
        EXPECT_EQ(AttributesOf(folder_ / "a.ini"), attributes | FILE_ATTRIBUTE_ARCHIVE);
    }
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new");
}

TEST_F(Win32ReplaceTest, ANewFileIsAnOrdinaryOne) {
    files_.Replace(folder_ / "a.ini", "new");
    EXPECT_EQ(AttributesOf(folder_ / "a.ini") &
                  (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM),
              0U);
}

TEST_F(Win32ReplaceTest, AnExistingFileKeepsItsAccessList) {
    WriteBytes(folder_ / "ordinary.ini", "old");
    WriteBytes(folder_ / "a.ini", "old");
    const std::string ordinary = AccessListOf(folder_ / "ordinary.ini");
    SetAccessList(folder_ / "a.ini", "D:P(A;;FA;;;" + OwnerOf(folder_ / "a.ini") + ")");
    const std::string before = AccessListOf(folder_ / "a.ini");
    ASSERT_NE(before, ordinary);
    files_.Replace(folder_ / "a.ini", "new");
    EXPECT_EQ(AccessListOf(folder_ / "a.ini"), before);
    files_.Replace(folder_ / "ordinary.ini", "new");
    EXPECT_EQ(AccessListOf(folder_ / "ordinary.ini"), ordinary);
    EXPECT_EQ(folder_.Listing(), "a.ini ordinary.ini");
}

TEST_F(Win32ReplaceTest, AFileDoesWithoutItsAccessListOnlyWhereTheSystemRefusesIt) {
    for (const DWORD code :
         std::vector<DWORD>{ERROR_ACCESS_DENIED, ERROR_NOT_SUPPORTED, ERROR_INVALID_FUNCTION}) {
        EXPECT_TRUE(IsAccessListRefused(code)) << code;
    }
    for (const DWORD code :
         std::vector<DWORD>{ERROR_SUCCESS, ERROR_FILE_EXISTS, ERROR_SHARING_VIOLATION, ERROR_INVALID_ACL,
                            ERROR_INVALID_SECURITY_DESCR, ERROR_DISK_FULL, ERROR_IO_DEVICE}) {
        EXPECT_FALSE(IsAccessListRefused(code)) << code;
    }
}

TEST_F(Win32ReplaceTest, TheNameKeepsItsSpelling) {
    WriteBytes(folder_ / "Pyx.ini", "old");
    files_.Replace(folder_ / "PYX.INI", "new");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
    EXPECT_EQ(ReadBytes(folder_ / "Pyx.ini"), "new");
}

TEST_F(Win32ReplaceTest, AHolderThatSharesNothingIs70BeforeAnythingIsWritten) {
    WriteBytes(folder_ / "a.ini", "old");
    std::string seen;
    duringPause_ = [&] { seen = folder_.Listing(); };
    FileHandle holder = HoldOpen(folder_ / "a.ini", 0);
    EXPECT_EQ(TextRaisedBy([&] { files_.Replace(folder_ / "a.ini", "new"); }),
              "Permission denied \"" + folder_ / "a.ini" + "\": " + SystemWords(ERROR_SHARING_VIOLATION));
    EXPECT_EQ(Waited(), kBound);
    EXPECT_EQ(seen, "a.ini");
    EXPECT_EQ(folder_.Listing(), "a.ini");
    holder.Close();
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
}

TEST_F(Win32ReplaceTest, AHolderThatSharesNothingIs70ForEveryOperationButTheLock) {
    WriteBytes(folder_ / "a.ini", "old");
    const FileHandle holder = HoldOpen(folder_ / "a.ini", 0);
    const std::map<std::string, std::function<void()>> operations{
        {"RequireReplaceable", [&] { files_.RequireReplaceable(folder_ / "a.ini"); }},
        {"ReadAll", [&] { files_.ReadAll(folder_ / "a.ini"); }},
        {"Copy", [&] { files_.Copy(folder_ / "a.ini", folder_ / "b.ini"); }},
        {"Append", [&] { files_.Append(folder_ / "a.ini", "new"); }}};
    for (const auto& [name, operation] : operations) {
        waited_ = milliseconds(0);
        EXPECT_EQ(NumberRaisedBy(operation), 70) << name;
        EXPECT_EQ(Waited(), kBound) << name;
    }
    EXPECT_TRUE(files_.Exists(folder_ / "a.ini"));
    EXPECT_EQ(NumberRaisedBy([&] { files_.Lock(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(Win32ReplaceTest, AHolderThatLetsGoWithinTheBoundIsWaitedFor) {
    for (const DWORD share : std::vector<DWORD>{0, FILE_SHARE_READ, kShareEverything}) {
        WriteBytes(folder_ / "a.ini", "old");
        const std::string round = std::to_string(share);
        const Signal waiting(folder_.Path(), "waiting " + round);
        const Signal released(folder_.Path(), "released " + round);
        FileHandle holder = HoldOpen(folder_ / "a.ini", share);
        std::thread other([&] {
            waiting.Await();
            holder.Close();
            released.Give();
        });
        duringPause_ = [&] {
            waiting.Give();
            released.Await();
        };
        waited_ = milliseconds(0);
        EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(folder_ / "a.ini", "new"); }), 0) << share;
        waiting.Give();
        other.join();
        EXPECT_EQ(Waited(), milliseconds(5)) << share << ": the second try is the last";
        EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new") << share;
        EXPECT_EQ(folder_.Listing(), "a.ini") << share;
    }
}

TEST_F(Win32ReplaceTest, AReaderAndAnAppendAreWaitedForLikewise) {
    WriteBytes(folder_ / "a.ini", "old");
    FileHandle holder = HoldOpen(folder_ / "a.ini", 0);
    duringPause_ = [&] { holder.Close(); };
    EXPECT_EQ(files_.ReadAll(folder_ / "a.ini"), "old");
    EXPECT_EQ(Waited(), milliseconds(5));
    holder = HoldOpen(folder_ / "a.ini", 0);
    files_.Append(folder_ / "a.ini", "+");
    EXPECT_EQ(Waited(), milliseconds(10));
    EXPECT_EQ(files_.ReadAll(folder_ / "a.ini"), "old+");
}

/// The temporary file among the names of a listing, "" without one.
std::string TemporaryIn(const std::string& listing) {
    const std::size_t begin = listing.find(".a.ini.ventlock-");
    return begin == std::string::npos ? "" : listing.substr(begin, listing.find(' ', begin) - begin);
}

TEST_F(Win32ReplaceTest, AReaderThatSharesAllIs70WithTheOldFileWholeAndNothingBesideIt) {
    WriteBytes(folder_ / "a.ini", "old");
    const FileHandle reader = HoldOpen(folder_ / "a.ini", kShareEverything);
    std::vector<std::string> temporaries;
    std::string seen;
    duringPause_ = [&] {
        temporaries.push_back(TemporaryIn(folder_.Listing()));
        seen = ReadBytes(folder_ / "a.ini") + ReadBytes(folder_ / temporaries.back());
    };
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(folder_ / "a.ini", "new"); }), 70);
        EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
        EXPECT_EQ(folder_.Listing(), "a.ini");
    }
    EXPECT_EQ(Waited(), 2 * kBound);
    EXPECT_EQ(seen, "oldnew");
    ASSERT_EQ(temporaries.size(), 16U);
    EXPECT_TRUE(temporaries.front().ends_with(".tmp")) << temporaries.front();
    EXPECT_EQ(temporaries.front().find_first_not_of("0123456789abcdef", 16), 48U) << temporaries.front();
    EXPECT_EQ(temporaries.front().size(), 52U);
    EXPECT_EQ(temporaries.front(), temporaries[7]);
    EXPECT_NE(temporaries.front(), temporaries.back());
}

TEST_F(Win32ReplaceTest, WhatCanBeSeenBeforehandIsToldWithoutATrace) {
    EXPECT_EQ(NumberRaisedBy([&] { files_.RequireReplaceable(folder_ / "a.ini"); }), 0);
    EXPECT_EQ(folder_.Listing(), "");
    WriteBytes(folder_ / "a.ini", "old");
    const FILETIME before = FactsOf(folder_ / "a.ini").ftLastWriteTime;
    EXPECT_EQ(NumberRaisedBy([&] { files_.RequireReplaceable(folder_ / "a.ini"); }), 0);
    const FILETIME after = FactsOf(folder_ / "a.ini").ftLastWriteTime;
    EXPECT_EQ(CompareFileTime(&before, &after), 0);
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(Win32ReplaceTest, ALinkIsKeptAndItsFileReplaced) {
    fs::create_directory(folder_ / "real");
    WriteBytes(folder_ / "real\\a.ini", "old");
    if (!MakeLink(folder_ / "link.ini", "real/a.ini")) GTEST_SKIP() << "this user can make no links";
    ASSERT_EQ(ReadBytes(folder_ / "link.ini"), "old");
    files_.RequireReplaceable(folder_ / "link.ini");
    files_.Replace(folder_ / "link.ini", "new");
    EXPECT_EQ(ReadBytes(folder_ / "real\\a.ini"), "new");
    EXPECT_EQ(ReadBytes(folder_ / "link.ini"), "new");
    files_.Replace(folder_ / "real\\a.ini", "newer");
    EXPECT_EQ(ReadBytes(folder_ / "link.ini"), "newer");
    files_.Append(folder_ / "link.ini", "+");
    EXPECT_EQ(ReadBytes(folder_ / "real\\a.ini"), "newer+");
    EXPECT_EQ(folder_.Listing(), "link.ini real");
}

TEST_F(Win32ReplaceTest, ALinkInACircleIs75) {
    if (!MakeLink(folder_ / "a", "b") || !MakeLink(folder_ / "b", "a")) {
        GTEST_SKIP() << "this user can make no links";
    }
    EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(folder_ / "a", "new"); }), 75);
    EXPECT_FALSE(files_.Exists(folder_ / "a"));
    EXPECT_EQ(folder_.Listing(), "a b");
}

TEST_F(Win32ReplaceTest, ALinkThatLeadsNowhereIs75AndStays) {
    if (!MakeLink(folder_ / "link.ini", "missing.ini")) GTEST_SKIP() << "this user can make no links";
    EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(folder_ / "link.ini", "new"); }), 75);
    EXPECT_FALSE(files_.Exists(folder_ / "link.ini"));
    EXPECT_EQ(folder_.Listing(), "link.ini");
}

}  // namespace
}  // namespace ventlock::test
