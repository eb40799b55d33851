#pragma once

#include <string>

#include "base/RunTimeError.h"

namespace ventlock {

/// The run-time error number that a system error code (GetLastError) of a file operation stands for. "File
/// not found" gives 53; who knows that the folder is what is missing raises 76 instead.
ErrorNumber FileErrorNumber(unsigned long code);

/// The error of a path; its circumstance is the path in quotes and the system's own words for `code`, in the
/// user's language; "error" and the code where the system has none.
RunTimeError FileError(ErrorNumber number, const std::string& path, unsigned long code);
RunTimeError FileError(const std::string& path, unsigned long code);

}  // namespace ventlock
