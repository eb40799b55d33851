#pragma once

#include <string>
#include <string_view>
#include <vector>

// What profile files are made of, told by other means than the product's.
namespace ventlock::test {

/// A line of a text and its end: CR, LF, CR LF or, of the last one, nothing.
struct Line {
    std::string_view content;
    std::string_view end;
    bool operator==(const Line&) const = default;
};

/// The lines of a text. They live as long as the text.
std::vector<Line> LinesOf(std::string_view text);

/// What a value that was written reads as: without the blanks around it and then without one pair of quotes.
std::string AsRead(std::string value);

}  // namespace ventlock::test
