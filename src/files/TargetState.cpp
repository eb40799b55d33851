#include "files/TargetState.h"

#include <optional>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace ventlock {
namespace {

/// What keeps a file from being written; nothing when it can be.
std::optional<ErrorNumber> Obstacle(IFiles& files, const std::string& path) {
    try {
        files.RequireReplaceable(path);
        return std::nullopt;
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

}  // namespace

TargetState StateOfTarget(IFiles& files, const std::string& path) {
    if (Trim(path).empty()) return TargetState::Writable;
    const std::optional<ErrorNumber> obstacle = Obstacle(files, path);
    const bool isThere = files.Exists(path);
    if (!obstacle) return isThere ? TargetState::Writable : TargetState::WillBeMade;
    if (*obstacle == ErrorNumber::PathNotFound) return TargetState::FolderMissing;
    if (*obstacle != ErrorNumber::PathFileAccessError) return TargetState::Unusable;
    // The file or its folder: a name beside it that nobody uses tells which.
    if (!Obstacle(files, path + ".ventlock")) return isThere ? TargetState::ReadOnly : TargetState::Unusable;
    return TargetState::FolderReadOnly;
}

}  // namespace ventlock
