#pragma once

#include <string>
#include <string_view>

#include "platform/win32/FileCalls.h"
#include "platform/win32/FileHandle.h"
#include "platform/win32/FileTarget.h"
#include "platform/win32/Patience.h"

namespace ventlock {

/// New bytes for a file, written beside it under a name that nobody can foresee and open to nobody else while
/// they are. Commit puts them in its place; without Commit the destructor takes them away and the file is as
/// it was.
class ReplacementFile {
 public:
    /// The new file gets the access list and the attributes of the one it replaces; its owner is the user who
    /// writes. Where the system lets the user give no access list (a share may withhold that right, a file
    /// system may have none) it keeps the one that it has from its folder, as a file that replaces none does.
    /// `calls`, `target` and `pause` must outlive this object. @throws RunTimeError
    ReplacementFile(const FileCalls& calls, const FileTarget& target, const Pause& pause);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    /// @throws RunTimeError
    void Write(std::string_view bytes);

    /// Brings the bytes to the disk and puts them in the file's place in one step.
    /// @throws RunTimeError 70 when another program has the file open and goes on doing so, else what the
    /// system says; the file is then as it was.
    void Commit();

 private:
    FileHandle Create();
    void KeepAccessList() const;
    void Remove();
    [[noreturn]] void Raise() const;

    const FileCalls& calls_;
    const FileTarget& target_;
    const Pause& pause_;
    std::wstring temporary_;  ///< empty when there is nothing to take away
    bool takesAccessList_ = false;
    FileHandle file_;
};

/// True for a code by which the system says that a file can be given no access list, or that asking for the
/// right to do so is what it denies.
bool IsAccessListRefused(DWORD code);

/// Takes away what programs that were ended while they replaced the file have left beside it, as far as the
/// user may. Whoever calls it must hold the lock under which the file is replaced.
void RemoveLeftOvers(const FileCalls& calls, const FileTarget& target);

/// Writes all of `bytes`, however many calls that takes; False and GetLastError when it fails.
bool WriteAll(const FileCalls& calls, const FileHandle& file, std::string_view bytes);

}  // namespace ventlock
