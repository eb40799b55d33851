#include "support/win32/ScriptedCalls.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

ScriptedCalls* current = nullptr;

const FileCalls& Real() {
    return SystemFileCalls();
}

/// @param subject  the path or the open file that the call is made for
template <class Subject, class Result, class Call>
Result Scripted(const char* name, Subject subject, Result failed, Call call) {
    return current->Pass(name, subject) ? call() : failed;
}

}  // namespace

ScriptedCalls::ScriptedCalls() {
    EXPECT_EQ(current, nullptr) << "one script at a time";
    current = this;
}

ScriptedCalls::~ScriptedCalls() {
    current = nullptr;
}

bool ScriptedCalls::Pass(const std::string& name, const std::wstring& path) {
    const std::optional<int> failure = Failure(name, FromWideText(path));
    if (failure) SetLastError(static_cast<DWORD>(*failure));
    return !failure;
}

bool ScriptedCalls::Pass(const std::string& name, HANDLE file) {
    const auto found = paths_.find(file);
    return Pass(name, found == paths_.end() ? std::wstring() : found->second);
}

void ScriptedCalls::NoteOpen(HANDLE file, const wchar_t* path) {
    const DWORD code = GetLastError();
    if (file != INVALID_HANDLE_VALUE) paths_[file] = path;
    SetLastError(code);
}

FileCalls ScriptedCalls::Calls() {
    FileCalls calls{};
    calls.createFile = [](const wchar_t* path, DWORD access, DWORD share, DWORD disposition, DWORD flags) {
        return Scripted("createFile", path, INVALID_HANDLE_VALUE, [&] {
            const HANDLE file = Real().createFile(path, access, share, disposition, flags);
            current->NoteOpen(file, path);
            return file;
        });
    };
    calls.closeHandle = [](HANDLE file) {
        const BOOL closed = Real().closeHandle(file);
        const bool passes = current->Pass("closeHandle", file);
        current->NoteClose(file);
        return passes ? closed : FALSE;
    };
    calls.readFile = [](HANDLE file, void* buffer, DWORD size, DWORD* count) {
        const DWORD most = current->Stutters() ? 1 : size;
        return Scripted("readFile", file, FALSE, [&] { return Real().readFile(file, buffer, most, count); });
    };
    calls.writeFile = [](HANDLE file, const void* buffer, DWORD size, DWORD* count) {
        return Scripted("writeFile", file, FALSE, [&] {
            const auto most = static_cast<DWORD>(current->Room(size));
            const BOOL written = Real().writeFile(file, buffer, most, count);
            current->Take(*count);
            return written;
        });
    };
    calls.flushFileBuffers = [](HANDLE file) {
        return Scripted("flushFileBuffers", file, FALSE,
                        [&] { return current->Flushes() ? Real().flushFileBuffers(file) : TRUE; });
    };
    calls.getFileSize = [](HANDLE file, LARGE_INTEGER* size) {
        return Scripted("getFileSize", file, FALSE, [&] { return Real().getFileSize(file, size); });
    };
    calls.getFileType = [](HANDLE file) {
        return Scripted("getFileType", file, DWORD{FILE_TYPE_UNKNOWN},
                        [&] { return Real().getFileType(file); });
    };
    calls.getFileInformation = [](HANDLE file, BY_HANDLE_FILE_INFORMATION* facts) {
        return Scripted("getFileInformation", file, FALSE,
                        [&] { return Real().getFileInformation(file, facts); });
    };
    calls.getAttributeTag = [](HANDLE file, FILE_ATTRIBUTE_TAG_INFO* facts) {
        return Scripted("getAttributeTag", file, FALSE, [&] { return Real().getAttributeTag(file, facts); });
    };
    calls.getFinalPathName = [](HANDLE file, wchar_t* buffer, DWORD size, DWORD spelling) {
        return Scripted("getFinalPathName", file, DWORD{0},
                        [&] { return Real().getFinalPathName(file, buffer, size, spelling); });
    };
    calls.getFullPathName = [](const wchar_t* path, DWORD size, wchar_t* buffer) {
        return Scripted("getFullPathName", path, DWORD{0},
                        [&] { return Real().getFullPathName(path, size, buffer); });
    };
    calls.getFileAttributes = [](const wchar_t* path) {
        return Scripted("getFileAttributes", path, INVALID_FILE_ATTRIBUTES,
                        [&] { return Real().getFileAttributes(path); });
    };
    calls.getDriveType = [](const wchar_t* root) {
        return Scripted("getDriveType", root, UINT{DRIVE_UNKNOWN}, [&] { return Real().getDriveType(root); });
    };
    calls.getAccessList = [](HANDLE file, void* descriptor, DWORD size, DWORD* needed) {
        return Scripted("getAccessList", file, FALSE,
                        [&] { return Real().getAccessList(file, descriptor, size, needed); });
    };
    calls.setAccessList = [](HANDLE file, void* descriptor) {
        return Scripted("setAccessList", file, FALSE, [&] { return Real().setAccessList(file, descriptor); });
    };
    calls.moveFile = [](const wchar_t* from, const wchar_t* to, DWORD flags) {
        return Scripted("moveFile", to, FALSE, [&] { return Real().moveFile(from, to, flags); });
    };
    calls.deleteFile = [](const wchar_t* path) {
        return Scripted("deleteFile", path, FALSE, [&] { return Real().deleteFile(path); });
    };
    calls.list = [](const wchar_t* pattern, std::vector<std::wstring>& names) {
        return Scripted("list", pattern, FALSE, [&] { return Real().list(pattern, names); });
    };
    return calls;
}

}  // namespace ventlock::test
