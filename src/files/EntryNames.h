#pragma once

#include <string>
#include <string_view>

namespace ventlock {

/// Identifiers as both files write them: hexadecimal digits as typed, filled with "0" on the left, never cut.
std::string PaddedManufacturer(std::string_view id);  ///< 6 characters
std::string PaddedDeviceType(std::string_view id);    ///< 4 characters
std::string PaddedRevision(std::string_view id);      ///< 2 characters, device and DD revisions

/// A hexadecimal text in decimal, without blanks: "0A" gives "10".
std::string DecimalOfHex(std::string_view hex);

/// Key of a device revision in "Pyx.ini", such as 000026.0007.01; also its section's name.
std::string DeviceKey(std::string_view manufacturer, std::string_view type, std::string_view revision);

/// Folder of a device's resources as the "Devices" line names it, such as 000026/0007.
std::string DeviceDirectory(std::string_view manufacturer, std::string_view type);

/// What stands in front of a resource file's name, such as 000026\0007\ .
std::string ResourcePrefix(std::string_view manufacturer, std::string_view type);

}  // namespace ventlock
