#include "platform/ProfileEdit.h"

#include <optional>
#include <utility>

#include "base/RunTimeError.h"

namespace ventlock {
namespace {

ProfileFile FileOrNone(IFiles& files, const std::string& path, CodePage codePage) {
    try {
        return {files.ReadIfThere(path).value_or(""), codePage};
    } catch (const RunTimeError&) {
        return {"", codePage};  // an unreadable file reads like a missing one
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
      file_(Found(store.Page())) {}

ProfileFile ProfileEdit::Found(CodePage codePage) {
    std::optional<std::string> bytes = files_->ReadIfThere(path_);
    existed_ = bytes.has_value();
    return {std::move(bytes).value_or(""), codePage};
}

void ProfileEdit::Save() {
    if (existed_ && !file_.IsChanged()) return;
    std::string room;
    files_->Replace(path_, file_.Bytes(room));
}

}  // namespace ventlock
