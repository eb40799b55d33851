#pragma once

#include <memory>
#include <string>

#include "platform/CodePage.h"
#include "platform/IFiles.h"
#include "platform/ProfileFile.h"

namespace ventlock {

/// Where profile files are found and the code page of those that carry no mark of their own.
/// Must not outlive the files it was given.
class ProfileStore {
 public:
    ProfileStore(IFiles& files, CodePage codePage) : files_(&files), codePage_(codePage) {}

    /// The value of one key of a file as ProfileFile::ReadOr gives it; the fallback also when the file is
    /// missing or cannot be read.
    [[nodiscard]] std::string Read(const std::string& path, std::string_view section, std::string_view key,
                                   std::string_view fallback, std::size_t bufferSize) const;

    /// Sets one key of a file and stores it. @throws RunTimeError as ProfileEdit.
    void Write(const std::string& path, std::string_view section, std::string_view key,
               std::string_view value) const;

    [[nodiscard]] IFiles& Files() const noexcept { return *files_; }
    [[nodiscard]] CodePage Page() const noexcept { return codePage_; }

 private:
    IFiles* files_;
    CodePage codePage_;
};

/// One edit of a profile file: its lock is held, and the file is read once, from the making of this object
/// on; Save replaces it once. Destroyed without Save it leaves the file as it was.
class ProfileEdit {
 public:
    /// A missing file counts as empty and is created by Save.
    /// @throws RunTimeError 75 for an empty path or a file that cannot be read, 76 for a missing folder.
    ProfileEdit(const ProfileStore& store, std::string path);

    [[nodiscard]] ProfileFile& File() noexcept { return file_; }
    [[nodiscard]] const std::string& Path() const noexcept { return path_; }

    /// True when the file was there when the edit began.
    [[nodiscard]] bool Existed() const noexcept { return existed_; }

    /// Replaces the file with what File() holds now, if that has been changed.
    /// @throws RunTimeError; the file is then as it was.
    void Save();

 private:
    ProfileFile Found(CodePage codePage);

    IFiles* files_;
    std::string path_;
    std::unique_ptr<IFileLock> lock_;
    bool existed_ = false;
    ProfileFile file_;
};

}  // namespace ventlock
