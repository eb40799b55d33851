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
std::vector<std::byte> AccessListOf(const FileCalls& calls, const FileHandle& file, DWORD& code) {
    std::vector<std::byte> list;
    DWORD size = 0;
    code = ERROR_SUCCESS;
    while (calls.getAccessList(file.Get(), list.data(), static_cast<DWORD>(list.size()), &size) == 0) {
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

bool WriteAll(const FileCalls& calls, const FileHandle& file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
        if (calls.writeFile(file.Get(), bytes.data(), size, &written) == 0) return false;
        if (written == 0) {
            SetLastError(ERROR_WRITE_FAULT);
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

void RemoveLeftOvers(const FileCalls& calls, const FileTarget& target) {
    std::vector<std::wstring> names;
    if (calls.list((target.folder + L".*.tmp").c_str(), names) == 0) return;
    for (const std::wstring& name : names) {
        if (IsTemporaryName(name, target.name)) calls.deleteFile((target.folder + name).c_str());
    }
}

ReplacementFile::ReplacementFile(const FileCalls& calls, const FileTarget& target, const Pause& pause)
    : calls_(calls), target_(target), pause_(pause), file_(Create()) {
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
            return FileHandle(calls_.createFile(path.c_str(), access, 0, CREATE_NEW,
                                                kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL),
                              calls_);
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
    throw OpenError(calls_, target_.given, target_.path, GetLastError());
}

void ReplacementFile::KeepAccessList() const {
    FileHandle old;
    DWORD code = OpenWhenFree(calls_, target_.path, READ_CONTROL, kShareAll, OPEN_EXISTING, pause_, old);
    if (code != ERROR_SUCCESS) throw OpenError(calls_, target_.given, target_.path, code);
    std::vector<std::byte> list = AccessListOf(calls_, old, code);
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
    if (calls_.setAccessList(file_.Get(), list.data()) == 0 && !IsAccessListRefused(GetLastError())) {
        Raise();
    }
}

void ReplacementFile::Write(std::string_view bytes) {
    if (!WriteAll(calls_, file_, bytes)) Raise();
}

void ReplacementFile::Commit() {
    if (calls_.flushFileBuffers(file_.Get()) == 0 || !file_.Close()) Raise();
    // The target may be replaced and a file be made beside it, which was seen before: it is denied only as
    // long as somebody has one of both open.
    const DWORD code = TryWhileInUse(
        pause_,
        [&]() -> DWORD {
            return calls_.moveFile(temporary_.c_str(), target_.path.c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0
                       ? ERROR_SUCCESS
                       : GetLastError();
        },
        [&](DWORD reason) {
            return reason == ERROR_ACCESS_DENIED || reason == ERROR_USER_MAPPED_FILE ||
                   IsInUse(calls_, reason, target_.path);
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
        [&]() -> DWORD {
            return calls_.deleteFile(temporary_.c_str()) != 0 ? ERROR_SUCCESS : GetLastError();
        },
        [&](DWORD reason) { return IsInUse(calls_, reason, temporary_); });
    temporary_.clear();
}

void ReplacementFile::Raise() const {
    throw FileError(target_.given, GetLastError());
}

}  // namespace ventlock
