#include "entry/FileFilters.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"

namespace ventlock {
namespace {

constexpr std::string_view kAllFiles = "*.*|*.*";

std::vector<std::string_view> Parts(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t bar = text.find('|'); bar != std::string_view::npos; bar = text.find('|')) {
        parts.push_back(text.substr(0, bar));
        text.remove_prefix(bar + 1);
    }
    parts.push_back(text);
    return parts;
}

/// How many pairs of description and pattern the text is a list of; 0 when it is no such list.
int PairCount(std::string_view text) {
    const std::vector<std::string_view> parts = Parts(text);
    if (parts.size() % 2 != 0) return 0;
    for (std::size_t pattern = 1; pattern < parts.size(); pattern += 2) {
        if (Trim(parts[pattern]).empty()) return 0;
    }
    return static_cast<int>(parts.size() / 2);
}

}  // namespace

FileFilters UsableFilters(std::string_view text, int preselected) {
    const int count = PairCount(text);
    if (count == 0) return {.text = std::string(kAllFiles), .preselected = 1};
    return {.text = std::string(text), .preselected = std::clamp(preselected, 1, count)};
}

}  // namespace ventlock
