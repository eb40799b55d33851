#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/IFiles.h"
#include "platform/Pause.h"
#include "platform/posix/FileCalls.h"

namespace ventlock {

/// Files of a POSIX host. A path that begins with a drive letter, ":" and "\" never exists and raises 76; a
/// file without any write permission counts as read-only for the superuser too. Errors read: the number's
/// text, the path in quotes, ":" and the system's own words.
class PosixFiles final : public IFiles {
 public:
    /// @param lockPatience  how long Lock waits for another holder
    /// @param pause         how it waits between two tries
    explicit PosixFiles(std::chrono::milliseconds lockPatience = kLockPatience, Pause pause = SleepFor)
        : PosixFiles(lockPatience, SystemFileCalls(), std::move(pause)) {}

    /// With other system calls.
    PosixFiles(std::chrono::milliseconds lockPatience, const FileCalls& calls, Pause pause = SleepFor)
        : calls_(calls), lockPatience_(lockPatience), pause_(std::move(pause)) {}

    bool Exists(const std::string& path) override;
    std::optional<std::vector<std::string>> FilesIn(const std::string& folder) override;
    void RequireReplaceable(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    std::optional<std::string> ReadIfThere(const std::string& path) override;
    std::string ReadBeginning(const std::string& path, std::size_t most) override;
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
