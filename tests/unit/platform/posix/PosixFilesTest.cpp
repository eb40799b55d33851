#include "platform/posix/PosixFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/WorkingFolder.h"
#include "support/posix/ScriptedCalls.h"
#include "unit/platform/FilesTest.h"
#include "unit/platform/posix/Children.h"
#include "unit/platform/posix/ProcessState.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

using PosixFilesTest = FilesTest;

TEST_F(PosixFilesTest, ExistenceIsTrueOnlyForAnExistingRegularFile) {
    WriteBytes(folder_ / "a.ini", "");
    fs::create_symlink("a.ini", folder_ / "link.ini");
    fs::create_symlink("nothing", folder_ / "dangling.ini");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_TRUE(files_->Exists(folder_ / "a.ini"));
    EXPECT_TRUE(files_->Exists(folder_ / "link.ini"));
    for (const std::string& path :
         {std::string(), std::string("   "), folder_.Path(), folder_ / "", folder_ / "*.ini",
          folder_ / "A.INI", folder_ / "missing", folder_ / "missing/a.ini", folder_ / "a.ini/b",
          folder_ / "dangling.ini", folder_ / "pipe", std::string("C:\\a.ini"),
          folder_ / std::string("a.ini\0x", 7), folder_ / std::string(300, 'x')}) {
        EXPECT_FALSE(files_->Exists(path)) << path;
    }
}

TEST_F(PosixFilesTest, AFolderListsWhatItHoldsButFolders) {
    const std::string odd = "caf\xE9 \xFF.ini";
    WriteBytes(folder_ / odd, "");
    WriteBytes(folder_ / ".hidden", "");
    fs::create_directory(folder_ / "below");
    fs::create_symlink("below", folder_ / "to-a-folder");
    fs::create_symlink(odd, folder_ / "to-a-file");
    fs::create_symlink("nowhere", folder_ / "to-nothing");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_THAT(files_->FilesIn(folder_.Path()).value(),
                testing::UnorderedElementsAre(odd, ".hidden", "to-a-file", "to-nothing", "pipe"));
    EXPECT_THAT(files_->FilesIn(folder_ / "to-a-folder").value(), testing::IsEmpty());
    EXPECT_THAT(files_->FilesIn(folder_ / "below/").value(), testing::IsEmpty());
}

TEST_F(PosixFilesTest, WhatIsNoFolderListsNothing) {
    WriteBytes(folder_ / "a.ini", "");
    using namespace std::string_literals;
    for (const std::string& path : {folder_ / "a.ini", folder_ / "a.ini/", folder_ / "none", ""s, " "s,
                                    "C:\\Windows"s, folder_.Path() + "\0"s}) {
        EXPECT_EQ(files_->FilesIn(path), std::nullopt) << path;
    }
}

TEST_F(PosixFilesTest, AFolderThatCannotBeReadRaisesTheSystemsReason) {
    FileCalls calls = SystemFileCalls();
    calls.list = [](const char*, std::vector<std::string>& names) {
        names.emplace_back("a.ini");
        errno = EIO;
        return -1;
    };
    PosixFiles failing(kLockPatience, calls);
    EXPECT_EQ(NumberRaisedBy([&] { failing.FilesIn(folder_.Path()); }), 57);
}

TEST_F(PosixFilesTest, AFileThatIsLongerThanTheSystemSaysIsReadWhole) {
    const std::string path = "/proc/version";  // a file of no size, as far as the system tells
    ASSERT_EQ(fs::file_size(path), 0U);
    ASSERT_GT(ReadBytes(path).size(), 10U);
    EXPECT_EQ(files_->ReadAll(path), ReadBytes(path));
}

TEST_F(PosixFilesTest, AFileThatGrowsWhileItIsReadIsReadWhole) {
    const std::string bytes(100000, 'x');
    WriteBytes(folder_ / "a.ini", bytes);
    FileCalls calls = SystemFileCalls();
    calls.fstat = [](int descriptor, struct stat* facts) {
        const int result = fstat(descriptor, facts);
        facts->st_size = 1;
        return result;
    };
    PosixFiles files(kLockPatience, calls);
    EXPECT_TRUE(files.ReadAll(folder_ / "a.ini") == bytes);
}

