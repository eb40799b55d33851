#include "fuzz/Lines.h"

#include <algorithm>

namespace ventlock::test {

std::vector<Line> LinesOf(std::string_view text) {
    std::vector<Line> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
        const std::size_t end = text.substr(length, 2) == "\r\n" ? 2 : 1;
        lines.push_back({text.substr(0, length), text.substr(length, end)});
        text.remove_prefix(std::min(length + end, text.size()));
    }
    return lines;
}

}  // namespace ventlock::test
