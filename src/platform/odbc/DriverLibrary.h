#pragma once

#include <string>

namespace ventlock::odbc {

/// True when a failed connect's record names a driver's library that is there and is made for programs of
/// another word size. Where the driver manager itself tells so, by a state of its own, this is never true.
bool NamesLibraryOfOtherWordSize(const std::string& record);

}  // namespace ventlock::odbc
