#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Services.h"

namespace ventlock {

/// Which devices a call means: ids in any form of the same number; nothing means every one.
struct DeviceChoice {
    std::optional<std::string> manufacturer;  ///< hexadecimal
    std::optional<std::string> type;
    std::optional<std::string> revision;
    std::optional<std::string> protocol;  ///< decimal
};

struct ExportOptions {
    bool isDatabase = false;    ///< else the source is "Ddinstal.ini"
    std::string ddInstallPath;  ///< absolute
    DeviceChoice choice;
    bool isList = false;                ///< list what is there instead
    std::vector<std::string> more;      ///< "KEY=VALUE" each, for what the source does not hold
    std::optional<std::string> output;  ///< file to write the entry to instead of stdout
    bool mayReplace = false;            ///< the file may be there
};

/// Writes the one device that is chosen as an entry file. What a registration of the entry would change in
/// the source, because an entry cannot say it, is told as a warning. The source is only read; the services
/// must be ones that only note statements.
/// @throws CliError 2 when not one device is chosen or the file exists, 1 or 3 for what cannot be read or
/// written.
ExitCode RunExport(Services& services, const ExportOptions& options, Console& console);

}  // namespace ventlock
