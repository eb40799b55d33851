#pragma once

#include <string>
#include <vector>

#include "entry/RequiredFields.h"

namespace ventlock {

/// Which entries a command takes and which targets it looks at.
struct PlanOptions {
    std::vector<std::string> files;  ///< entry files, and folders of them
    Targets targets;
    std::string iniPath;  ///< absolute
    std::string ddInstallPath;
    bool isReadOnly = false;  ///< the targets are only read, so that they need not be writable
};

}  // namespace ventlock
