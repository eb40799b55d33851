#pragma once

#include <string>
#include <vector>

namespace ventlock::odbc {

/// True when a failed connect's records say that the data source's driver is of another word size than this
/// program.
bool TellOtherWordSize(const std::vector<std::string>& diagnostics);

/// One sentence for a user whose driver is of another word size: which one this program needs, and where this
/// host lists what fits.
std::string WordSizeAdvice();

/// One sentence for a user whose driver is missing: what to install, and where this host lists what is
/// installed.
std::string MissingDriverAdvice();

}  // namespace ventlock::odbc
