#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>

#include "platform/ProfileEdit.h"
#include "platform/win32/Win32Files.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "unit/platform/win32/Children.h"
#include "unit/platform/win32/FileFacts.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

/// What tells one file from another on its volume.
std::pair<DWORD, DWORD> IndexOf(const std::string& path) {
    const BY_HANDLE_FILE_INFORMATION facts = FactsOf(path);
    return {facts.nFileIndexHigh, facts.nFileIndexLow};
}

class ProfileEditFile : public testing::Test {
 protected:
    [[nodiscard]] std::string Path() const { return folder_ / "Pyx.ini"; }

    TempFolder folder_;
    Win32Files files_;
    ProfileStore store_{files_, CodePage(1252)};
};

TEST_F(ProfileEditFile, IsTheSameFileOfTheSameTimeWhenNothingHasChanged) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    fs::last_write_time(Path(), fs::file_time_type::clock::now() - std::chrono::hours(1));
    const FILETIME before = FactsOf(Path()).ftLastWriteTime;
    const auto index = IndexOf(Path());
    store_.Write(Path(), "A", "x", "1");
    const FILETIME after = FactsOf(Path()).ftLastWriteTime;
    EXPECT_EQ(IndexOf(Path()), index);
    EXPECT_EQ(CompareFileTime(&before, &after), 0);
}

TEST_F(ProfileEditFile, IsReplacedByANewFileOfTheSameAttributes) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    const FileAttributes hidden(Path(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE);
    // The second name holds the old file, so that its index cannot be taken again.
    fs::create_hard_link(Path(), folder_ / "old.ini");
    store_.Write(Path(), "A", "x", "2");
    EXPECT_NE(IndexOf(Path()), IndexOf(folder_ / "old.ini"));
    EXPECT_EQ(AttributesOf(Path()), DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE});
    EXPECT_EQ(ReadBytes(folder_ / "old.ini"), "[A]\r\nx=1\r\n");
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=2\r\n");
}

TEST_F(ProfileEditFile, KeepsTheSymbolicLinkThatLeadsToIt) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    if (!MakeLink(folder_ / "link.ini", "Pyx.ini")) GTEST_SKIP() << "this user can make no links";
    store_.Write(folder_ / "link.ini", "A", "x", "2");
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=2\r\n");
    EXPECT_EQ(IndexOf(folder_ / "link.ini"), IndexOf(Path()));
    EXPECT_EQ(folder_.Listing(), "Pyx.ini link.ini");
}

TEST_F(ProfileEditFile, IsWholeAfterASaveThatItsAttributesRefuse) {
    WriteBytes(Path(), "[A]\r\nx=1\r\n");
    const FileAttributes readOnly(Path(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(NumberRaisedBy([&] { store_.Write(Path(), "A", "x", "2"); }), 75);
    EXPECT_EQ(ReadBytes(Path()), "[A]\r\nx=1\r\n");
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditFile, IsLockedFromTheMakingOfTheEditToItsEnd) {
    Win32Files impatient{std::chrono::milliseconds(0)};
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
    const Child first(kWriteFirst, folder_.Path());
    const Child second(kWriteSecond, folder_.Path());
    EXPECT_EQ(first.ExitCode(), 0);
    EXPECT_EQ(second.ExitCode(), 0);

    const ProfileFile file(ReadBytes(Path()), CodePage(1252));
    for (int i = 0; i < 25; ++i) {
        EXPECT_EQ(file.Read(kWriteFirst, std::to_string(i)), "here") << i;
        EXPECT_EQ(file.Read(kWriteSecond, std::to_string(i)), "here") << i;
    }
    EXPECT_EQ(folder_.Listing(), "Pyx.ini");
}

TEST_F(ProfileEditFile, OfAMissingFolderCannotBeMadeAndReadsLikeAMissingOne) {
    const std::string path = folder_ / "missing\\Pyx.ini";
    EXPECT_EQ(NumberRaisedBy([&] { store_.Write(path, "A", "x", "1"); }), 76);
    EXPECT_EQ(store_.Read(path, "A", "x", "fallback", 0), "fallback");
    EXPECT_EQ(folder_.Listing(), "");
}

}  // namespace
}  // namespace ventlock::test
