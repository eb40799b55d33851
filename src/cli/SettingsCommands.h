#pragma once

#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Services.h"

namespace ventlock {

/// Names of all settings in the order of their listing; with `isToChange` only of those that SetSetting
/// takes.
std::vector<std::string> SettingNames(bool isToChange);

/// Every setting as name=value, in the order of their reading.
ExitCode ListSettings(Services& services, Console& console);

/// The value of one setting. @throws CliError 2 for an unknown name.
ExitCode GetSetting(Services& services, const std::string& name, Console& console);

/// Stores one setting. "DataSourceName" goes into "Pyx.ini", all others into the registry.
/// @throws CliError 2 for an unknown name or a value that is no number of 16 bits where one is asked for, 1
/// when the store refuses.
ExitCode SetSetting(Services& services, const std::string& name, const std::string& value, Console& console);

}  // namespace ventlock
