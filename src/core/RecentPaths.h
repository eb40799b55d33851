#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/clsSettings.h"

namespace ventlock {

/// The paths that were written last to one kind of file. They are read from the settings store when they are
/// asked for and stored at once, so that two windows keep one list.
class RecentPaths {
 public:
    /// How many are kept.
    static constexpr std::size_t kMost = 8;

    /// @param settings     must outlive this object
    /// @param name         of the setting that holds them, one of LateSettings()
    /// @param ignoresCase  whether paths that differ in case lead to the same file
    RecentPaths(clsSettings& settings, std::string_view name, bool ignoresCase);

    /// The latest first.
    [[nodiscard]] std::vector<std::string> Paths();

    /// Puts a path before the others; it stands nowhere else then. A blank path and one with the character
    /// between two paths, "|", are not kept. Returns the registry's answer.
    RegistryStatus Remember(const std::string& path);

    /// Forgets all of them. Returns the registry's answer.
    RegistryStatus Clear();

 private:
    [[nodiscard]] bool AreSame(const std::string& a, const std::string& b) const;

    clsSettings& settings_;
    const LateSetting& setting_;
    bool ignoresCase_;
};

}  // namespace ventlock
