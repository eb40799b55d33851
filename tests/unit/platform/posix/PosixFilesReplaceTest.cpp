#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "support/posix/ScriptedCalls.h"
#include "unit/platform/posix/Children.h"
#include "unit/platform/posix/ProcessState.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

class ReplaceTest : public testing::Test {
 protected:
    TempFolder folder_;
    PosixFiles files_;
};

TEST_F(ReplaceTest, ANewFileGetsTheUsersOrdinaryMode) {
    const FileModeMask mask(027);
    files_.Replace(folder_ / "a.ini", "new");
    EXPECT_EQ(ModeOf(folder_ / "a.ini"), 0640);
}

TEST_F(ReplaceTest, AnExistingFileKeepsItsModeWhateverTheMask) {
    const FileModeMask mask(077);
    for (const int mode : {0600, 0644, 0664, 0666, 0755, 0222, 0200}) {
        WriteBytes(folder_ / "a.ini", "old");
        fs::permissions(folder_ / "a.ini", fs::perms(mode));
        files_.Replace(folder_ / "a.ini", "new");
        EXPECT_EQ(ModeOf(folder_ / "a.ini"), mode);
        fs::permissions(folder_ / "a.ini", fs::perms(0600));
        EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new");
    }
}

TEST_F(ReplaceTest, AnExistingFileKeepsItsOwner) {
    WriteBytes(folder_ / "a.ini", "old");
    if (geteuid() == 0) {
        ASSERT_EQ(chown((folder_ / "a.ini").c_str(), 4321, 1234), 0);
    }
    fs::permissions(folder_ / "a.ini", fs::perms(0660));
    const struct stat before = FactsOf(folder_ / "a.ini");
    files_.Replace(folder_ / "a.ini", "new");
    const struct stat after = FactsOf(folder_ / "a.ini");
    EXPECT_NE(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(ModeOf(folder_ / "a.ini"), 0660);
}

TEST_F(ReplaceTest, AnOwnerThatTheUserMayNotGiveAwayIsNoFailure) {
    WriteBytes(folder_ / "a.ini", "old");
    fs::permissions(folder_ / "a.ini", fs::perms(0640));
    ScriptedCalls script;
    script.FailFirst("fchown", EPERM);
    PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
    files.Replace(folder_ / "a.ini", "new");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new");
    EXPECT_EQ(ModeOf(folder_ / "a.ini"), 0640);
}

TEST_F(ReplaceTest, ALinkIsKeptAndItsFileReplaced) {
    fs::create_directory(folder_ / "real");
    WriteBytes(folder_ / "real/a.ini", "old");
    fs::create_symlink("real/a.ini", folder_ / "relative.ini");
    fs::create_symlink(folder_ / "relative.ini", folder_ / "chain.ini");
    files_.RequireReplaceable(folder_ / "chain.ini");
    files_.Replace(folder_ / "chain.ini", "new");
    EXPECT_EQ(ReadBytes(folder_ / "real/a.ini"), "new");
    EXPECT_FALSE(fs::is_symlink(folder_ / "real/a.ini"));
    EXPECT_EQ(fs::read_symlink(folder_ / "relative.ini"), "real/a.ini");
    EXPECT_EQ(fs::read_symlink(folder_ / "chain.ini"), folder_ / "relative.ini");
    EXPECT_EQ(folder_.Listing(), "chain.ini real relative.ini");
}

TEST_F(ReplaceTest, ALinkToAMissingFileMakesThatFile) {
    fs::create_directory(folder_ / "real");
    fs::create_symlink("real/a.ini", folder_ / "link.ini");
    files_.Replace(folder_ / "link.ini", "new");
    EXPECT_EQ(ReadBytes(folder_ / "real/a.ini"), "new");
    EXPECT_TRUE(fs::is_symlink(folder_ / "link.ini"));
}

TEST_F(ReplaceTest, ALinkIntoAMissingFolderIs76AndOneInACircleIs75) {
    fs::create_symlink("missing/a.ini", folder_ / "link.ini");
    fs::create_symlink("b", folder_ / "a");
    fs::create_symlink("a", folder_ / "b");
    EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(folder_ / "link.ini", "new"); }), 76);
    EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(folder_ / "a", "new"); }), 75);
    EXPECT_EQ(folder_.Listing(), "a b link.ini");
}

TEST_F(ReplaceTest, AChainOf39LinksIsFollowedAndALongerOneRefused) {
    WriteBytes(folder_ / "0", "old");
    for (int link = 1; link <= 40; ++link)
        fs::create_symlink(std::to_string(link - 1), folder_ / std::to_string(link));
    files_.Replace(folder_ / "39", "new");
    EXPECT_EQ(ReadBytes(folder_ / "0"), "new");
    EXPECT_EQ(NumberRaisedBy([&] { files_.Replace(folder_ / "40", "newer"); }), 75);
    EXPECT_EQ(ReadBytes(folder_ / "0"), "new");
}

