#include "platform/win32/Win32Registry.h"

#include <windows.h>

#include <limits>
#include <string>

#include "base/Utf.h"
#include "platform/win32/WideText.h"

namespace ventlock {
namespace {

constexpr std::size_t kUnitSize = sizeof(wchar_t);
constexpr std::size_t kFirstBuffer = 512;

/// What stands behind the bytes of a value that is stored. When the unit there is 0, the system takes it for
/// a part of a string.
constexpr char kGuard = '\x01';

HKEY HandleOf(RegistryRoot root) {
    return root == RegistryRoot::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

bool HoldsNul(std::string_view name) {
    return name.find('\0') != std::string_view::npos;
}

std::wstring KeyPath(std::string_view path) {
    while (path.ends_with('\\')) path.remove_suffix(1);
    return ToWideText(path);
}

/// The text of units as they are stored; half a unit at the end is no text.
std::string TextOf(std::string_view bytes) {
    bytes.remove_suffix(bytes.size() % kUnitSize);
    return *FromUtf16Bytes(bytes);
}

class Win32RegistryKey final : public IRegistryKey {
 public:
    explicit Win32RegistryKey(HKEY key) : key_(key) {}
    ~Win32RegistryKey() override { RegCloseKey(key_); }
    Win32RegistryKey(const Win32RegistryKey&) = delete;
    Win32RegistryKey& operator=(const Win32RegistryKey&) = delete;

    RegistryStatus Query(std::string_view name, std::uint32_t& type, std::string& bytes) override {
        if (HoldsNul(name)) return kRegistryFileNotFound;
        const std::wstring wideName = ToWideText(name);
        std::string buffer(kFirstBuffer, '\0');
        DWORD storedType = REG_NONE;
        LSTATUS status = ERROR_MORE_DATA;
        // Another program may store a longer value between two calls.
        while (status == ERROR_MORE_DATA) {
            auto size = static_cast<DWORD>(buffer.size());
            status = RegQueryValueExW(key_, wideName.c_str(), nullptr, &storedType,
                                      reinterpret_cast<BYTE*>(buffer.data()), &size);
            if (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) buffer.resize(size);
        }
        if (status != ERROR_SUCCESS) return status;
        type = storedType;
        bytes = storedType == kRegistryString ? TextOf(buffer) : buffer;
        return kRegistrySuccess;
    }

    RegistryStatus Set(std::string_view name, std::uint32_t type, std::string_view bytes) override {
        if (HoldsNul(name)) return ERROR_INVALID_NAME;
        std::string stored = type == kRegistryString ? ToUtf16Bytes(bytes) : std::string(bytes);
        if (stored.size() > std::numeric_limits<DWORD>::max()) return ERROR_INVALID_PARAMETER;
        const auto size = static_cast<DWORD>(stored.size());
        stored.append(kUnitSize, kGuard);
        return RegSetValueExW(key_, ToWideText(name).c_str(), 0, type,
                              reinterpret_cast<const BYTE*>(stored.data()), size);
    }

 private:
    HKEY key_;
};

}  // namespace

RegistryStatus Win32Registry::OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                                      std::unique_ptr<IRegistryKey>& key) {
    if (HoldsNul(path)) return kRegistryFileNotFound;
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExW(HandleOf(root), KeyPath(path).c_str(), 0, mask, &opened);
    if (status == ERROR_SUCCESS) key = std::make_unique<Win32RegistryKey>(opened);
    return status;
}

RegistryStatus Win32Registry::CreateKey(RegistryRoot root, std::string_view path,
                                        std::unique_ptr<IRegistryKey>& key) {
    if (HoldsNul(path)) return ERROR_INVALID_NAME;
    HKEY opened = nullptr;
    const LSTATUS status =
        RegCreateKeyExW(HandleOf(root), KeyPath(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_READ | KEY_WRITE, nullptr, &opened, nullptr);
    if (status == ERROR_SUCCESS) key = std::make_unique<Win32RegistryKey>(opened);
    return status;
}

}  // namespace ventlock