TEST_F(PosixFilesTest, AFileThatAnotherKindHasTakenThePlaceOfIs75) {
    WriteBytes(folder_ / "a.ini", "old");
    FileCalls calls = SystemFileCalls();
    calls.fstat = [](int descriptor, struct stat* facts) {
        const int result = fstat(descriptor, facts);
        facts->st_mode = (facts->st_mode & ~static_cast<mode_t>(S_IFMT)) | S_IFIFO;
        return result;
    };
    PosixFiles files(kLockPatience, calls);
    EXPECT_EQ(NumberRaisedBy([&] { files.ReadAll(folder_ / "a.ini"); }), 75);
    EXPECT_EQ(NumberRaisedBy([&] { files.Append(folder_ / "a.ini", "new"); }), 75);
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
}

TEST_F(PosixFilesTest, ADriveLetterPathIs76AndMakesNoFileInAnyFolder) {
    const WorkingFolder here(folder_.Path());
    WriteBytes(folder_ / "A:\\Present.ini", "old");
    for (const std::string path :
         {"A:\\Ddinstal.ini", "C:\\TAV\\DB\\pyxall.mdb", "z:\\", "A:\\Present.ini"}) {
        EXPECT_EQ(NumbersOf(path), kAll76) << path;
        EXPECT_FALSE(files_->Exists(path)) << path;
    }
    EXPECT_EQ(folder_.Listing(), "A:\\Present.ini");
    EXPECT_EQ(ReadBytes(folder_ / "A:\\Present.ini"), "old");
}

TEST_F(PosixFilesTest, ANameThatTheSystemCannotHoldIs52) {
    EXPECT_EQ(NumbersOf(folder_ / std::string("a\0b", 3)), kAll52);
    EXPECT_EQ(NumbersOf(folder_ / std::string(300, 'x')), kAll52);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(PosixFilesTest, APipeIs75AndHoldsNothingUp) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(NumbersOf(folder_ / "pipe"), kAll75);
    EXPECT_EQ(folder_.Listing(), "pipe");
}