TEST_F(ReplaceTest, AWriteGoesOnHoweverLittleIsTakenAtOnceAndHoweverOftenItIsInterrupted) {
    ScriptedCalls script;
    script.Stutter();
    PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
    files.Replace(folder_ / "a.ini", "[Section]\r\nkey=value\r\n");
    EXPECT_EQ(files.ReadAll(folder_ / "a.ini"), "[Section]\r\nkey=value\r\n");
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(ReplaceTest, AProgramWithoutAStandardInputReplacesItsFileAllTheSame) {
    Child program([&] {
        close(STDIN_FILENO);  // the temporary file has the descriptor 0 then
        files_.Replace(folder_ / "a.ini", "new");
        return 0;
    });
    EXPECT_EQ(program.ExitCode(), 0);
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new");
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(ReplaceTest, AReaderSeesTheOldBytesOrTheNewOnes) {
    WriteBytes(folder_ / "a.ini", "old");
    std::string seen;
    ScriptedCalls script;
    script.BeforeFirst("rename", [&] { seen = ReadBytes(folder_ / "a.ini"); });
    PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
    files.Replace(folder_ / "a.ini", "new");
    EXPECT_EQ(seen, "old");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new");
}

/// The calls of one Replace of an existing file.
const std::vector<std::string> kCallsOfReplace{
    "lstat",   // the target
    "access",  // may it be written
    "access",  // may its folder be written
    "open",    // the temporary file
    "fchown", "fchmod", "write", "fsync", "close",
    "open",  // the folder
    "rename",
    "fsync",  // the folder
    "close",
};
constexpr std::size_t kOpenFolder = 9;
constexpr std::size_t kRename = 10;
constexpr std::size_t kCloseFolder = 12;

TEST_F(ReplaceTest, BytesAndNameAreBroughtToTheDiskInOrder) {
    WriteBytes(folder_ / "a.ini", "old");
    ScriptedCalls script;
    PosixFiles(std::chrono::seconds(1), ScriptedCalls::Calls()).Replace(folder_ / "a.ini", "new");
    EXPECT_EQ(script.Made(), kCallsOfReplace);
}

TEST_F(ReplaceTest, TheTemporaryFileStandsBesideTheFileUnderAnUnforeseeableNameThatNobodyElseHas) {
    ScriptedCalls script;
    PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
    files.Replace(folder_ / "a.ini", "1");
    files.Replace(folder_ / "a.ini", "2");
    ASSERT_EQ(script.Opened().size(), 4U);  // each time the temporary file, then the folder
    const auto [first, flags] = script.Opened()[0];
    const std::string second = script.Opened()[2].first;
    EXPECT_EQ(flags, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC);
    EXPECT_EQ(fs::path(first).parent_path(), folder_.Path());
    EXPECT_THAT(fs::path(first).filename().string(),
                testing::MatchesRegex("\\.a\\.ini\\.ventlock-[0-9a-f]{32}\\.tmp"));
    EXPECT_NE(first, second);
}

TEST_F(ReplaceTest, ATemporaryNameThatIsTakenIsPassedOver) {
    ScriptedCalls script;
    script.FailFirst("open", EEXIST);
    PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
    files.Replace(folder_ / "a.ini", "new");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "new");
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

class ReplaceFailureTest : public testing::TestWithParam<int> {
 protected:
    /// Lets the call at `index` of a Replace fail; the number raised.
    int NumberOfFailure(std::size_t index) {
        ScriptedCalls script;
        script.FailAt(index, GetParam());
        PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
        return NumberRaisedBy([&] { files.Replace(folder_ / "a.ini", "new"); });
    }

    static int ExpectedNumber() {
        const std::map<int, int> numbers{{ENOSPC, 61}, {EIO, 57}, {EACCES, 75}, {EROFS, 75}, {EMFILE, 67}};
        return numbers.at(GetParam());
    }

    TempFolder folder_;
};

TEST_P(ReplaceFailureTest, EveryCallThatFailsLeavesAWholeFileAndNothingBesideIt) {
    const int openFiles = OpenFileCount();
    for (std::size_t index = 0; index < kCallsOfReplace.size(); ++index) {
        WriteBytes(folder_ / "a.ini", "old");
        const bool isHarmless = index == kCloseFolder ||
                                (index == kOpenFolder && GetParam() == EACCES);  // both come after the bytes
        EXPECT_EQ(NumberOfFailure(index), isHarmless ? 0 : ExpectedNumber())
            << kCallsOfReplace[index] << ' ' << index;
        const bool isReplaced = index > kRename || isHarmless;
        EXPECT_EQ(ReadBytes(folder_ / "a.ini"), isReplaced ? "new" : "old")
            << kCallsOfReplace[index] << ' ' << index;
        EXPECT_EQ(folder_.Listing(), "a.ini") << kCallsOfReplace[index] << ' ' << index;
        EXPECT_EQ(OpenFileCount(), openFiles) << kCallsOfReplace[index] << ' ' << index;
    }
}

TEST_P(ReplaceFailureTest, EveryCallThatFailsForANewFileLeavesNothing) {
    // lstat, stat and access of the folder, then as for an existing file but without owner and mode.
    constexpr std::size_t kRenameOfNew = 8;
    for (std::size_t index = 0; index <= kRenameOfNew; ++index) {
        if (index == kRenameOfNew - 1 && GetParam() == EACCES) continue;  // a folder that cannot be read
        EXPECT_EQ(NumberOfFailure(index), ExpectedNumber()) << index;
        EXPECT_EQ(folder_.Listing(), "") << index;
    }
}

INSTANTIATE_TEST_SUITE_P(Reasons, ReplaceFailureTest, testing::Values(ENOSPC, EIO, EACCES, EROFS, EMFILE),
                         [](const testing::TestParamInfo<int>& reason) {
                             return std::string(strerrorname_np(reason.param));
                         });

}  // namespace
}  // namespace ventlock::test
