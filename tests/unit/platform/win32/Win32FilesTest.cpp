#include "platform/win32/Win32Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "platform/win32/FileErrors.h"
#include "platform/win32/WideText.h"
#include "unit/platform/FilesTest.h"
#include "unit/platform/win32/FileFacts.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

using Win32FilesTest = FilesTest;

/// "X:" of a letter that no drive has.
std::string MissingDrive() {
    for (char letter = 'Y'; letter >= 'A'; --letter) {
        if ((GetLogicalDrives() & (1U << (letter - 'A'))) == 0) return std::string(1, letter) + ":";
    }
    ADD_FAILURE() << "every letter has a drive";
    return {};
}

TEST_F(Win32FilesTest, ExistenceIsTrueOnlyForAnExistingRegularFile) {
    WriteBytes(folder_ / "a.ini", "");
    EXPECT_TRUE(files_->Exists(folder_ / "a.ini"));
    EXPECT_TRUE(files_->Exists(folder_ / "A.INI"));
    EXPECT_TRUE(files_->Exists(folder_.Path() + "/a.ini"));
    for (const std::string& path :
         {std::string(), std::string("   "), folder_.Path(), folder_ / "", folder_ / "*.ini",
          folder_ / "a.in?", folder_ / "missing", folder_ / "missing\\a.ini", folder_ / "a.ini\\b",
          folder_ / "a.ini\\", folder_ / "a.ini:stream", MissingDrive() + "\\a.ini", std::string("NUL"),
          folder_ / std::string("a.ini\0x", 7), folder_ / std::string(300, 'x')}) {
        EXPECT_FALSE(files_->Exists(path)) << path;
    }
}

TEST_F(Win32FilesTest, AFolderListsWhatItHoldsButFolders) {
    const std::string odd = "\u03A9 \u5B57.ini";
    WriteBytes(folder_ / "a.ini", "");
    files_->Replace(folder_ / odd, "");
    fs::create_directory(folder_ / "below");
    for (const std::string& path : {folder_.Path(), folder_.Path() + "/", folder_ / "below\\.."}) {
        EXPECT_THAT(files_->FilesIn(path).value(), testing::UnorderedElementsAre("a.ini", odd)) << path;
    }
    EXPECT_THAT(files_->FilesIn(folder_ / "below").value(), testing::IsEmpty());
    EXPECT_THAT(files_->FilesIn("C:\\").value_or(std::vector<std::string>{"no folder"}),
                testing::Not(testing::Contains("no folder")));
}

TEST_F(Win32FilesTest, WhatIsNoFolderListsNothing) {
    WriteBytes(folder_ / "a.ini", "");
    for (const std::string& path :
         {std::string(), std::string(" "), folder_ / "a.ini", folder_ / "none", folder_ / "*",
          std::string("NUL"), MissingDrive() + "\\", folder_.Path() + std::string("\0x", 2)}) {
        EXPECT_EQ(files_->FilesIn(path), std::nullopt) << path;
    }
}

TEST_F(Win32FilesTest, AFolderThatCannotBeReadRaisesTheSystemsReason) {
    FileCalls calls = SystemFileCalls();
    calls.list = [](const wchar_t*, std::vector<std::wstring>&) -> BOOL {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    };
    Win32Files failing(kLockPatience, calls);
    EXPECT_EQ(NumberRaisedBy([&] { failing.FilesIn(folder_.Path()); }), 75);
}

TEST_F(Win32FilesTest, ABackslashPartsFoldersToo) {
    WriteBytes(folder_ / "a.ini", "old");
    fs::create_directory(folder_ / "sub");
    EXPECT_EQ(NumbersOf(folder_ / "missing\\a.ini"), kAll76);
    EXPECT_EQ(NumbersOf(folder_ / "missing\\"), kAll76);
    EXPECT_EQ(NumbersOf(folder_ / "a.ini\\b.ini"), kAll76);
    EXPECT_EQ(NumbersOf(folder_ / "a.ini\\"), kAll76);
    EXPECT_EQ(NumbersOf(folder_ / "sub\\"), kAll75);
    EXPECT_EQ(NumbersOf("C:\\"), kAll75);
    EXPECT_EQ(folder_.Listing(), "a.ini sub");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
}

TEST_F(Win32FilesTest, AMissingDriveIs68) {
    const std::string drive = MissingDrive();
    for (const char* const path : {"\\Ddinstal.ini", "\\TAV\\DB\\pyxall.mdb", "/Ddinstal.ini", "\\"}) {
        EXPECT_EQ(NumbersOf(drive + path), kAll68) << path;
        EXPECT_FALSE(files_->Exists(drive + path)) << path;
    }
    EXPECT_EQ(TextRaisedBy([&] { files_->Lock(drive + "\\Ddinstal.ini"); }),
              "Device unavailable \"" + drive + "\\Ddinstal.ini\": " + SystemWords(ERROR_INVALID_DRIVE));
}

