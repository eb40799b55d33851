#pragma once

#include <functional>
#include <map>
#include <string>

namespace ventlock {

/// What a target holds of a device, by the names of the settings ("ManID", "DevName"); ids and revisions are
/// hexadecimal, those of protocols and categories decimal. What the target does not hold is left out.
using DeviceTexts = std::map<std::string, std::string, std::less<>>;

}  // namespace ventlock
