#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Names in the DD install file that are written and read back.
namespace ventlock::ddinstall {

inline constexpr std::string_view kGeneral = "General";
inline constexpr std::string_view kManufacturers = "NumOfMfg";

// Of a manufacturer's section.
inline constexpr std::string_view kManufacturerId = "ID";
inline constexpr std::string_view kManufacturerName = "Name";
inline constexpr std::string_view kDevices = "NumOfDev";

// Of a device's section.
inline constexpr std::string_view kType = "DevType";
inline constexpr std::string_view kTypeName = "DevTypeDesc";
inline constexpr std::string_view kRevision = "DevTypeRev";
inline constexpr std::string_view kDDRevision = "DDRevDesc";
inline constexpr std::string_view kDeviceHelp = "DeviceHelp";
inline constexpr std::string_view kBlockHelp = "BlockHelp";
inline constexpr std::string_view kDll = "DeviceDLL";
inline constexpr std::string_view kTemplate = "Template";
inline constexpr std::string_view kProtocolRevision = "HART Protocol Rev";
inline constexpr std::string_view kVersions = "TAVVersionSupport";

inline constexpr std::string_view kDDRevisionBegin = "DD Rev ";  ///< in front of the decimal number
inline constexpr std::string_view kFileBegin = "1,";             ///< in front of a file's name

inline std::string ManufacturerSection(std::int16_t manufacturer) {
    return "Mfg" + std::to_string(manufacturer);
}

/// @param id  of the manufacturer, as its section has it
inline std::string DeviceSection(std::string_view id, std::int16_t device) {
    return std::string(id) + "." + std::to_string(device);
}

}  // namespace ventlock::ddinstall