TEST_F(Win32FilesTest, ADeviceIs75) {
    for (const char* const path : {"NUL", "con", "\\\\.\\NUL", "\\\\.\\C:\\a.ini", "C:\\aux"}) {
        EXPECT_EQ(NumbersOf(path), kAll75) << path;
    }
}

TEST_F(Win32FilesTest, ANameThatTheSystemCannotHoldIs52) {
    for (const std::string& name :
         {std::string("a\0b", 3), std::string(300, 'x'), std::string("a?.ini"), std::string("*.ini"),
          std::string("a.ini:stream"), std::string("a\xFF")}) {
        EXPECT_EQ(NumbersOf(folder_ / name), kAll52) << name;
    }
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(Win32FilesTest, AReadOnlyFileIs75ForEveryWriterAndStaysAsItWas) {
    WriteBytes(folder_ / "a.ini", "old");
    const FileAttributes readOnly(folder_ / "a.ini", FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(NumbersOf(folder_ / "a.ini"), (std::vector<int>{75, 0, 75, 75, 0, 75, 0}));
    EXPECT_EQ(ReadBytes(folder_ / "a.ini"), "old");
    EXPECT_NE(AttributesOf(folder_ / "a.ini") & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_EQ(folder_.Listing(), "a.ini");
}

TEST_F(Win32FilesTest, TheCircumstanceNamesThePathAsGivenAndTheSystemsReason) {
    EXPECT_EQ(TextRaisedBy([&] { files_->ReadAll(folder_ / "no/a.ini"); }),
              "Path not found \"" + folder_ / "no/a.ini" + "\": " + SystemWords(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(TextRaisedBy([&] { files_->ReadAll(folder_ / "a.ini"); }),
              "File not found \"" + folder_ / "a.ini" + "\": " + SystemWords(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(TextRaisedBy([&] { files_->Replace(folder_.Path(), ""); }),
              "Path/File access error \"" + folder_.Path() + "\": " + SystemWords(ERROR_ACCESS_DENIED));
    EXPECT_EQ(DescriptionRaisedBy([&] { files_->ReadAll(folder_ / "no/a.ini"); }), "Path not found");
    EXPECT_STREQ(FileError("a.ini", 0x2FFFFFFF).what(), "Device I/O error \"a.ini\": error 805306367");
}

TEST_F(Win32FilesTest, EveryReasonOfTheSystemHasItsNumber) {
    const std::map<unsigned long, int> table{
        {ERROR_FILE_NOT_FOUND, 53},
        {ERROR_PATH_NOT_FOUND, 76},
        {ERROR_BAD_NETPATH, 76},
        {ERROR_BAD_NET_NAME, 76},
        {ERROR_NO_NET_OR_BAD_PATH, 76},
        {ERROR_NETWORK_UNREACHABLE, 76},
        {ERROR_ACCESS_DENIED, 75},
        {ERROR_WRITE_PROTECT, 75},
        {ERROR_NETWORK_ACCESS_DENIED, 75},
        {ERROR_PRIVILEGE_NOT_HELD, 75},
        {ERROR_LOGON_FAILURE, 75},
        {ERROR_SYMLINK_CLASS_DISABLED, 75},
        {ERROR_SHARING_VIOLATION, 70},
        {ERROR_LOCK_VIOLATION, 70},
        {ERROR_USER_MAPPED_FILE, 70},
        {ERROR_DELETE_PENDING, 70},
        {ERROR_NOT_READY, 71},
        {ERROR_INVALID_DRIVE, 68},
        {ERROR_DISK_FULL, 61},
        {ERROR_HANDLE_DISK_FULL, 61},
        {1295, 61},  // the user's quota of the disk is used up
        {ERROR_INVALID_NAME, 52},
        {ERROR_BAD_PATHNAME, 52},
        {ERROR_FILENAME_EXCED_RANGE, 52},
        {ERROR_TOO_MANY_OPEN_FILES, 67},
        {ERROR_NOT_ENOUGH_MEMORY, 7},
        {ERROR_OUTOFMEMORY, 7},
        {ERROR_IO_DEVICE, 57},
        {ERROR_WRITE_FAULT, 57},
        {ERROR_READ_FAULT, 57},
        {ERROR_GEN_FAILURE, 57},
    };
    for (const auto& [code, number] : table) {
        EXPECT_EQ(static_cast<int>(FileErrorNumber(code)), number) << code;
    }
}

TEST_F(Win32FilesTest, NamesInEveryScriptAreKept) {
    const std::string greek = "Ελληνικά.ini";
    const std::string chinese = "设备配置.ini";
    for (const std::string& name : {greek, chinese}) {
        EXPECT_EQ(NumbersOf(folder_ / name), (std::vector<int>{0, 53, 0, 0, 0, 0, 0})) << name;
        EXPECT_TRUE(files_->Exists(folder_ / name));
        EXPECT_EQ(files_->ReadAll(folder_ / name), "othernew");
    }
    EXPECT_EQ(folder_.Listing(), greek + " " + chinese);
    EXPECT_EQ(TextRaisedBy([&] { files_->ReadAll(folder_ / "δεν.ini"); }),
              "File not found \"" + folder_ / "δεν.ini" + "\": " + SystemWords(ERROR_FILE_NOT_FOUND));
}

/// Folders in each other, so deep that their path is longer than what ordinary paths may be.
class DeepFolder {
 public:
    explicit DeepFolder(const std::string& path) : path_(path) {
        for (int i = 0; i < 4; ++i) {
            path_ += "\\" + std::string(99, static_cast<char>('a' + i));
            made_.push_back(L"\\\\?\\" + ToWideText(path_));
            EXPECT_NE(CreateDirectoryW(made_.back().c_str(), nullptr), 0) << GetLastError();
        }
    }
    ~DeepFolder() {
        for (auto folder = made_.rbegin(); folder != made_.rend(); ++folder) {
            EXPECT_NE(RemoveDirectoryW(folder->c_str()), 0) << "the deep folder is not empty";
        }
    }
    DeepFolder(const DeepFolder&) = delete;
    DeepFolder& operator=(const DeepFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

 private:
    std::string path_;
    std::vector<std::wstring> made_;
};

TEST_F(Win32FilesTest, APathOfFourHundredCharactersWorksAsAShortOne) {
    const DeepFolder deep(folder_.Path());
    const std::string path = deep.Path() + "\\a.ini";
    ASSERT_GT(path.size(), 400U);
    EXPECT_FALSE(files_->Exists(path));
    EXPECT_EQ(NumbersOf(path), (std::vector<int>{0, 53, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(files_->Exists(path));
    EXPECT_EQ(files_->ReadAll(deep.Path() + "/./a.ini"), "othernew");
    EXPECT_EQ(NumbersOf(deep.Path()), kAll75);
    EXPECT_EQ(NumbersOf(deep.Path() + "\\missing\\a.ini"), kAll76);
    EXPECT_NE(DeleteFileW((L"\\\\?\\" + ToWideText(path)).c_str()), 0);
}

TEST_F(Win32FilesTest, SlashesOfBothKindsAndDotsLeadToTheSameFile) {
    fs::create_directory(folder_ / "sub");
    files_->Replace(folder_.Path() + "/sub/../a.ini", "1");
    files_->Append(folder_.Path() + "\\.\\sub\\..\\a.ini", "2");
    EXPECT_EQ(files_->ReadAll(folder_.Path() + "//a.ini"), "12");
    EXPECT_EQ(files_->ReadAll("\\\\?\\" + folder_.Path() + "\\a.ini"), "12");
    EXPECT_EQ(folder_.Listing(), "a.ini sub");
}

TEST_F(Win32FilesTest, AppendTakesAHiddenFileAndOneThatIsBeingRead) {
    WriteBytes(folder_ / "a.log", "1");
    const FileAttributes hidden(folder_ / "a.log", FILE_ATTRIBUTE_HIDDEN);
    const FileHandle reader = HoldOpen(folder_ / "a.log", FILE_SHARE_READ | FILE_SHARE_WRITE);
    files_->Append(folder_ / "a.log", "2");
    EXPECT_EQ(ReadBytes(folder_ / "a.log"), "12");
}

TEST_F(Win32FilesTest, NoFileStaysOpen) {
    WriteBytes(folder_ / "a.ini", "old");
    const auto useAll = [&] {
        NumbersOf(folder_ / "a.ini");
        NumbersOf(folder_ / "missing\\a.ini");
        NumbersOf(folder_.Path());
        files_->Exists(folder_ / "a.ini");
    };
    useAll();  // what the system keeps from a first time on is open now
    const int before = OpenHandleCount();
    useAll();
    EXPECT_EQ(OpenHandleCount(), before);
    EXPECT_TRUE(HoldOpen(folder_ / "a.ini", 0).IsOpen());
}

TEST_F(Win32FilesTest, ACopyHasTheBytesAndIsWritableWhateverItsSourceWas) {
    WriteBytes(folder_ / "a.ini", "old\r\n");
    const FileAttributes readOnly(folder_ / "a.ini", FILE_ATTRIBUTE_READONLY);
    files_->Copy(folder_ / "a.ini", folder_ / "a.ini.bak");
    EXPECT_EQ(ReadBytes(folder_ / "a.ini.bak"), "old\r\n");
    EXPECT_EQ(AttributesOf(folder_ / "a.ini.bak") & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(Win32FilesTest, ACopyRefusesAReadOnlyTarget) {
    WriteBytes(folder_ / "a.ini", "new");
    WriteBytes(folder_ / "a.ini.bak", "old");
    const FileAttributes readOnly(folder_ / "a.ini.bak", FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(NumberRaisedBy([&] { files_->Copy(folder_ / "a.ini", folder_ / "a.ini.bak"); }), 75);
    EXPECT_EQ(ReadBytes(folder_ / "a.ini.bak"), "old");
}

}  // namespace
}  // namespace ventlock::test
