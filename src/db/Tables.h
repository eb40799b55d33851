#pragma once

#include <string_view>

/// Table names, in the letter case that statements carry them.
namespace ventlock::tables {

inline constexpr std::string_view kManufacturers = "Manufacturers";
inline constexpr std::string_view kMfrProtocols = "MfrProtocols";
inline constexpr std::string_view kDeviceTypes = "DeviceTypes";
inline constexpr std::string_view kDeviceRevisions = "DeviceRevisions";

// The old schema's.
inline constexpr std::string_view kMfrIds = "MfrIds";
inline constexpr std::string_view kDevTypes = "DevTypes";
inline constexpr std::string_view kPDevices = "PDevices";

}  // namespace ventlock::tables
