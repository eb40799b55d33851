#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ventlock {

/// What the name of a file's backup adds to the file's own.
inline constexpr const char* kBackupEnding = ".bak";

/// Held exclusively, between programs too, from its making to its destruction.
class IFileLock {
 public:
    virtual ~IFileLock() = default;
};

/// The size up to which a file is read, in bytes; nothing that the programs read comes near it.
inline constexpr std::size_t kLargestFile = std::size_t{256} * 1024 * 1024;

/// Whole files as bytes. Paths are UTF-8. Every operation raises RunTimeError with the number that the host's
/// reason stands for: 52 bad name, 53 file and 76 folder missing, 57 device, 61 disk full, 67 too many files,
/// 70 in use, 75 no access (read-only, a folder, an empty path); the detail names the path.
class IFiles {
 public:
    virtual ~IFiles() = default;

    /// True only for an existing regular file (through links); never throws.
    virtual bool Exists(const std::string& path) = 0;

    /// Names of what a folder (through links) holds but for the folders in it, in no order; they may be gone
    /// by now. Nothing when the path leads to no folder. @throws RunTimeError when the folder cannot be read.
    virtual std::optional<std::vector<std::string>> FilesIn(const std::string& folder) = 0;

    /// True when a file can be made in the folder of `path` and an existing file at `path` can be replaced.
    /// @throws RunTimeError what Replace would raise for a reason that can be seen beforehand.
    virtual void RequireReplaceable(const std::string& path) = 0;

    /// @throws RunTimeError 7 for a file larger than kLargestFile.
    virtual std::string ReadAll(const std::string& path) = 0;

    /// As ReadAll, but nothing for a file that is certainly missing, alone or with its folder.
    virtual std::optional<std::string> ReadIfThere(const std::string& path);

    /// As ReadAll, but no more than the first `most` bytes.
    virtual std::string ReadBeginning(const std::string& path, std::size_t most);

    /// Replaces or creates the file in one step: readers and a crash see the old bytes or the new ones. The
    /// bytes are on the disk when it returns. Mode, owner and a symbolic link that leads to the file are
    /// kept; a file without any write permission is read-only for everybody (75).
    virtual void Replace(const std::string& path, std::string_view bytes) = 0;

    /// Copies the bytes of `from` over `to` (created when missing); `to` is writable afterwards whatever
    /// `from` was.
    virtual void Copy(const std::string& from, const std::string& to) = 0;

    /// Adds `bytes` to the end of the file, which is created when missing and closed before it returns.
    virtual void Append(const std::string& path, std::string_view bytes) = 0;

    /// Waits, within a bound, until nobody else holds the lock of `path` and takes it. The file need not
    /// exist, its folder must. Names that lead to the same file share one lock. Whoever replaces the file or
    /// its backup holds it; what a program that was killed meanwhile has left beside them is removed with the
    /// taking of the lock.
    /// @throws RunTimeError 70 when the bound has passed.
    virtual std::unique_ptr<IFileLock> Lock(const std::string& path) = 0;
};

}  // namespace ventlock