TEST_F(PosixFilesTest, AReadOnlyFileIs75ForEveryWriterTheSuperuserIncluded) {
    WriteBytes(folder_ / "a.ini", "old");
    fs::permissions(folder_ / "a.ini", fs::perms(0444));
    EXPECT_EQ(NumbersOf(folder_ / "a.ini"), (std::vector<int>{75, 0, 75, 75, 0, 75, 0}));
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
    EXPECT_EQ(ModeOf(folder_ / "a.ini"), 0444);
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(PosixFilesTest, AFolderThatTheUserMayNotWriteIs75) {
    WriteBytes(folder_ / "a.ini", "old");
    fs::permissions(folder_ / "a.ini", fs::perms(0666));
    fs::permissions(folder_.Path(), fs::perms(0555));
    for (const auto& work : std::vector<std::function<void(PosixFiles&)>>{
             [&](PosixFiles& files) { files.RequireReplaceable(folder_ / "a.ini"); },
             [&](PosixFiles& files) { files.RequireReplaceable(folder_ / "new.ini"); },
             [&](PosixFiles& files) { files.Replace(folder_ / "a.ini", "new"); },
             [&](PosixFiles& files) { files.Replace(folder_ / "new.ini", "new"); },
             [&](PosixFiles& files) { files.Copy(folder_ / "a.ini", folder_ / "a.ini.bak"); },
             [&](PosixFiles& files) { files.Append(folder_ / "new.ini", "new"); },
             [&](PosixFiles& files) { files.Lock(folder_ / "a.ini"); }}) {
        EXPECT_EQ(ExitCodeAsOrdinaryUser([&] {
                      PosixFiles files;
                      return NumberRaisedBy([&] { work(files); });
                  }),
                  75);
    }
    fs::permissions(folder_.Path(), fs::perms(0755));
    EXPECT_EQ(folder_.Listing(), "a.ini");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
}

TEST_F(PosixFilesTest, AFileThatTheUserMayNotReadIs75) {
    WriteBytes(folder_ / "a.ini", "old");
    fs::permissions(folder_ / "a.ini", fs::perms(0000));
    EXPECT_EQ(ExitCodeAsOrdinaryUser([&] {
                  PosixFiles files;
                  return NumberRaisedBy([&] { files.ReadAll(folder_ / "a.ini"); });
              }),
              75);
}

TEST_F(PosixFilesTest, TheCircumstanceNamesThePathAndTheSystemsReason) {
    EXPECT_EQ(TextRaisedBy([&] { files_->ReadAll("/nowhere/a.ini"); }),
              "Path not found \"/nowhere/a.ini\": No such file or directory");
    EXPECT_EQ(TextRaisedBy([&] { files_->ReadAll(folder_ / "a.ini"); }),
              "File not found \"" + folder_ / "a.ini" + "\": No such file or directory");
    EXPECT_EQ(TextRaisedBy([&] { files_->Replace(folder_.Path(), ""); }),
              "Path/File access error \"" + folder_.Path() + "\": Is a directory");
    EXPECT_EQ(DescriptionRaisedBy([&] { files_->ReadAll("/nowhere/a.ini"); }), "Path not found");
}

TEST_F(PosixFilesTest, EveryReasonOfTheSystemHasItsNumber) {
    WriteBytes(folder_ / "a.ini", "old");
    const std::map<int, int> table{
        {ENOENT, 53}, {ENOTDIR, 76}, {EACCES, 75},       {EPERM, 75},  {EROFS, 75},  {EISDIR, 75},
        {ELOOP, 75},  {EBUSY, 70},   {ETXTBSY, 70},      {ENOSPC, 61}, {EDQUOT, 61}, {EFBIG, 61},
        {EIO, 57},    {EMFILE, 67},  {ENFILE, 67},       {EILSEQ, 52}, {EINVAL, 52}, {ENXIO, 68},
        {ENODEV, 68}, {ENOMEM, 7},   {ENAMETOOLONG, 52}, {EPROTO, 57},
    };
    for (const auto& [reason, number] : table) {
        ScriptedCalls script;
        script.FailFirst("open", reason);
        PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
        EXPECT_EQ(NumberRaisedBy([&] { files.ReadAll(folder_ / "a.ini"); }), number) << reason;
    }
}

TEST_F(PosixFilesTest, AReadThatFailsIsReported) {
    WriteBytes(folder_ / "a.ini", "old");
    for (const char* const call : {"read", "fstat"}) {
        ScriptedCalls script;
        script.FailFirst(call, EIO);
        PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
        EXPECT_EQ(NumberRaisedBy([&] { files.ReadAll(folder_ / "a.ini"); }), 57) << call;
    }
}

TEST_F(PosixFilesTest, AppendMakesAFileOfTheUsersOrdinaryMode) {
    const FileModeMask mask(027);
    files_->Append(folder_ / "a.log", "1\r\n");
    EXPECT_EQ(ModeOf(folder_ / "a.log"), 0640);
}

TEST_F(PosixFilesTest, AppendFollowsLinks) {
    fs::create_symlink("real.log", folder_ / "link.log");
    files_->Append(folder_ / "link.log", "1");
    EXPECT_EQ(ReadBytes(folder_ / "real.log"), "1");
    EXPECT_TRUE(fs::is_symlink(folder_ / "link.log"));
}

TEST_F(PosixFilesTest, AFileTooLargeForAnyUseIsToldInTheSystemsWords) {
    WriteBytes(folder_ / "a.ini", "");
    fs::resize_file(folder_ / "a.ini", kLargestFile + 1);  // takes no room on the disk
    EXPECT_EQ(TextRaisedBy([&] { files_->ReadAll(folder_ / "a.ini"); }),
              "Out of memory \"" + folder_ / "a.ini" + "\": File too large");
}

/// A folder that everybody may write to, with a file beside it that a link of another user leads to.
class SharedFolder : public FilesTest {
 protected:
    static constexpr uid_t kOther = 65534;

    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make another user's link";
        WriteBytes(elsewhere_ / "victim", "precious");
        ASSERT_EQ(chmod(folder_.Path().c_str(), 01777), 0);
    }

    /// Plants a link of `owner`; the path of the link.
    std::string Plant(const std::string& name, uid_t owner) {
        const std::string path = folder_ / name;
        fs::create_symlink(elsewhere_ / "victim", path);
        EXPECT_EQ(lchown(path.c_str(), owner, owner), 0);
        return path;
    }
};

