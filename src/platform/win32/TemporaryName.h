#pragma once

#include <string>

namespace ventlock {

/// A name that nobody can foresee for a file that is soon to go: ".ventlock-", 32 hexadecimal digits, ".tmp".
std::wstring TemporaryName();

}  // namespace ventlock
