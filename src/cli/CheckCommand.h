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
    bool isStrict = false;  ///< warnings count as errors, and so does a file that is left out
    std::string iniPath;
    std::string ddInstallPath;
};

/// Checks entry files by every rule and writes the findings, sorted, as data. A file of a folder that is left
/// out counts as a warning. Nothing is connected or written.
ExitCode RunCheck(Services& services, const CheckOptions& options, Console& console);

}  // namespace ventlock
