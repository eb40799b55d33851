#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/ReplacementFile.h"
#include "platform/win32/Win32Files.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "support/win32/ScriptedCalls.h"
#include "unit/platform/win32/FileFacts.h"

namespace ventlock::test {
namespace {

using std::chrono::milliseconds;

/// Files over other calls, whose pauses take no time.
Win32Files FilesOver(const FileCalls& calls) {
    return Win32Files(milliseconds(0), calls, [](milliseconds) {});
}

/// What a function of a code that the system gives is given.
BOOL FailWith(DWORD code) {
    SetLastError(code);
    return FALSE;
}

TEST(FailingCalls, AreAllThatTheOperationsAreMadeOf) {
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    ScriptedCalls script;
    Win32Files files = FilesOver(ScriptedCalls::Calls());
    const auto lock = files.Lock(folder / "a.ini");
    EXPECT_EQ(files.ReadAll(folder / "a.ini"), "old");
    files.Replace(folder / "a.ini", "new");
    files.Replace(folder / "b.ini", "new");
    // Without getAttributeTag and deleteFile, which only a failure leads to.
    EXPECT_EQ(std::set<std::string>(script.Made().begin(), script.Made().end()),
              (std::set<std::string>{"closeHandle", "createFile", "flushFileBuffers", "getAccessList",
                                     "getDriveType", "getFileAttributes", "getFileInformation", "getFileSize",
                                     "getFileType", "getFinalPathName", "getFullPathName", "list", "moveFile",
                                     "readFile", "setAccessList", "writeFile"}));
    EXPECT_EQ(script.OpenFiles(), 1) << "the lock";
}

TEST(FailingCalls, AWriteThatTakesNothingIsAFailureOfTheDevice) {
    FileCalls calls = SystemFileCalls();
    calls.writeFile = [](HANDLE /*file*/, const void* /*buffer*/, DWORD /*size*/, DWORD* count) {
        *count = 0;
        return TRUE;
    };
    EXPECT_FALSE(WriteAll(calls, FileHandle(), "text"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_WRITE_FAULT});
    EXPECT_TRUE(WriteAll(calls, FileHandle(), ""));
}

TEST(FailingCalls, WhatIsOfAnotherTypeIsNoFileButATypeThatCannotBeToldHasItsCause) {
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    FileCalls calls = SystemFileCalls();
    calls.getFileType = [](HANDLE /*file*/) { return DWORD{FILE_TYPE_CHAR}; };
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).ReadAll(folder / "a.ini"); }), 75);
    SetLastError(ERROR_DISK_FULL);  // of some call before
    calls.getFileType = [](HANDLE /*file*/) { return DWORD{FILE_TYPE_UNKNOWN}; };
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).ReadAll(folder / "a.ini"); }), 75);
    calls.getFileType = [](HANDLE /*file*/) -> DWORD {
        SetLastError(ERROR_NOT_READY);
        return FILE_TYPE_UNKNOWN;
    };
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).ReadAll(folder / "a.ini"); }), 71);
}

TEST(FailingCalls, AFolderThatCannotBeLookedAtIsNotCalledMissing) {
    const TempFolder folder;
    FileCalls calls = SystemFileCalls();
    calls.getFileAttributes = [](const wchar_t* path) {
        if (!std::wstring_view(path).ends_with(L'\\')) return SystemFileCalls().getFileAttributes(path);
        SetLastError(ERROR_NOT_READY);
        return INVALID_FILE_ATTRIBUTES;
    };
    EXPECT_EQ(TextRaisedBy([&] { FilesOver(calls).Replace(folder / "a.ini", "new"); }),
              "Disk not ready \"" + folder / "a.ini" + "\": " + SystemWords(ERROR_NOT_READY));
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).ReadAll(folder / ""); }), 71);
    EXPECT_EQ(folder.Listing(), "");
}

TEST(FailingCalls, ANameThatMayBeTakenByALinkIsNotReplaced) {
    const TempFolder folder;
    FileCalls calls = SystemFileCalls();
    calls.getFileAttributes = [](const wchar_t* path) -> DWORD {
        if (!std::wstring_view(path).ends_with(L"a.ini")) return SystemFileCalls().getFileAttributes(path);
        return FILE_ATTRIBUTE_REPARSE_POINT;
    };
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).Replace(folder / "a.ini", "new"); }), 75);
    calls.getFileAttributes = [](const wchar_t* path) {
        if (!std::wstring_view(path).ends_with(L"a.ini")) return SystemFileCalls().getFileAttributes(path);
        SetLastError(ERROR_NOT_READY);
        return INVALID_FILE_ATTRIBUTES;
    };
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).Replace(folder / "a.ini", "new"); }), 71);
    EXPECT_EQ(folder.Listing(), "");
}

