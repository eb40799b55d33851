#pragma once

#include <string>
#include <string_view>

#include "platform/posix/Descriptor.h"
#include "platform/posix/FileCalls.h"
#include "platform/posix/FileTarget.h"

namespace ventlock {

/// New bytes for a file, written beside it under a name that nobody can foresee, ".<name>.ventlock-", 32
/// hexadecimal digits, ".tmp". Commit puts them in its
/// place; without Commit the destructor takes them away and the file is as it was.
class ReplacementFile {
 public:
    /// The new file gets the mode and, where the user may give it away, the owner of the one it replaces.
    /// `calls` and `target` must outlive this object. @throws RunTimeError
    ReplacementFile(const FileCalls& calls, const FileTarget& target);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    /// @throws RunTimeError
    void Write(std::string_view bytes);

    /// Brings the bytes to the disk, puts them in the file's place and brings that to the disk too.
    /// @throws RunTimeError; the file is then as it was, but for a failure of the very last step, when the
    /// new bytes are in place and may not survive a loss of power.
    void Commit();

 private:
    int Create();
    void KeepModeAndOwner();
    [[noreturn]] void Raise() const;

    const FileCalls& calls_;
    const FileTarget& target_;
    std::string temporary_;  ///< empty when there is nothing to take away
    Descriptor file_;
};

/// Takes away what programs that were killed while they replaced the file have left beside it, as far as the
/// user may. Whoever calls it must hold the lock under which the file is replaced.
void RemoveLeftOvers(const FileCalls& calls, const FileTarget& target);

/// Writes all of `bytes`, however many calls that takes; False and errno when it fails.
bool WriteAll(const FileCalls& calls, int descriptor, std::string_view bytes);

}  // namespace ventlock
