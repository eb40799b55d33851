#include <optional>
#include <utility>

#include "base/Numbers.h"
#include "core/modCommonTools.h"
#include "files/DDInstallNames.h"
#include "files/clsDDInstall.h"

namespace ventlock {

using namespace ddinstall;

namespace {

/// Nothing for a text that begins otherwise.
std::optional<std::string> Behind(const std::optional<std::string>& text, std::string_view begin) {
    if (!text || !text->starts_with(begin)) return std::nullopt;
    return text->substr(begin.size());
}

/// The hexadecimal form of a text in hexadecimal or decimal digits. Nothing for any other text.
std::optional<std::string> Id(const std::optional<std::string>& text, std::string_view digits) {
    const bool isNumber = text && !text->empty() && text->size() <= kMostIdDigits &&
                          text->find_first_not_of(digits) == std::string::npos;
    if (!isNumber) return std::nullopt;
    constexpr std::size_t kDecimal = 10;
    return HexText(digits.size() == kDecimal ? NumericValue(*text) : HexToNumber(*text));
}

constexpr std::string_view kHexDigits = "0123456789ABCDEFabcdef";
constexpr std::string_view kDecimalDigits = "0123456789";

void Take(DeviceTexts& device, const char* name, std::optional<std::string> text) {
    if (text) device.emplace(name, std::move(*text));
}

/// The reverse of what the writer makes of a device.
void TakeDevice(const ProfileFile& file, const std::string& section, DeviceTexts& device) {
    const auto read = [&](std::string_view key) { return file.Read(section, key); };
    Take(device, "DevID", Id(read(kType), kHexDigits));
    Take(device, "DevName", read(kTypeName));
    Take(device, "DevRev", Id(read(kRevision), kHexDigits));
    Take(device, "DDRev", Id(Behind(read(kDDRevision), kDDRevisionBegin), kDecimalDigits));
    Take(device, "ProtRev", Id(read(kProtocolRevision), kDecimalDigits));
    Take(device, "DLLName", Behind(read(kDll), kFileBegin));
    Take(device, "TemplateName", Behind(read(kTemplate), kFileBegin));
    Take(device, "DevHelp", read(kDeviceHelp));
    Take(device, "BlkHelp", read(kBlockHelp));
    Take(device, "TAVVersions", read(kVersions));
}

}  // namespace

std::vector<DeviceTexts> clsDDInstall::Devices(const ProfileFile& file) {
    std::vector<DeviceTexts> devices;
    const std::int16_t manufacturers = ReadCount(file, kGeneral, kManufacturers);
    for (std::int16_t i = 1; i <= manufacturers; ++i) {
        const std::string manufacturer = ManufacturerSection(i);
        const std::optional<std::string> id = file.Read(manufacturer, kManufacturerId);
        if (!id) continue;
        const std::int16_t count = ReadCount(file, manufacturer, kDevices);
        for (std::int16_t k = 1; k <= count; ++k) {
            DeviceTexts device;
            Take(device, "ManID", Id(id, kHexDigits));
            Take(device, "ManName", file.Read(manufacturer, kManufacturerName));
            TakeDevice(file, ddinstall::DeviceSection(*id, k), device);
            if (device.contains("DevID")) devices.push_back(std::move(device));
        }
    }
    return devices;
}

}  // namespace ventlock
