#pragma once

#include <string>

#include "base/RunTimeError.h"

namespace ventlock {

/// The run-time error number that a system error code (errno) of a file operation stands for. ENOENT gives
/// 53; who knows that the folder is what is missing raises 76 instead.
ErrorNumber FileErrorNumber(int code);

/// The error of a path; its circumstance is the path in quotes and the system's own words for `code`.
RunTimeError FileError(ErrorNumber number, const std::string& path, int code);
RunTimeError FileError(const std::string& path, int code);

}  // namespace ventlock
