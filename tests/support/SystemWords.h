#pragma once

#include <string>

namespace ventlock::test {

/// The system's words for a code of its own, as messages of failed file operations end.
std::string SystemWords(unsigned long code);

}  // namespace ventlock::test
