#include "platform/OverlayFiles.h"

namespace ventlock {

bool OverlayFiles::Exists(const std::string& path) {
    return written_.contains(path) || below_->Exists(path);
}

std::optional<std::vector<std::string>> OverlayFiles::FilesIn(const std::string& folder) {
    return below_->FilesIn(folder);
}

void OverlayFiles::RequireReplaceable(const std::string& path) {
    below_->RequireReplaceable(path);
}

std::string OverlayFiles::ReadAll(const std::string& path) {
    const auto found = written_.find(path);
    return found != written_.end() ? found->second : below_->ReadAll(path);
}

void OverlayFiles::Replace(const std::string& path, std::string_view bytes) {
    below_->RequireReplaceable(path);
    written_[path] = bytes;
}

void OverlayFiles::Copy(const std::string& from, const std::string& to) {
    below_->RequireReplaceable(to);
    written_[to] = ReadAll(from);
}

void OverlayFiles::Append(const std::string& path, std::string_view bytes) {
    below_->RequireReplaceable(path);
    written_[path] = (Exists(path) ? ReadAll(path) : std::string()) + std::string(bytes);
}

std::unique_ptr<IFileLock> OverlayFiles::Lock(const std::string& path) {
    // The lock keeps writers apart, and nothing is written here; a real lock could leave its own file behind.
    below_->RequireReplaceable(path);
    return std::make_unique<IFileLock>();
}

}  // namespace ventlock
