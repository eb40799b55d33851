#include "platform/win32/TemporaryName.h"

#include <random>
#include <string_view>

namespace ventlock {
namespace {

constexpr std::size_t kMostOfOwner = 200;  // so that a name as long as the system allows leaves room
constexpr std::size_t kDigitCount = 32;
constexpr std::wstring_view kEnding = L".tmp";

std::wstring Begin(const std::wstring& owner) {
    return L"." + owner.substr(0, kMostOfOwner) + L".ventlock-";
}

}  // namespace

std::wstring TemporaryName(const std::wstring& owner) {
    constexpr std::wstring_view kDigits = L"0123456789abcdef";
    std::random_device random;
    std::wstring name = Begin(owner);
    for (std::size_t i = 0; i < kDigitCount; ++i) name += kDigits[random() % kDigits.size()];
    return name.append(kEnding);
}

bool IsTemporaryName(const std::wstring& name, const std::wstring& owner) {
    const std::wstring begin = Begin(owner);
    return name.size() == begin.size() + kDigitCount + kEnding.size() && name.starts_with(begin) &&
           name.ends_with(kEnding);
}

}  // namespace ventlock
