#include "platform/posix/ReplacementFile.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <random>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/posix/FileErrors.h"

namespace ventlock {
namespace {

constexpr int kMostNames = 100;
constexpr mode_t kPrivateMode = 0600;
constexpr mode_t kModeBits = 07777;

constexpr std::size_t kMostOfName = 200;  // so that a name as long as the system allows leaves room
constexpr std::size_t kDigits = 32;
constexpr std::string_view kEnding = ".tmp";

/// What the names of all temporary files for a file begin with.
std::string TemporaryBegin(const FileTarget& target) {
    return "." + target.name.substr(0, kMostOfName) + ".ventlock-";
}

std::string UnforeseeableName(const FileTarget& target) {
    std::random_device random;
    std::string name = TemporaryBegin(target);
    for (std::size_t i = 0; i < kDigits / 8; ++i) {
        std::array<char, 9> digits{};
        std::snprintf(digits.data(), digits.size(), "%08x", random());
        name += digits.data();
    }
    return name.append(kEnding);
}

}  // namespace

bool WriteAll(const FileCalls& calls, int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written =
            Uninterrupted([&] { return calls.write(descriptor, bytes.data(), bytes.size()); });
        if (written < 0) return false;
        if (written == 0) {
            errno = EIO;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

void RemoveLeftOvers(const FileCalls& calls, const FileTarget& target) {
    std::vector<std::string> names;
    if (calls.list(target.folder.c_str(), names) != 0) return;
    const std::string begin = TemporaryBegin(target);
    for (const std::string& name : names) {
        const bool isLeftOver = name.size() == begin.size() + kDigits + kEnding.size() &&
                                name.starts_with(begin) && name.ends_with(kEnding);
        if (isLeftOver) calls.unlink((target.folder + "/" + name).c_str());
    }
}

ReplacementFile::ReplacementFile(const FileCalls& calls, const FileTarget& target)
    : calls_(calls), target_(target), file_(calls, Create()) {
    if (!target_.exists) return;
    try {
        KeepModeAndOwner();
    } catch (...) {
        calls_.unlink(temporary_.c_str());
        throw;
    }
}

ReplacementFile::~ReplacementFile() {
    if (!temporary_.empty()) calls_.unlink(temporary_.c_str());
}

int ReplacementFile::Create() {
    // Until the old file's mode and owner are known to be kept nobody else may read the new one.
    const mode_t mode = target_.exists ? kPrivateMode : kOrdinaryMode;
    for (int attempt = 0; attempt < kMostNames; ++attempt) {
        const std::string path = target_.folder + "/" + UnforeseeableName(target_);
        const int descriptor = Uninterrupted([&] {
            return calls_.open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        });
        if (descriptor >= 0) {
            temporary_ = path;
            return descriptor;
        }
        if (errno != EEXIST) break;
    }
    if (errno == ENOENT) throw FileError(ErrorNumber::PathNotFound, target_.given, ENOENT);
    Raise();
}

void ReplacementFile::KeepModeAndOwner() {
    // An ordinary user may keep the group but not another owner; the file then becomes the writer's own.
    const bool ownerKept = calls_.fchown(file_.Number(), target_.facts.st_uid, target_.facts.st_gid) == 0;
    if (!ownerKept && errno != EPERM) Raise();
    if (!ownerKept && calls_.fchown(file_.Number(), static_cast<uid_t>(-1), target_.facts.st_gid) != 0 &&
        errno != EPERM) {
        Raise();
    }
    if (calls_.fchmod(file_.Number(), target_.facts.st_mode & kModeBits) != 0) Raise();
}

void ReplacementFile::Write(std::string_view bytes) {
    if (!WriteAll(calls_, file_.Number(), bytes)) Raise();
}

void ReplacementFile::Commit() {
    if (Uninterrupted([&] { return calls_.fsync(file_.Number()); }) != 0) Raise();
    if (!file_.Close()) Raise();
    Descriptor folder(calls_, Uninterrupted([&] {
                          return calls_.open(target_.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
                      }));
    // A folder that may be written but not read cannot be opened; the system then brings the name to the disk
    // later.
    if (!folder.IsOpen() && errno != EACCES) Raise();
    if (calls_.rename(temporary_.c_str(), target_.path.c_str()) != 0) Raise();
    temporary_.clear();
    // EINVAL: the file system has nothing to bring to the disk for a folder.
    if (folder.IsOpen() && Uninterrupted([&] { return calls_.fsync(folder.Number()); }) != 0 &&
        errno != EINVAL) {
        Raise();
    }
}

void ReplacementFile::Raise() const {
    throw FileError(target_.given, errno);
}

}  // namespace ventlock
