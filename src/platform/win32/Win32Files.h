#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/IFiles.h"
#include "platform/win32/FileCalls.h"
#include "platform/win32/Patience.h"

namespace ventlock {

/// Files of a Windows host. Paths take "/" and "\" and are as long as the system allows; a missing drive is
/// 68, an empty one 71. A file that another program has open is tried again for a second, then it is 70; one
/// with the read-only attribute is 75. Replace keeps the attributes and, where the system lets the user give
/// one, the access list (else the file inherits its folder's); the new file belongs to the user who writes.
/// Errors read: the number's text, the path in quotes, ":" and the system's own words.
class Win32Files final : public IFiles {
 public:
    /// @param lockPatience  how long Lock waits for another holder
    /// @param pause         how it is waited between two tries
    explicit Win32Files(std::chrono::milliseconds lockPatience = kLockPatience, Pause pause = SleepFor)
        : Win32Files(lockPatience, SystemFileCalls(), std::move(pause)) {}

    /// With other system calls.
    Win32Files(std::chrono::milliseconds lockPatience, const FileCalls& calls, Pause pause = SleepFor)
        : calls_(calls), lockPatience_(lockPatience), pause_(std::move(pause)) {}

    bool Exists(const std::string& path) override;
    std::optional<std::vector<std::string>> FilesIn(const std::string& folder) override;
    void RequireReplaceable(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    void Replace(const std::string& path, std::string_view bytes) override;
    void Copy(const std::string& from, const std::string& to) override;
    void Append(const std::string& path, std::string_view bytes) override;

    /// The lock must not outlive this object.
    std::unique_ptr<IFileLock> Lock(const std::string& path) override;

 private:
    FileCalls calls_;
    std::chrono::milliseconds lockPatience_;
    Pause pause_;
};

}  // namespace ventlock
