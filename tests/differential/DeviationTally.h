#pragma once

#include <array>
#include <string>

#include "differential/Deviation.h"
#include "differential/Observation.h"

namespace ventlock::test {

/// Counts what each deviation accounts for and keeps the plainest example of it: with the fewest others, then
/// the shortest.
class DeviationTally {
 public:
    /// One difference, by all the deviations that have a part in it.
    void Add(const Deviations& parts, ObservationKind kind, const std::string& example);

    /// Differences that the deviation has a part in.
    [[nodiscard]] int Count(Deviation deviation) const;

    [[nodiscard]] std::string Table() const;

 private:
    struct Row {
        std::array<int, 3> counts{};
        std::size_t partsOfExample = 0;
        std::string example;
    };
    std::array<Row, kDeviations> rows_;
};

}  // namespace ventlock::test
