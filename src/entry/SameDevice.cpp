#include "entry/SameDevice.h"

#include <string_view>
#include <utility>

#include "base/ShownText.h"
#include "base/Text.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kDecimalDigits = "0123456789";

/// The number of an id without zeros in front, of any length; nothing for a text that is no number.
std::optional<std::string> NumberOf(const FileEntry& entry, std::string_view key, std::string_view digits) {
    const std::string text = UpperCase(Trim(entry.Text(key)));
    if (text.empty() || text.find_first_not_of(digits) != std::string::npos) return std::nullopt;
    const std::size_t first = text.find_first_not_of('0');
    return first == std::string::npos ? "0" : text.substr(first);
}

std::optional<std::string> ProtocolOf(const FileEntry& entry) {
    const std::string name = UpperCase(Trim(entry.Text("Protocol")));
    return name.empty() ? NumberOf(entry, "ProtID", kDecimalDigits) : "\"" + name + "\"";
}

}  // namespace

std::optional<Finding> SameDevices::Take(const std::string& path, const FileEntry& entry) {
    std::string ids;
    for (const auto& id : {NumberOf(entry, "ManID", kHexDigits), NumberOf(entry, "DevID", kHexDigits),
                           NumberOf(entry, "DevRev", kHexDigits), ProtocolOf(entry)}) {
        if (!id) return std::nullopt;
        ids += *id + " ";
    }
    const std::string place =
        ShownWord(path) + ":" + std::to_string(entry.line) + " [" + ShownWord(entry.name) + "]";
    const auto [first, isNew] = places_.try_emplace(std::move(ids), place);
    if (isNew) return std::nullopt;
    return Finding{entry.line, Severity::Warning, "same-device", "the same device as " + first->second};
}

}  // namespace ventlock
