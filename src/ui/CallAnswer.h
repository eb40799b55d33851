#pragma once

#include <string>

namespace ventlock {

/// Tells what the program's call asked for: on standard output, and in a box where a program with windows has
/// none.
/// @return False when it could not be written.
bool TellAnswer(const std::string& text);

}  // namespace ventlock
