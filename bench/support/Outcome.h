#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "support/Upsert.h"

namespace ventlock::bench {

/// What a candidate made of a file.
struct Outcome {
    bool hasEntry = false;         ///< every upsert can be read from it
    std::size_t changedBytes = 0;  ///< of lines that are none of the entry's: gone, new or at another place
};

/// What of a file's lines counts when they are compared.
enum class Compared {
    Everything,  ///< every byte; a blank line before a header of the entry is the entry's
    Contents,    ///< line ends and blank lines do not count: where a file has none of the usual ones
};

Outcome Compare(std::string_view before, std::string_view after, const std::vector<Upsert>& upserts,
                Compared compared);

}  // namespace ventlock::bench
