#include "differential/DeviationTally.h"

#include <iomanip>
#include <numeric>
#include <sstream>
#include <utility>

namespace ventlock::test {

void DeviationTally::Add(const Deviations& parts, ObservationKind kind, const std::string& example) {
    for (std::size_t i = 0; i < kDeviations; ++i) {
        if (!parts.test(i)) continue;
        Row& row = rows_.at(i);
        ++row.counts.at(static_cast<std::size_t>(kind));
        const bool isPlainer =
            std::pair(parts.count(), example.size()) < std::pair(row.partsOfExample, row.example.size());
        if (!row.example.empty() && !isPlainer) continue;
        row.partsOfExample = parts.count();
        row.example = example;
    }
}

int DeviationTally::Count(Deviation deviation) const {
    const auto& counts = rows_.at(static_cast<std::size_t>(deviation)).counts;
    return std::accumulate(counts.begin(), counts.end(), 0);
}

std::string DeviationTally::Table() const {
    std::ostringstream table;
    table << std::left << std::setw(42) << "the host's deviation" << std::right << std::setw(8) << "read"
          << std::setw(8) << "back" << std::setw(8) << "bytes"
          << "  shortest example\n";
    for (std::size_t i = 0; i < kDeviations; ++i) {
        table << std::left << std::setw(42) << kDeviationNames.at(i) << std::right;
        for (const int count : rows_.at(i).counts) table << std::setw(8) << count;
        table << "  " << rows_.at(i).example << "\n";
    }
    return table.str();
}

}  // namespace ventlock::test
