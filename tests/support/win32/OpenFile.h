#pragma once

#include <string>

namespace ventlock::test {

/// True when some program, this one too, has the file open; fails the test when the file cannot be asked.
bool IsOpen(const std::string& path);

}  // namespace ventlock::test
