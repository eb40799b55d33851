#pragma once

#include <string>
#include <string_view>

#include "cli/CommandDescription.h"

namespace ventlock {

/// The command line's page of the manual, in mdoc: `outline` with the lines "%COMMANDS%", "%OPTIONS%",
/// "%EXIT STATUS%" and "%EXAMPLES%" replaced by what the program's own grammar says of them.
/// @throws std::runtime_error naming a line of that kind that the outline lacks.
std::string ManualPage(std::string_view outline, const CommandDescription& program);

/// A page with the lines "%ENVIRONMENT%" and "%FILES%" replaced by what the programs look at.
/// @throws std::runtime_error naming a line of that kind that the outline lacks.
std::string WithPlaces(std::string_view outline);

}  // namespace ventlock
