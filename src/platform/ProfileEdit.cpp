#include "platform/ProfileEdit.h"

#include <utility>

#include "base/RunTimeError.h"

namespace ventlock {
namespace {

ProfileFile FileOrNone(IFiles& files, const std::string& path, CodePage codePage) {
    try {
        return {files.Exists(path) ? files.ReadAll(path) : std::string(), codePage};
    } catch (const RunTimeError&) {
        return {"", codePage};  // an unreadable file reads like a missing one
    }
}

/// Nothing only for a file that is certainly missing: one that is taken for missing would be replaced by an
/// empty one.
std::optional<std::string> BytesIfThere(IFiles& files, const std::string& path) {
    try {
        return files.ReadAll(path);
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::FileNotFound) throw;
        return std::nullopt;
    }
}

}  // namespace

std::string ProfileStore::Read(const std::string& path, std::string_view section, std::string_view key,
                               std::string_view fallback, std::size_t bufferSize) const {
    return FileOrNone(*files_, path, codePage_).ReadOr(section, key, fallback, bufferSize);
}

void ProfileStore::Write(const std::string& path, std::string_view section, std::string_view key,
                         std::string_view value) const {
    ProfileEdit edit(*this, path);
    edit.File().Write(section, key, value);
    edit.Save();
}

ProfileEdit::ProfileEdit(const ProfileStore& store, std::string path)
    : files_(&store.Files()),
      path_(std::move(path)),
      lock_(files_->Lock(path_)),
      found_(BytesIfThere(*files_, path_)),
      file_(found_ ? std::string_view(*found_) : std::string_view(), store.Page()) {}

void ProfileEdit::Save() {
    std::string room;
    const std::string_view bytes = file_.Bytes(room);
    if (found_ == bytes) return;
    files_->Replace(path_, bytes);
}

}  // namespace ventlock
