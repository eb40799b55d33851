#pragma once

#include <string_view>
#include <vector>

namespace ventlock::test {

/// A line of a text and its end: CR, LF, CR LF or, of the last one, nothing.
struct Line {
    std::string_view content;
    std::string_view end;
    bool operator==(const Line&) const = default;
};

/// The lines of a text, by other means than the product's. They live as long as the text.
std::vector<Line> LinesOf(std::string_view text);

}  // namespace ventlock::test