TEST_F(SharedFolder, NoOperationFollowsALinkThatAnotherUserHasPut) {
    const std::string planted = Plant("a.ini", kOther);
    EXPECT_EQ(NumbersOf(planted), kAll75);
    EXPECT_EQ(TextRaisedBy([&] { files_->Replace(planted, "new"); }),
              "Path/File access error \"" + planted + "\": Another user's symbolic link in a shared folder");
    EXPECT_EQ(ReadBytes(elsewhere_ / "victim"), "precious");
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(SharedFolder, ALinkWithinTheChainCountsLikeTheFirst) {
    Plant("planted", kOther);
    fs::create_symlink(folder_ / "planted", elsewhere_ / "own.ini");
    EXPECT_EQ(NumbersOf(elsewhere_ / "own.ini"), kAll75);
    EXPECT_EQ(ReadBytes(elsewhere_ / "victim"), "precious");
}

TEST_F(SharedFolder, LinksOfTheUserAndOfTheFoldersOwnerAreFollowed) {
    files_->Replace(Plant("mine.ini", geteuid()), "new");
    EXPECT_EQ(ReadBytes(elsewhere_ / "victim"), "new");
    ASSERT_EQ(chown(folder_.Path().c_str(), kOther, kOther), 0);
    files_->Replace(Plant("owners.ini", kOther), "newer");
    EXPECT_EQ(ReadBytes(elsewhere_ / "victim"), "newer");
}

TEST_F(SharedFolder, AnothersLinkIsFollowedWhereOnlyTheOwnerWrites) {
    const std::string planted = Plant("a.ini", kOther);
    ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
    files_->Replace(planted, "new");
    EXPECT_EQ(ReadBytes(elsewhere_ / "victim"), "new");
    ASSERT_EQ(chmod(folder_.Path().c_str(), 0775), 0);
    EXPECT_EQ(NumbersOf(planted), kAll75);
}

TEST_F(SharedFolder, ALinkThatComesBetweenFindingAndOpeningIsNotFollowed) {
    WriteBytes(folder_ / "a.ini", "old");
    for (const bool isRead : {true, false}) {
        ScriptedCalls script;
        script.BeforeFirst("open", [&] {
            fs::remove(folder_ / "a.ini");
            Plant("a.ini", kOther);
        });
        PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
        const int number = NumberRaisedBy([&] {
            if (isRead) {
                files.ReadAll(folder_ / "a.ini");
            } else {
                files.Append(folder_ / "a.ini", "new");
            }
        });
        EXPECT_EQ(number, 75) << isRead;
        fs::remove(folder_ / "a.ini");
        WriteBytes(folder_ / "a.ini", "old");
    }
    EXPECT_EQ(ReadBytes(elsewhere_ / "victim"), "precious");
}

TEST_F(PosixFilesTest, AppendReportsWhatWasNotWritten) {
    for (const char* const call : {"write", "close"}) {
        ScriptedCalls script;
        script.FailFirst(call, ENOSPC);
        PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
        EXPECT_EQ(NumberRaisedBy([&] { files.Append(folder_ / "a.log", "text"); }), 61) << call;
    }
}

TEST_F(PosixFilesTest, AppendWritesOnHoweverLittleIsTakenAtOnce) {
    ScriptedCalls script;
    script.Stutter();
    PosixFiles files(std::chrono::seconds(1), ScriptedCalls::Calls());
    files.Append(folder_ / "a.log", "some text");
    files.Append(folder_ / "a.log", ", more");
    EXPECT_EQ(files.ReadAll(folder_ / "a.log"), "some text, more");
}

TEST_F(PosixFilesTest, NoFileStaysOpen) {
    WriteBytes(folder_ / "a.ini", "old");
    const int before = OpenFileCount();
    NumbersOf(folder_ / "a.ini");
    NumbersOf(folder_ / "missing/a.ini");
    NumbersOf(folder_.Path());
    EXPECT_EQ(OpenFileCount(), before);
}

TEST_F(PosixFilesTest, ACopyHasTheBytesAndIsWritableWhateverItsSourceWas) {
    const FileModeMask mask(022);
    WriteBytes(folder_ / "a.ini", "old\r\n");
    fs::permissions(folder_ / "a.ini", fs::perms(0400));
    files_->Copy(folder_ / "a.ini", folder_ / "a.ini.bak");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini.bak"), "old\r\n");
    EXPECT_EQ(ModeOf(folder_ / "a.ini.bak"), 0644);
}

TEST_F(PosixFilesTest, ACopyRefusesAReadOnlyTarget) {
    WriteBytes(folder_ / "a.ini", "new");
    WriteBytes(folder_ / "a.ini.bak", "old");
    fs::permissions(folder_ / "a.ini.bak", fs::perms(0444));
    EXPECT_EQ(NumberRaisedBy([&] { files_->Copy(folder_ / "a.ini", folder_ / "a.ini.bak"); }), 75);
    EXPECT_EQ(ReadBytes(folder_ / "a.ini.bak"), "old");
}

}  // namespace
}  // namespace ventlock::test
