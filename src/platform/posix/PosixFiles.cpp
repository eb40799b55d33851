#include "platform/posix/PosixFiles.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/FileErrors.h"
#include "platform/posix/FileTarget.h"
#include "platform/posix/PosixFileLock.h"
#include "platform/posix/ReplacementFile.h"

namespace ventlock {
namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

/// Behind a file's size, so that its end is found, and some lines can be put in, without more room.
constexpr std::size_t kRoomBehind = 4096;

bool CanNameAFile(const std::string& path) {
    return !Trim(path).empty() && !IsDrivePath(path) && path.find('\0') == std::string::npos;
}

/// Opens a regular file.
Descriptor Open(const FileCalls& calls, const std::string& path, int flags, struct stat& facts) {
    const FileTarget target = ResolveTarget(calls, path);
    Descriptor file(calls, Uninterrupted([&] {
                        return calls.open(target.path.c_str(), flags | kHowToOpen, kOrdinaryMode);
                    }));
    if (!file.IsOpen()) throw FileError(path, errno);
    if (calls.fstat(file.Number(), &facts) != 0) throw FileError(path, errno);
    if (!S_ISREG(facts.st_mode)) {
        throw FileError(ErrorNumber::PathFileAccessError, path, S_ISDIR(facts.st_mode) ? EISDIR : EACCES);
    }
    return file;
}

Descriptor OpenToRead(const FileCalls& calls, const std::string& path, struct stat& facts) {
    Descriptor file = Open(calls, path, O_RDONLY, facts);
    if (facts.st_size <= static_cast<off_t>(kLargestFile)) return file;
    throw FileError(ErrorNumber::OutOfMemory, path, EFBIG);
}

/// Reads on until `bytes`, of which `size` are there, are full or the file ends; how many are there then.
std::size_t Fill(const FileCalls& calls, const std::string& path, const Descriptor& file, std::string& bytes,
                 std::size_t size) {
    while (size < bytes.size()) {
        const ssize_t count = Uninterrupted(
            [&] { return calls.read(file.Number(), bytes.data() + size, bytes.size() - size); });
        if (count < 0) throw FileError(path, errno);
        if (count == 0) break;
        size += static_cast<std::size_t>(count);
    }
    return size;
}

}  // namespace

bool PosixFiles::Exists(const std::string& path) {
    struct stat facts {};
    return CanNameAFile(path) && calls_.stat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

std::optional<std::vector<std::string>> PosixFiles::FilesIn(const std::string& folder) {
    struct stat facts {};
    const auto isFolder = [&](const std::string& path) {
        return calls_.stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
    };
    if (!CanNameAFile(folder) || !isFolder(folder)) return std::nullopt;
    std::vector<std::string> names;
    if (calls_.list(folder.c_str(), names) != 0) throw FileError(folder, errno);
    std::erase_if(names, [&](const std::string& name) { return isFolder(folder + "/" + name); });
    return names;
}

void PosixFiles::RequireReplaceable(const std::string& path) {
    RequireReplaceableTarget(calls_, ResolveTarget(calls_, path));
}

std::string PosixFiles::ReadAll(const std::string& path) {
    struct stat facts {};
    const Descriptor file = OpenToRead(calls_, path, facts);
    std::string bytes(static_cast<std::size_t>(facts.st_size) + kRoomBehind, '\0');
    std::size_t size = 0;
    while ((size = Fill(calls_, path, file, bytes, size)) == bytes.size()) {
        bytes.resize(2 * size);  // it has grown meanwhile
    }
    bytes.resize(size);
    return bytes;
}

std::string PosixFiles::ReadBeginning(const std::string& path, std::size_t most) {
    struct stat facts {};
    const Descriptor file = OpenToRead(calls_, path, facts);
    std::string bytes(most, '\0');
    bytes.resize(Fill(calls_, path, file, bytes, 0));
    return bytes;
}

// The system is asked first: an error that is raised takes more time than a small file that is read.
std::optional<std::string> PosixFiles::ReadIfThere(const std::string& path) {
    struct stat facts {};
    const bool isMissing =
        CanNameAFile(path) && calls_.stat(path.c_str(), &facts) != 0 && (errno == ENOENT || errno == ENOTDIR);
    return isMissing ? std::nullopt : IFiles::ReadIfThere(path);
}

void PosixFiles::Replace(const std::string& path, std::string_view bytes) {
    const FileTarget target = ResolveTarget(calls_, path);
    RequireReplaceableTarget(calls_, target);
    ReplacementFile file(calls_, target);
    file.Write(bytes);
    file.Commit();
}

void PosixFiles::Copy(const std::string& from, const std::string& to) {
    Replace(to, ReadAll(from));
}

void PosixFiles::Append(const std::string& path, std::string_view bytes) {
    struct stat facts {};
    Descriptor file = Open(calls_, path, O_WRONLY | O_APPEND | O_CREAT, facts);
    if ((facts.st_mode & kAnyWrite) == 0) throw FileError(path, EACCES);
    if (!WriteAll(calls_, file.Number(), bytes) || !file.Close()) throw FileError(path, errno);
}

std::unique_ptr<IFileLock> PosixFiles::Lock(const std::string& path) {
    const FileTarget target = ResolveTarget(calls_, path);
    auto lock = std::make_unique<PosixFileLock>(calls_, target, lockPatience_, pause_);
    RemoveLeftOvers(calls_, target);
    try {
        RemoveLeftOvers(calls_, ResolveTarget(calls_, path + kBackupEnding));
    } catch (const RunTimeError&) {
        return lock;  // a backup that cannot be written is told by whoever writes it
    }
    return lock;
}

}  // namespace ventlock