TEST(FailingCalls, APathWithoutAnEndIsThatOfTheFileItselfUnlessItIsALink) {
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    FileCalls calls = SystemFileCalls();
    calls.getFinalPathName = [](HANDLE /*file*/, wchar_t* /*buffer*/, DWORD /*size*/,
                                DWORD /*spelling*/) -> DWORD {
        SetLastError(ERROR_INVALID_FUNCTION);
        return 0;
    };
    FilesOver(calls).Replace(folder / "a.ini", "new");
    EXPECT_EQ(ReadBytes(folder / "a.ini"), "new");
    calls.getAttributeTag = [](HANDLE /*file*/, FILE_ATTRIBUTE_TAG_INFO* facts) {
        *facts = {FILE_ATTRIBUTE_REPARSE_POINT, IO_REPARSE_TAG_SYMLINK};
        return TRUE;
    };
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).Replace(folder / "a.ini", "newer"); }), 75);
    EXPECT_EQ(ReadBytes(folder / "a.ini"), "new");
    EXPECT_EQ(folder.Listing(), "a.ini");
}

TEST(FailingCalls, WhereAnAccessListIsRefusedTheFileIsReplacedWithoutIt) {
    for (const DWORD code :
         std::vector<DWORD>{ERROR_ACCESS_DENIED, ERROR_NOT_SUPPORTED, ERROR_INVALID_FUNCTION}) {
        const TempFolder folder;
        WriteBytes(folder / "a.ini", "old");
        ScriptedCalls script;
        script.FailFirst("setAccessList", static_cast<int>(code));
        FilesOver(ScriptedCalls::Calls()).Replace(folder / "a.ini", "new");
        EXPECT_EQ(ReadBytes(folder / "a.ini"), "new") << code;
    }
    for (const DWORD code : std::vector<DWORD>{ERROR_NOT_SUPPORTED, ERROR_INVALID_FUNCTION}) {
        const TempFolder folder;
        WriteBytes(folder / "a.ini", "old");
        ScriptedCalls script;
        script.FailFirst("getAccessList", static_cast<int>(code));
        FilesOver(ScriptedCalls::Calls()).Replace(folder / "a.ini", "new");
        EXPECT_EQ(ReadBytes(folder / "a.ini"), "new") << code;
    }
}

TEST(FailingCalls, ATemporaryFileIsMadeForAnAccessListAndWhereThatIsDeniedWithoutOne) {
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    static std::vector<DWORD> rights;
    rights.clear();
    FileCalls calls = SystemFileCalls();
    calls.createFile = [](const wchar_t* path, DWORD access, DWORD share, DWORD disposition, DWORD flags) {
        if (disposition == CREATE_NEW) rights.push_back(access);
        if ((access & WRITE_DAC) == 0) {
            return SystemFileCalls().createFile(path, access, share, disposition, flags);
        }
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    };
    calls.setAccessList = [](HANDLE /*file*/, void* /*descriptor*/) { return FailWith(ERROR_IO_DEVICE); };
    FilesOver(calls).Replace(folder / "a.ini", "new");
    EXPECT_EQ(rights, (std::vector<DWORD>{GENERIC_WRITE | READ_CONTROL | WRITE_DAC, GENERIC_WRITE}));
    EXPECT_EQ(ReadBytes(folder / "a.ini"), "new");
}

TEST(FailingCalls, AnotherTemporaryNameIsTriedWhereOneIsTaken) {
    const TempFolder folder;
    static std::vector<std::wstring> names;
    names.clear();
    FileCalls calls = SystemFileCalls();
    calls.createFile = [](const wchar_t* path, DWORD access, DWORD share, DWORD disposition, DWORD flags) {
        if (disposition == CREATE_NEW) names.emplace_back(path);
        if (names.size() != 1) {
            return SystemFileCalls().createFile(path, access, share, disposition, flags);
        }
        SetLastError(ERROR_FILE_EXISTS);
        return INVALID_HANDLE_VALUE;
    };
    FilesOver(calls).Replace(folder / "a.ini", "new");
    ASSERT_EQ(names.size(), 2U);
    EXPECT_NE(names[0], names[1]);
    EXPECT_EQ(folder.Listing(), "a.ini");
}

