#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "platform/ProfileEdit.h"
#include "platform/posix/PosixFiles.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "unit/platform/posix/Children.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

struct stat Facts(const std::string& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
    return facts;
}

class ProfileEditFile : public testing::Test {
 protected:
    [[nodiscard]] std::string Path() const { return folder_ / "Pyx.ini"; }

    TempFolder folder_;
    PosixFiles files_;
    ProfileStore store_{files_, CodePage(1252)};
};

TEST_F(ProfileEditFile, KeepsItsInodeAndItsTimeWhenNothingHasChanged) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    fs::last_write_time(Path(), fs::file_time_type::clock::now() - std::chrono::hours(1));
    const struct stat before = Facts(Path());
    store_.Write(Path(), "A", "x", "1");
    const struct stat after = Facts(Path());
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
}

TEST_F(ProfileEditFile, IsReplacedByANewFileOfTheSameMode) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    fs::permissions(Path(), fs::perms(0640));
    // The second name holds the old file, so that its inode cannot be taken again.
    fs::create_hard_link(Path(), folder_ / "old.ini");
    store_.Write(Path(), "A", "x", "2");
    EXPECT_NE(Facts(Path()).st_ino, Facts(folder_ / "old.ini").st_ino);
    EXPECT_EQ(Facts(Path()).st_mode & 07777U, 0640U);
    EXPECT_EQ(ReadBytes(folder_ / "old.ini"), "[A]\r\nx=1\r\n");
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=2\r\n");
}

TEST_F(ProfileEditFile, KeepsTheSymbolicLinkThatLeadsToIt) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    fs::create_symlink("Pyx.ini", folder_ / "link.ini");
    store_.Write(folder_ / "link.ini", "A", "x", "2");
    EXPECT_TRUE(fs::is_symlink(folder_ / "link.ini"));
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=2\r\n");
}

TEST_F(ProfileEditFile, IsWholeAfterASaveThatItsModeRefuses) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    fs::permissions(Path(), fs::perms(0444));
    EXPECT_EQ(NumberRaisedBy([&] { store_.Write(Path(), "A", "x", "2"); }), 75);
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=1\r\n");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditFile, IsLockedFromTheMakingOfTheEditToItsEnd) {
    PosixFiles impatient{std::chrono::milliseconds(0)};
    const ProfileStore other(impatient, CodePage(1252));
    {
        ProfileEdit edit(store_, Path());
        EXPECT_EQ(NumberRaisedBy([&] { other.Write(Path(), "A", "x", "1"); }), 70);
        edit.File().Write("A", "y", "2");
        edit.Save();
        EXPECT_EQ(NumberRaisedBy([&] { other.Write(Path(), "A", "x", "1"); }), 70);
    }
    other.Write(Path(), "A", "x", "1");
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\ny=2\r\nx=1\r\n");
}

TEST_F(ProfileEditFile, TakesTheKeysOfTwoProcessesThatWriteAtOnce) {
    constexpr int kKeysEach = 25;
    const auto add = [&](const std::string& name) {
        return [this, name] {
            for (int i = 0; i < kKeysEach; ++i) store_.Write(Path(), name, std::to_string(i), "here");
            return 0;
        };
    };
    Child first(add("first"));
    Child second(add("second"));
    EXPECT_EQ(first.ExitCode(), 0);
    EXPECT_EQ(second.ExitCode(), 0);

    const ProfileFile file(ReadBytes(Path()), CodePage(1252));
    for (int i = 0; i < kKeysEach; ++i) {
        EXPECT_EQ(file.Read("first", std::to_string(i)), "here") << i;
        EXPECT_EQ(file.Read("second", std::to_string(i)), "here") << i;
    }
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditFile, OfADriveLetterPathCannotBeMade) {
    const std::string path = "A:\\Ddinstal.ini";
    EXPECT_EQ(NumberRaisedBy([&] { store_.Write(path, "A", "x", "1"); }), 76);
    EXPECT_EQ(store_.Read(path, "A", "x", "fallback", 0), "fallback");
    EXPECT_FALSE(fs::exists(path));
}

}  // namespace
}  // namespace ventlock::test
