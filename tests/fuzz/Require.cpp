#include "fuzz/Require.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace ventlock::test {
namespace {

std::string Printable(std::string_view text) {
    std::string shown;
    for (const char c : text) {
        if (c >= 0x20 && c < 0x7F && c != '\\') {
            shown += c;
            continue;
        }
        std::array<char, 5> escaped{};
        std::snprintf(escaped.data(), escaped.size(), "\\x%02X", static_cast<unsigned char>(c));
        shown += escaped.data();
    }
    return shown;
}

[[noreturn]] void Abort(std::string_view rule, const std::string& facts) {
    std::fprintf(stderr, "Broken rule: %s\n%s\n", std::string(rule).c_str(), facts.c_str());
    std::abort();
}

}  // namespace

void Require(bool holds, std::string_view rule, std::string_view facts) {
    if (!holds) Abort(rule, Printable(facts));
}

void RequireSame(std::string_view actual, std::string_view expected, std::string_view rule) {
    if (actual == expected) return;
    const auto parting = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end()).first;
    Abort(rule, "actual:   " + Printable(actual) + "\nexpected: " + Printable(expected) +
                    "\nthey part at byte " + std::to_string(parting - actual.begin()));
}

}  // namespace ventlock::test
