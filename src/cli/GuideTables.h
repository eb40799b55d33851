#pragma once

#include <string>
#include <string_view>

#include "cli/CommandDescription.h"

namespace ventlock {

/// A document in Markdown with its tables made anew of what the program says of itself. A table stands
/// between the lines `<!-- table: NAME -->` and `<!-- end of table -->`; NAME is "commands", "options", "exit
/// codes", "environment" or "files".
/// @throws std::runtime_error naming a table that is none of these or has no end.
std::string WithTables(std::string_view document, const CommandDescription& program);

}  // namespace ventlock
