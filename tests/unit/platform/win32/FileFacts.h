#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/FileHandle.h"
#include "support/SystemWords.h"

namespace ventlock::test {

/// A file held open by another program, as far as the one under test can tell.
FileHandle HoldOpen(const std::string& path, DWORD share);

/// Sets a file's attributes; those of an ordinary file come back at the end, so that it can be removed.
class FileAttributes {
 public:
    FileAttributes(const std::string& path, DWORD attributes);
    ~FileAttributes();
    FileAttributes(const FileAttributes&) = delete;
    FileAttributes& operator=(const FileAttributes&) = delete;

 private:
    std::wstring path_;
};

/// A file's attributes; fails the test when it is missing.
DWORD AttributesOf(const std::string& path);

/// What the system tells about a file; fails the test when it is missing.
BY_HANDLE_FILE_INFORMATION FactsOf(const std::string& path);

/// The access list of a file in the system's text form.
std::string AccessListOf(const std::string& path);

/// The owner of a file in the system's text form.
std::string OwnerOf(const std::string& path);

/// Gives a file an access list in the system's text form.
void SetAccessList(const std::string& path, const std::string& list);

/// Handles that this process has open now: files, folders, events, processes.
int OpenHandleCount();

/// Makes a symbolic link; False where the system or its user can make none.
bool MakeLink(const std::string& path, const std::string& target);

}  // namespace ventlock::test
