#include "core/RecentPaths.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

constexpr char kBetween = '|';  // in no path of Windows

}  // namespace

RecentPaths::RecentPaths(clsSettings& settings, std::string_view name, bool ignoresCase)
    : settings_(settings), setting_(*FindLateSetting(name)), ignoresCase_(ignoresCase) {}

bool RecentPaths::AreSame(const std::string& a, const std::string& b) const {
    return ignoresCase_ ? EqualIgnoringCase(a, b) : a == b;
}

std::vector<std::string> RecentPaths::Paths() {
    std::vector<std::string> paths;
    const std::string stored = settings_.LateText(setting_);
    for (std::size_t begin = 0; begin <= stored.size() && paths.size() < kMost;) {
        const std::size_t end = std::min(stored.find(kBetween, begin), stored.size());
        const std::string path = stored.substr(begin, end - begin);
        if (!Trim(path).empty()) paths.push_back(path);
        begin = end + 1;
    }
    return paths;
}

RegistryStatus RecentPaths::Remember(const std::string& path) {
    if (Trim(path).empty() || path.find(kBetween) != std::string::npos) return kRegistrySuccess;
    std::string stored = path;
    std::size_t count = 1;
    for (const std::string& other : Paths()) {
        if (AreSame(other, path) || count == kMost) continue;
        stored += kBetween + other;
        ++count;
    }
    return settings_.StoreLate(setting_, stored);
}

RegistryStatus RecentPaths::Clear() {
    return settings_.StoreLate(setting_, "");
}

}  // namespace ventlock
