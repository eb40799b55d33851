#include "files/TargetDiff.h"

#include <utility>

#include "files/UnifiedDiff.h"

namespace ventlock {

TargetDiff::TargetDiff(const ProfileStore& profiles, std::string path)
    : profiles_(profiles),
      path_(std::move(path)),
      existed_(profiles.Files().Exists(path_)),
      before_(existed_ ? Shown() : std::string()) {}

std::string TargetDiff::Text() const {
    return UnifiedDiff(before_, Shown(), path_, existed_);
}

/// The file as text, whatever its encoding.
std::string TargetDiff::Shown() const {
    return ProfileFile(profiles_.Files().ReadAll(path_), profiles_.Page()).Text();
}

}  // namespace ventlock
