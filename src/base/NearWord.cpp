#include "base/NearWord.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace ventlock {
namespace {

/// Slips that may lie between two words, the shorter of which has this length.
std::size_t MostSlips(std::size_t length) {
    constexpr std::size_t kShort = 4;
    if (length < 2) return 0;
    return length <= kShort ? 1 : 2;
}

std::size_t SlipsBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(b.size() + 1);  // slips from what is read of `a` to each beginning of `b`
    for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        beforeLast = std::exchange(last, row);
        row[0] = i;
        for (std::size_t j = 1; j < row.size(); ++j) {
            const std::size_t wrong = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, wrong});
            const bool isChanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (isChanged) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row.back();
}

}  // namespace

std::optional<std::size_t> NearestWord(std::string_view word, std::span<const std::string> known) {
    std::optional<std::size_t> nearest;
    std::size_t fewest = 0;
    for (std::size_t i = 0; i < known.size(); ++i) {
        const auto [shorter, longer] = std::minmax({word.size(), known[i].size()});
        const std::size_t most = MostSlips(shorter);
        if (longer - shorter > most) continue;
        const std::size_t slips = SlipsBetween(word, known[i]);
        if (slips > most || (nearest && slips >= fewest)) continue;
        nearest = i;
        fewest = slips;
    }
    return nearest;
}

}  // namespace ventlock
