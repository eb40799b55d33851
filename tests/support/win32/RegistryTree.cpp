#include "support/win32/RegistryTree.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <random>
#include <utility>
#include <vector>

#include "base/Utf.h"
#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

/// A key that is opened or made, closed at the end.
class OpenedKey {
 public:
    static OpenedKey Existing(HKEY parent, const std::string& path, REGSAM mask) {
        HKEY key = nullptr;
        const LSTATUS status = RegOpenKeyExW(parent, ToWideText(path).c_str(), 0, mask, &key);
        return OpenedKey(status == ERROR_SUCCESS ? key : nullptr);
    }
    static OpenedKey Made(HKEY parent, const std::string& path) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(parent, ToWideText(path).c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE,
                                  nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        return OpenedKey(key);
    }
    ~OpenedKey() {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;

    [[nodiscard]] HKEY Handle() const { return key_; }
    [[nodiscard]] bool IsThere() const { return key_ != nullptr; }

 private:
    explicit OpenedKey(HKEY key) : key_(key) {}

    HKEY key_;
};

HKEY HandleOf(RegistryRoot root) {
    return root == RegistryRoot::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::string HexText(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        text += kDigits[static_cast<unsigned char>(c) >> 4U];
        text += kDigits[static_cast<unsigned char>(c) & 0x0FU];
    }
    return text;
}

std::string ContentText(DWORD type, const std::string& bytes) {
    const std::string begin = std::to_string(type) + ":";
    if (type == REG_SZ) return begin + FromUtf16Bytes(bytes).value_or("half a unit in " + HexText(bytes));
    if (type == REG_DWORD && bytes.size() == sizeof(DWORD))
        return begin + HexText(std::string(bytes.rbegin(), bytes.rend()));
    return begin + HexText(bytes);
}

void AppendLines(HKEY key, const std::string& begin, std::vector<std::string>& lines) {
    std::array<wchar_t, 256> name{};
    std::string bytes(65536, '\0');
    DWORD index = 0;
    while (true) {
        auto length = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(bytes.size());
        DWORD type = 0;
        const LSTATUS status = RegEnumValueW(key, index, name.data(), &length, nullptr, &type,
                                             reinterpret_cast<BYTE*>(bytes.data()), &size);
        if (status == ERROR_NO_MORE_ITEMS) break;
        EXPECT_EQ(status, ERROR_SUCCESS);
        if (status != ERROR_SUCCESS) break;
        lines.push_back(begin + FromWideText({name.data(), length}) + "=" +
                        ContentText(type, bytes.substr(0, size)));
        ++index;
    }
    if (index == 0) lines.push_back(begin);
    for (DWORD i = 0;; ++i) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        const std::string child = FromWideText({name.data(), length});
        const OpenedKey below = OpenedKey::Existing(key, child, KEY_READ);
        AppendLines(below.Handle(), begin + child + "\\", lines);
    }
}

/// The highest key on the way to `path` that is missing, "" when `path` is there.
std::string FirstMissing(const std::string& path) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find('\\', end == 0 ? 0 : end + 1);
        const std::string key = path.substr(0, end);
        if (!OpenedKey::Existing(HKEY_LOCAL_MACHINE, key, KEY_READ).IsThere()) return key;
    }
    return {};
}

std::string Unique() {
    std::random_device random;
    return std::to_string(random()) + std::to_string(random());
}

}  // namespace

std::string TreeText(RegistryRoot root, const std::string& path) {
    const OpenedKey key = OpenedKey::Existing(HandleOf(root), path, KEY_READ);
    if (!key.IsThere()) return "(none)";
    std::vector<std::string> lines;
    AppendLines(key.Handle(), "", lines);
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

TestKey::TestKey() : path_("Software\\Ventlock-test-" + Unique()) {}

TestKey::~TestKey() {
    const LSTATUS removed = RegDeleteTreeW(HKEY_CURRENT_USER, ToWideText(path_).c_str());
    EXPECT_TRUE(removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND) << removed;
}

void TestKey::Put(const std::string& name, std::uint32_t type, const std::string& bytes) const {
    const OpenedKey key = OpenedKey::Made(HKEY_CURRENT_USER, path_);
    const std::string guarded = bytes + "\1\1";  // else a string's bytes could get a NUL by the system
    EXPECT_EQ(RegSetValueExW(key.Handle(), ToWideText(name).c_str(), 0, type,
                             reinterpret_cast<const BYTE*>(guarded.data()), static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
}

EmptiedKey::EmptiedKey(std::string path) : path_(std::move(path)), firstMissing_(FirstMissing(path_)) {
    if (!firstMissing_.empty()) return;
    const OpenedKey key = OpenedKey::Existing(HKEY_LOCAL_MACHINE, path_, KEY_ALL_ACCESS);
    const OpenedKey copy = OpenedKey::Made(HKEY_CURRENT_USER, aside_.Path());
    EXPECT_EQ(RegCopyTreeW(key.Handle(), nullptr, copy.Handle()), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteTreeW(key.Handle(), nullptr), ERROR_SUCCESS);
}

EmptiedKey::~EmptiedKey() {
    if (!firstMissing_.empty()) {
        const LSTATUS removed = RegDeleteTreeW(HKEY_LOCAL_MACHINE, ToWideText(firstMissing_).c_str());
        EXPECT_TRUE(removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND) << removed;
        return;
    }
    const OpenedKey key = OpenedKey::Existing(HKEY_LOCAL_MACHINE, path_, KEY_ALL_ACCESS);
    const OpenedKey copy = OpenedKey::Existing(HKEY_CURRENT_USER, aside_.Path(), KEY_READ);
    EXPECT_EQ(RegDeleteTreeW(key.Handle(), nullptr), ERROR_SUCCESS);
    EXPECT_EQ(RegCopyTreeW(copy.Handle(), nullptr, key.Handle()), ERROR_SUCCESS);
}

}  // namespace ventlock::test
