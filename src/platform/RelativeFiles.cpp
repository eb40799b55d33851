#include "platform/RelativeFiles.h"

#include <utility>

#include "base/Text.h"

namespace ventlock {

RelativeFiles::RelativeFiles(IFiles& below, IPaths& paths, std::string folder)
    : below_(below), paths_(paths), folder_(std::move(folder)) {}

std::string RelativeFiles::Absolute(const std::string& path) const {
    return Trim(path).empty() || paths_.IsAbsolute(path) ? path : paths_.Join(folder_, path);
}

bool RelativeFiles::Exists(const std::string& path) {
    return below_.Exists(Absolute(path));
}

std::optional<std::vector<std::string>> RelativeFiles::FilesIn(const std::string& folder) {
    return below_.FilesIn(Absolute(folder));
}

void RelativeFiles::RequireReplaceable(const std::string& path) {
    below_.RequireReplaceable(Absolute(path));
}

std::string RelativeFiles::ReadAll(const std::string& path) {
    return below_.ReadAll(Absolute(path));
}

std::optional<std::string> RelativeFiles::ReadIfThere(const std::string& path) {
    return below_.ReadIfThere(Absolute(path));
}

std::string RelativeFiles::ReadBeginning(const std::string& path, std::size_t most) {
    return below_.ReadBeginning(Absolute(path), most);
}

void RelativeFiles::Replace(const std::string& path, std::string_view bytes) {
    below_.Replace(Absolute(path), bytes);
}

void RelativeFiles::Copy(const std::string& from, const std::string& to) {
    below_.Copy(Absolute(from), Absolute(to));
}

void RelativeFiles::Append(const std::string& path, std::string_view bytes) {
    below_.Append(Absolute(path), bytes);
}

std::unique_ptr<IFileLock> RelativeFiles::Lock(const std::string& path) {
    return below_.Lock(Absolute(path));
}

}  // namespace ventlock
