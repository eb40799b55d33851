#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace ventlock::test {

/// What has been done in a sequence so far, for whoever has to repeat it. While it lives, it is also written
/// to stderr when a sanitizer ends the process.
class Trail {
 public:
    explicit Trail(std::uint32_t seed);
    ~Trail();
    Trail(const Trail&) = delete;
    Trail& operator=(const Trail&) = delete;

    /// Begins the next action.
    void Add(const std::string& action) { actions_.push_back(action); }

    /// Says more about the present action.
    void Note(const std::string& detail) { actions_.back() += " " + detail; }

    /// The present action.
    [[nodiscard]] const std::string& Last() const { return actions_.back(); }

    /// The seed and all actions, a line each.
    void Print(std::ostream& out) const;

 private:
    std::uint32_t seed_;
    std::vector<std::string> actions_;
};

}  // namespace ventlock::test
