#pragma once

#include <string>

namespace ventlock::odbc {

/// One sentence for a user whose driver is of another word size: which one this program needs, and where this
/// host lists what fits.
std::string WordSizeAdvice();

/// One sentence for a user whose driver is missing: what to install, and where this host lists what is
/// installed.
std::string MissingDriverAdvice();

}  // namespace ventlock::odbc
