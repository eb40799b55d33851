#include "platform/posix/PosixPaths.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "support/Raised.h"
#include "support/TempFolder.h"
#include "support/WorkingFolder.h"
#include "unit/platform/posix/Children.h"
#include "unit/platform/posix/ProcessState.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

TEST(PosixPaths, TheProgramsFolderIsThatOfTheRunningProgram) {
    const fs::path program = fs::canonical("/proc/self/exe");
    EXPECT_EQ(PosixPaths("ventlock").ProgramFolder(), program.parent_path().string());
    EXPECT_EQ(program.filename(), "platform_tests");
}

TEST(PosixPaths, AProgramInTheRootFolderHasTheRootFolder) {
    TempFolder folder;
    fs::create_symlink("/program", folder / "exe");
    EXPECT_EQ(PosixPaths("ventlock", folder / "exe").ProgramFolder(), "/");
}

TEST(PosixPaths, AProgramThatTheSystemDoesNotTellIsReported) {
    TempFolder folder;
    EXPECT_EQ(NumberRaisedBy([&] { PosixPaths("ventlock", folder / "exe").ProgramFolder(); }), 53);
}

TEST(PosixPaths, TheProgramsNameIsTheOneGiven) {
    EXPECT_EQ(PosixPaths("ventlock").ExeName(), "ventlock");
    EXPECT_EQ(PosixPaths("renamed").ExeName(), "renamed");
}

TEST(PosixPaths, TheProgramsFolderIsWritableOrNot) {
    TempFolder folder;
    fs::create_symlink(folder / "program", folder / "exe");
    PosixPaths paths("ventlock", folder / "exe");
    EXPECT_TRUE(paths.ProgramFolderIsWritable());
    fs::permissions(folder.Path(), fs::perms(0555));
    EXPECT_EQ(ExitCodeAsOrdinaryUser([&] { return paths.ProgramFolderIsWritable() ? 1 : 0; }), 0);
    fs::permissions(folder.Path(), fs::perms(0755));
}

TEST(PosixPaths, NothingIsWrittenBesideAProgramThatAPackageHasInstalled) {
    TempFolder folder;
    fs::create_symlink("/usr/bin/env", folder / "packages");
    EXPECT_FALSE(PosixPaths("ventlock", folder / "packages").ProgramFolderIsWritable());
    fs::create_symlink("/usr/local/bin/env", folder / "own");
    EXPECT_EQ(PosixPaths("ventlock", folder / "own").ProgramFolderIsWritable(),
              access("/usr/local/bin", W_OK) == 0);
}

TEST(PosixPaths, TheWindowsDirectoryIsTheFolderOfTheUsersConfiguration) {
    const EnvironmentVariable home("HOME", "/home/ada");
    PosixPaths paths("ventlock");
    {
        const EnvironmentVariable config("XDG_CONFIG_HOME", "/etc/ada");
        EXPECT_EQ(paths.WindowsDirectory(), "/etc/ada/ventlock");
    }
    {
        const EnvironmentVariable config("XDG_CONFIG_HOME", "relative");
        EXPECT_EQ(paths.WindowsDirectory(), "/home/ada/.config/ventlock");
    }
    const EnvironmentVariable config("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(paths.WindowsDirectory(), "/home/ada/.config/ventlock");
}

TEST(PosixPaths, WithoutAHomeVariableTheSystemsUserListCounts) {
    const EnvironmentVariable home("HOME", std::nullopt);
    const EnvironmentVariable config("XDG_CONFIG_HOME", std::nullopt);
    const passwd* const user = getpwuid(geteuid());
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(PosixPaths("ventlock").WindowsDirectory(), fs::path(user->pw_dir) / ".config/ventlock");
}

TEST(PosixPaths, TheStateFolderIsMadeForTheUserAlone) {
    TempFolder folder;
    const FileModeMask mask(022);
    const EnvironmentVariable home("HOME", folder.Path());
    PosixPaths paths("ventlock");
    {
        const EnvironmentVariable state("XDG_STATE_HOME", std::nullopt);
        EXPECT_EQ(paths.StateFolder(), folder / ".local/state/ventlock");
        EXPECT_EQ(ModeOf(folder / ".local/state/ventlock"), 0700);
        EXPECT_EQ(paths.StateFolder(), folder / ".local/state/ventlock");
    }
    const EnvironmentVariable state("XDG_STATE_HOME", folder / "state");
    EXPECT_EQ(paths.StateFolder(), folder / "state/ventlock");
    EXPECT_EQ(ModeOf(folder / "state/ventlock"), 0700);
}

TEST(PosixPaths, AStateFolderThatCannotBeMadeIsNamedAllTheSame) {
    TempFolder folder;
    WriteBytes(folder / "state", "");
    const EnvironmentVariable state("XDG_STATE_HOME", folder / "state");
    EXPECT_EQ(PosixPaths("ventlock").StateFolder(), folder / "state/ventlock");
}

TEST(PosixPaths, TheWorkingFolderIsTheCurrentOne) {
    TempFolder folder;
    PosixPaths paths("ventlock");
    const WorkingFolder here(folder.Path());
    EXPECT_EQ(paths.WorkingFolder(), folder.Path());
    fs::create_directory(folder / "gone");
    const WorkingFolder there(folder / "gone");
    fs::remove(folder / "gone");
    EXPECT_EQ(TextRaisedBy([&] { paths.WorkingFolder(); }),
              "Path not found \".\": No such file or directory");
}

TEST(PosixPaths, FolderAndNameMeetInOneSeparator) {
    PosixPaths paths("ventlock");
    EXPECT_EQ(paths.Join("/program", "Ventlock.log"), "/program/Ventlock.log");
    EXPECT_EQ(paths.Join("/program/", "Ventlock.log"), "/program/Ventlock.log");
    EXPECT_EQ(paths.Join("/", "Ventlock.log"), "/Ventlock.log");
    EXPECT_EQ(paths.Join("", "Ventlock.log"), "Ventlock.log");
    EXPECT_EQ(paths.Join("a\\", "b"), "a\\/b");
}

TEST(PosixPaths, RootAndDriveLetterPathsAreAbsolute) {
    PosixPaths paths("ventlock");
    EXPECT_TRUE(paths.IsAbsolute("/a"));
    EXPECT_TRUE(paths.IsAbsolute("/"));
    EXPECT_TRUE(paths.IsAbsolute("A:\\Ddinstal.ini"));
    EXPECT_TRUE(paths.IsAbsolute("c:\\"));
    EXPECT_FALSE(paths.IsAbsolute(""));
    EXPECT_FALSE(paths.IsAbsolute("a/b"));
    EXPECT_FALSE(paths.IsAbsolute("./a"));
    EXPECT_FALSE(paths.IsAbsolute("A:b"));
    EXPECT_FALSE(paths.IsAbsolute("\\a"));
    EXPECT_FALSE(paths.IsAbsolute("1:\\a"));
}

}  // namespace
}  // namespace ventlock::test