TEST(FailingCalls, ATemporaryFileThatIsInUseIsTakenAwayWhenItIsFree) {
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    static int denials = 0;
    denials = 3;
    FileCalls calls = SystemFileCalls();
    calls.moveFile = [](const wchar_t* /*from*/, const wchar_t* /*to*/, DWORD /*flags*/) {
        return FailWith(ERROR_DISK_FULL);
    };
    calls.deleteFile = [](const wchar_t* path) {
        if (denials-- > 0) return FailWith(ERROR_SHARING_VIOLATION);
        return SystemFileCalls().deleteFile(path);
    };
    EXPECT_EQ(NumberRaisedBy([&] { FilesOver(calls).Replace(folder / "a.ini", "new"); }), 61);
    EXPECT_EQ(ReadBytes(folder / "a.ini"), "old");
    EXPECT_EQ(folder.Listing(), "a.ini");
}

/// The indexes of the calls that replace an existing "a.ini" of which `isMeant` is true.
std::vector<std::size_t> CallsOfAReplacement(
    const std::function<bool(const std::string& name, const std::string& path)>& isMeant) {
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    ScriptedCalls script;
    FilesOver(ScriptedCalls::Calls()).Replace(folder / "a.ini", "new");
    std::vector<std::size_t> calls;
    for (std::size_t call = 0; call < script.Made().size(); ++call) {
        if (isMeant(script.Made()[call], script.Subjects()[call])) calls.push_back(call);
    }
    return calls;
}

TEST(FailingCalls, WhateverFailsOfTheNewFileFailsTheReplacement) {
    const auto calls = CallsOfAReplacement([](const std::string& name, const std::string& path) {
        return path.ends_with(".tmp") || name == "moveFile";
    });
    EXPECT_EQ(calls.size(), 6U);  // made, given its access list, written, flushed, closed, moved
    for (const std::size_t call : calls) {
        const TempFolder folder;
        WriteBytes(folder / "a.ini", "old");
        ScriptedCalls script;
        script.FailAt(call, ERROR_DISK_FULL);
        EXPECT_EQ(NumberRaisedBy([&] { FilesOver(ScriptedCalls::Calls()).Replace(folder / "a.ini", "new"); }),
                  61)
            << script.Made()[call];
        EXPECT_EQ(ReadBytes(folder / "a.ini"), "old") << script.Made()[call];
        EXPECT_EQ(folder.Listing(), "a.ini") << script.Made()[call];
    }
}

TEST(FailingCalls, OfAFileThatIsInUseForAMomentAreMadeAgain) {
    const auto calls = CallsOfAReplacement([](const std::string& name, const std::string& path) {
        return path.ends_with("a.ini") && (name == "createFile" || name == "moveFile");
    });
    EXPECT_EQ(calls.size(), 4U);  // found, seen to be replaceable, asked for its access list, moved over
    for (const std::size_t call : calls) {
        const TempFolder folder;
        WriteBytes(folder / "a.ini", "old");
        ScriptedCalls script;
        script.FailAt(call, ERROR_SHARING_VIOLATION);
        FilesOver(ScriptedCalls::Calls()).Replace(folder / "a.ini", "new");
        EXPECT_EQ(ReadBytes(folder / "a.ini"), "new") << script.Made()[call];
        EXPECT_EQ(folder.Listing(), "a.ini") << script.Made()[call];
    }
    // Where a moved file goes the system denies access for as long as another has the old one open.
    const TempFolder folder;
    WriteBytes(folder / "a.ini", "old");
    ScriptedCalls script;
    script.FailAt(calls.back(), ERROR_ACCESS_DENIED);
    FilesOver(ScriptedCalls::Calls()).Replace(folder / "a.ini", "new");
    EXPECT_EQ(ReadBytes(folder / "a.ini"), "new");
}

TEST(FailingCalls, LeftOversThatCannotBeListedOrRemovedHoldNobodyUp) {
    for (const char* const call : {"list", "deleteFile"}) {
        const TempFolder folder;
        const std::string leftOver = ".a.ini.ventlock-" + std::string(32, 'a') + ".tmp";
        WriteBytes(folder / leftOver, "half");
        ScriptedCalls script;
        script.FailFirst(call, ERROR_ACCESS_DENIED);
        Win32Files files = FilesOver(ScriptedCalls::Calls());
        EXPECT_EQ(NumberRaisedBy([&] { files.Lock(folder / "a.ini"); }), 0) << call;
        EXPECT_EQ(folder.Listing(), leftOver) << call;
        files.Lock(folder / "a.ini");
        EXPECT_EQ(folder.Listing(), "") << call;
    }
}

TEST(FailingCalls, AppendReportsWhatWasNotWritten) {
    for (const char* const call : {"writeFile", "closeHandle"}) {
        const TempFolder folder;
        ScriptedCalls script;
        script.FailFirst(call, ERROR_DISK_FULL);
        EXPECT_EQ(NumberRaisedBy([&] { FilesOver(ScriptedCalls::Calls()).Append(folder / "a.log", "text"); }),
                  61)
            << call;
    }
}

}  // namespace
}  // namespace ventlock::test
