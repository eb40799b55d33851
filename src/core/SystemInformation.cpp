#include "core/SystemInformation.h"

#include <cstdint>
#include <memory>
#include <optional>

#include "base/Numbers.h"
#include "base/Text.h"
#include "core/modCommonTools.h"

namespace ventlock {
namespace {

constexpr std::size_t kValueBuffer = 1024;
constexpr std::string_view kViewerKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr std::string_view kViewerName = "PATH";
constexpr std::string_view kFolderKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
constexpr std::string_view kFolderName = "MSINFO";
constexpr std::string_view kViewerFile = "MSINFO32.EXE";

struct RegistryValue {
    std::uint32_t type = 0;
    std::string bytes;
};

std::optional<RegistryValue> Fetch(IRegistry& registry, RegistryRoot root, std::string_view path,
                                   std::string_view name) {
    std::unique_ptr<IRegistryKey> key;
    const auto open = [&](std::uint32_t mask) {
        return registry.OpenKey(root, path, mask, key) == kRegistrySuccess;
    };
    // An ordinary user has no full access to the machine's keys.
    if (!open(kKeyFullAccess) && !open(kKeyRead)) return std::nullopt;
    RegistryValue value;
    if (key->Query(name, value.type, value.bytes) != kRegistrySuccess) return std::nullopt;
    if (value.bytes.size() > kValueBuffer) return std::nullopt;
    return value;
}

/// The bytes from the last to the first, each in as few hexadecimal digits as it takes.
std::string HexDigits(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string digits;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        const auto code = static_cast<unsigned char>(*byte);
        if (code > 0x0FU) digits += kDigits[code >> 4U];
        digits += kDigits[code & 0x0FU];
    }
    return digits;
}

}  // namespace

bool GetKeyValue(IRegistry& registry, RegistryRoot root, std::string_view path, std::string_view name,
                 std::string& value) {
    std::optional<RegistryValue> fetched = Fetch(registry, root, path, name);
    if (!fetched) {
        value.clear();
        return false;
    }
    if (fetched->bytes.ends_with('\0')) fetched->bytes.pop_back();
    if (fetched->type == kRegistryString) value = fetched->bytes;
    if (fetched->type == kRegistryDword) value = DecimalText(HexToNumber(HexDigits(fetched->bytes)));
    return true;
}

bool StartSysInfo(IRegistry& registry, IFiles& files, IProcess& processes, IPaths& paths) {
    std::string viewer;
    if (GetKeyValue(registry, RegistryRoot::LocalMachine, kViewerKey, kViewerName, viewer))
        return !Trim(viewer).empty() && processes.Start(viewer);
    std::string folder;
    if (!GetKeyValue(registry, RegistryRoot::LocalMachine, kFolderKey, kFolderName, folder)) return false;
    if (Trim(folder).empty()) return false;  // else a file of the working folder could be started
    viewer = paths.Join(folder, kViewerFile);
    return files.Exists(viewer) && processes.Start(viewer);
}

}  // namespace ventlock
