#include "platform/win32/FinalPath.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/win32/WideText.h"
#include "support/TempFolder.h"
#include "unit/platform/win32/FileFacts.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

/// The path in the form that the system tells final paths in.
std::wstring Long(const std::string& path) {
    return LongForm(fs::path(ToWideText(path)).make_preferred().wstring());
}

TEST(FinalPath, OfAFileAndAFolderIsTheirOwnInTheFileSystemsSpelling) {
    const TempFolder folder;
    WriteBytes(folder / "Pyx.ini", "");
    const std::wstring base =
        FinalPath(SystemFileCalls(), OpenForAttributes(SystemFileCalls(), Long(folder.Path())));
    EXPECT_TRUE(base.starts_with(L"\\\\?\\")) << FromWideText(base);
    EXPECT_FALSE(base.ends_with(L'\\')) << FromWideText(base);
    EXPECT_EQ(FinalPath(SystemFileCalls(), OpenForAttributes(SystemFileCalls(), Long(folder / "PYX.INI"))),
              base + L"\\Pyx.ini");
}

TEST(FinalPath, IsEmptyForWhatHasNone) {
    HANDLE reader = INVALID_HANDLE_VALUE;
    HANDLE writer = INVALID_HANDLE_VALUE;
    ASSERT_NE(CreatePipe(&reader, &writer, nullptr, 0), 0);
    const FileHandle ownedReader(reader);
    const FileHandle ownedWriter(writer);
    EXPECT_EQ(FinalPath(SystemFileCalls(), ownedReader), L"");
    EXPECT_EQ(FinalPath(SystemFileCalls(), FileHandle()), L"");
}

TEST(FinalPath, OfALinkIsThatOfItsFile) {
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "");
    EXPECT_FALSE(IsSymbolicLink(SystemFileCalls(), Long(folder / "a.ini")));
    EXPECT_FALSE(IsSymbolicLink(SystemFileCalls(), Long(folder.Path())));
    EXPECT_FALSE(IsSymbolicLink(SystemFileCalls(), Long(folder / "missing.ini")));
    if (!MakeLink(folder / "link.ini", "a.ini") || !MakeLink(folder / "nowhere.ini", "missing.ini")) {
        GTEST_SKIP() << "this user can make no links";
    }
    EXPECT_TRUE(IsSymbolicLink(SystemFileCalls(), Long(folder / "link.ini")));
    EXPECT_TRUE(IsSymbolicLink(SystemFileCalls(), Long(folder / "nowhere.ini")));
    EXPECT_EQ(FinalPath(SystemFileCalls(), OpenForAttributes(SystemFileCalls(), Long(folder / "link.ini"))),
              FinalPath(SystemFileCalls(), OpenForAttributes(SystemFileCalls(), Long(folder / "a.ini"))));
}

TEST(FinalPath, LongAndShortFormLeadToEachOther) {
    EXPECT_EQ(LongForm(L"C:\\a"), L"\\\\?\\C:\\a");
    EXPECT_EQ(LongForm(L"\\\\server\\share\\a"), L"\\\\?\\UNC\\server\\share\\a");
    EXPECT_EQ(LongForm(L"\\\\?\\C:\\a"), L"\\\\?\\C:\\a");
    EXPECT_EQ(ShortForm(L"\\\\?\\C:\\a"), L"C:\\a");
    EXPECT_EQ(ShortForm(L"\\\\?\\C:\\"), L"C:\\");
    EXPECT_EQ(ShortForm(L"\\\\?\\UNC\\server\\share\\a"), L"\\\\server\\share\\a");
    EXPECT_EQ(ShortForm(L"C:\\a"), L"C:\\a");
    EXPECT_EQ(ShortForm(L"\\\\server\\share"), L"\\\\server\\share");
}

TEST(FinalPath, TheLongFormStaysWhereNoShortOneWouldDo) {
    const std::wstring volume = L"\\\\?\\Volume{0b3c1d2e-0000-0000-0000-100000000000}\\a";
    EXPECT_EQ(ShortForm(volume), volume);
    EXPECT_EQ(ShortForm(L"\\\\?\\"), L"\\\\?\\");
    EXPECT_EQ(ShortForm(L"\\\\?\\C"), L"\\\\?\\C");
    const std::wstring fits = L"C:\\" + std::wstring(MAX_PATH - 4, L'x');
    EXPECT_EQ(ShortForm(L"\\\\?\\" + fits), fits);
    EXPECT_EQ(ShortForm(L"\\\\?\\" + fits + L"x"), L"\\\\?\\" + fits + L"x");
}

}  // namespace
}  // namespace ventlock::test
