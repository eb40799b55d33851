#include "platform/win32/ReplacementFile.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/win32/FileErrors.h"
#include "platform/win32/TemporaryName.h"

namespace ventlock {
namespace {

constexpr int kMostNames = 100;
constexpr std::size_t kMostAtOnce = std::size_t{1} << 20;  // bytes in one call

/// What a new file can be given of the old one's attributes as it is made.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                  FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;

/// What a new file is opened for so that it can be given an access list.
constexpr DWORD kToKeepAccessList = GENERIC_WRITE | READ_CONTROL | WRITE_DAC;

/// The access list of an open file as the system keeps it; empty where the file system has none.
std::vector<std::byte> AccessListOf(const FileHandle& file, DWORD& code) {
    std::vector<std::byte> list;
    DWORD size = 0;
    code = ERROR_SUCCESS;
    while (GetKernelObjectSecurity(file.Get(), DACL_SECURITY_INFORMATION, list.data(),
                                   static_cast<DWORD>(list.size()), &size) == 0) {
        code = GetLastError();
        if (code != ERROR_INSUFFICIENT_BUFFER) {
            list.clear();
            break;
        }
        code = ERROR_SUCCESS;
        list.resize(size);
    }
    if (code == ERROR_NOT_SUPPORTED || code == ERROR_INVALID_FUNCTION) code = ERROR_SUCCESS;
    return list;
}

}  // namespace

bool IsAccessListRefused(DWORD code) {
    return code == ERROR_ACCESS_DENIED || code == ERROR_NOT_SUPPORTED || code == ERROR_INVALID_FUNCTION;
}

bool WriteAll(const FileHandle& file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
        if (WriteFile(file.Get(), bytes.data(), size, &written, nullptr) == 0) return false;
        if (written == 0) {
            SetLastError(ERROR_WRITE_FAULT);
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

void RemoveLeftOvers(const FileTarget& target) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((target.folder + L".*.tmp").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = found.cFileName;
        if (IsTemporaryName(name, target.name)) DeleteFileW((target.folder + name).c_str());
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
}

ReplacementFile::ReplacementFile(const FileTarget& target, const Pause& pause)
    : target_(target), pause_(pause), file_(Create()) {
    if (!takesAccessList_) return;
    try {
        KeepAccessList();
    } catch (...) {
        Remove();
        throw;
    }
}

ReplacementFile::~ReplacementFile() {
    Remove();
}

FileHandle ReplacementFile::Create() {
    const DWORD kept = target_.exists ? target_.attributes & kKeptAttributes : 0;
    for (int attempt = 0; attempt < kMostNames; ++attempt) {
        const std::wstring path = target_.folder + TemporaryName(target_.name);
        const auto open = [&](DWORD access) {
            return FileHandle(CreateFileW(path.c_str(), access, 0, nullptr, CREATE_NEW,
                                          kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL, nullptr));
        };
        FileHandle file = open(target_.exists ? kToKeepAccessList : GENERIC_WRITE);
        takesAccessList_ = target_.exists && file.IsOpen();
        if (target_.exists && !file.IsOpen() && IsAccessListRefused(GetLastError())) {
            file = open(GENERIC_WRITE);
        }
        if (file.IsOpen()) {
            temporary_ = path;
            return file;
        }
        if (GetLastError() != ERROR_FILE_EXISTS) break;
    }
    throw OpenError(target_.given, target_.path, GetLastError());
}

void ReplacementFile::KeepAccessList() const {
    FileHandle old;
    DWORD code = OpenWhenFree(target_.path, READ_CONTROL, kShareAll, OPEN_EXISTING, pause_, old);
    if (code != ERROR_SUCCESS) throw OpenError(target_.given, target_.path, code);
    std::vector<std::byte> list = AccessListOf(old, code);
    if (code != ERROR_SUCCESS) throw FileError(target_.given, code);
    if (list.empty()) return;
    // Without the request the system would mark what came from the folder as given to the file itself.
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    const bool isReady =
        GetSecurityDescriptorControl(list.data(), &control, &revision) != 0 &&
        ((control & SE_DACL_AUTO_INHERITED) == 0 ||
         SetSecurityDescriptorControl(list.data(), SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ) != 0);
    if (!isReady) Raise();
    if (SetKernelObjectSecurity(file_.Get(), DACL_SECURITY_INFORMATION, list.data()) == 0 &&
        !IsAccessListRefused(GetLastError())) {
        Raise();
    }
}

void ReplacementFile::Write(std::string_view bytes) {
    if (!WriteAll(file_, bytes)) Raise();
}

void ReplacementFile::Commit() {
    if (FlushFileBuffers(file_.Get()) == 0 || !file_.Close()) Raise();
    // The target may be replaced and a file be made beside it, which was seen before: it is denied only as
    // long as somebody has one of both open.
    const DWORD code = TryWhileInUse(
        pause_,
        [&]() -> DWORD {
            return MoveFileExW(temporary_.c_str(), target_.path.c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0
                       ? ERROR_SUCCESS
                       : GetLastError();
        },
        [&](DWORD reason) {
            return reason == ERROR_ACCESS_DENIED || reason == ERROR_USER_MAPPED_FILE ||
                   IsInUse(reason, target_.path);
        });
    if (code == ERROR_ACCESS_DENIED && target_.exists) {
        throw FileError(ErrorNumber::PermissionDenied, target_.given, code);
    }
    if (code != ERROR_SUCCESS) throw FileError(target_.given, code);
    temporary_.clear();
}

void ReplacementFile::Remove() {
    file_.Close();
    if (temporary_.empty()) return;
    // Nothing more can be done for a file that stays in use: what failed before is what is reported.
    TryWhileInUse(
        pause_,
        [&]() -> DWORD { return DeleteFileW(temporary_.c_str()) != 0 ? ERROR_SUCCESS : GetLastError(); },
        [&](DWORD reason) { return IsInUse(reason, temporary_); });
    temporary_.clear();
}

void ReplacementFile::Raise() const {
    throw FileError(target_.given, GetLastError());
}

}  // namespace ventlock
