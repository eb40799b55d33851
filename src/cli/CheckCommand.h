#pragma once

#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Services.h"
#include "entry/RequiredFields.h"

namespace ventlock {

struct CheckOptions {
    std::vector<std::string> files;
    Targets targets;
    bool isOldSchema = false;
    bool isStrict = false;  ///< warnings count as errors
    std::string iniPath;
    std::string ddInstallPath;
};

/// Checks entry files by every rule and writes the findings, sorted, as data. Nothing is connected or
/// written.
ExitCode RunCheck(Services& services, const CheckOptions& options, Console& console);

}  // namespace ventlock
