#pragma once

#include <string>

#include "platform/ProfileEdit.h"

namespace ventlock {

/// Looks at a target file before and after a write.
class TargetDiff {
 public:
    /// Reads the file as it is now; `profiles` must outlive this object.
    /// @throws RunTimeError when a file that is there cannot be read.
    TargetDiff(const ProfileStore& profiles, std::string path);

    /// What has changed since, as UnifiedDiff tells it. @throws RunTimeError when the file cannot be read.
    [[nodiscard]] std::string Text() const;

 private:
    [[nodiscard]] std::string Shown() const;

    const ProfileStore& profiles_;
    std::string path_;
    bool existed_;
    std::string before_;
};

}  // namespace ventlock
