#include "files/EntryNames.h"

#include "base/Numbers.h"
#include "core/modCommonTools.h"

namespace ventlock {

std::string PaddedManufacturer(std::string_view id) {
    return PadString(id, 6);
}

std::string PaddedDeviceType(std::string_view id) {
    return PadString(id, 4);
}

std::string PaddedRevision(std::string_view id) {
    return PadString(id, 2);
}

std::string DecimalOfHex(std::string_view hex) {
    return DecimalText(HexToNumber(hex));
}

// The three separators differ on purpose: the station reads each in its own way.
std::string DeviceKey(std::string_view manufacturer, std::string_view type, std::string_view revision) {
    return PaddedManufacturer(manufacturer) + "." + PaddedDeviceType(type) + "." + PaddedRevision(revision);
}

std::string DeviceDirectory(std::string_view manufacturer, std::string_view type) {
    return PaddedManufacturer(manufacturer) + "/" + PaddedDeviceType(type);
}

std::string ResourcePrefix(std::string_view manufacturer, std::string_view type) {
    return PaddedManufacturer(manufacturer) + "\\" + PaddedDeviceType(type) + "\\";
}

}  // namespace ventlock
