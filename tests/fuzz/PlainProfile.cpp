#include "fuzz/PlainProfile.h"

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

std::string AsRead(std::string value) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\v'; };
    while (!value.empty() && isBlank(value.front())) value.erase(value.begin());
    while (!value.empty() && isBlank(value.back())) value.pop_back();
    for (const char quote : {'"', '\''}) {
        if (value.size() < 2 || value.front() != quote || value.back() != quote) continue;
        return value.substr(1, value.size() - 2);
    }
    return value;
}

}  // namespace ventlock::test
