#pragma once

#include <span>
#include <string_view>

namespace ventlock {

/// A variable or a path that the programs on Linux look at.
struct Place {
    std::string_view name;
    std::string_view text;  ///< what it is, one sentence without a full stop; names stand between backquotes
};

std::span<const Place> EnvironmentVariables();
std::span<const Place> KeptFiles();

}  // namespace ventlock
