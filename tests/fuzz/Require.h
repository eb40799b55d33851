#pragma once

#include <string_view>

namespace ventlock::test {

/// Ends the program with `rule` and what is known about the breach, control characters and bytes above 7E as
/// \xHH, unless the rule holds.
void Require(bool holds, std::string_view rule, std::string_view facts = {});

/// Ends the program unless both texts are the same; tells both and where they part.
void RequireSame(std::string_view actual, std::string_view expected, std::string_view rule);

}  // namespace ventlock::test
