#include "platform/ProfileEdit.h"

#include <utility>

#include "base/RunTimeError.h"

namespace ventlock {

std::string ProfileStore::Read(const std::string& path, std::string_view section, std::string_view key,
                               std::string_view fallback, std::size_t bufferSize) const {
    try {
        if (!files_->Exists(path)) return std::string(fallback);
        const ProfileFile file(files_->ReadAll(path), codePage_);
        return file.Read(section, key, bufferSize).value_or(std::string(fallback));
    } catch (const RunTimeError&) {
        return std::string(fallback);  // an unreadable file reads like a missing one
    }
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
      existed_(files_->Exists(path_)),
      before_(existed_ ? files_->ReadAll(path_) : std::string()),
      file_(before_, store.Page()) {}

void ProfileEdit::Save() {
    const std::string bytes = file_.Bytes();
    if (existed_ && bytes == before_) return;
    files_->Replace(path_, bytes);
}

}  // namespace ventlock
