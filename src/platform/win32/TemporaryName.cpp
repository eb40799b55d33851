#include "platform/win32/TemporaryName.h"

#include <random>
#include <string_view>

namespace ventlock {

std::wstring TemporaryName() {
    constexpr std::wstring_view kDigits = L"0123456789abcdef";
    constexpr int kDigitCount = 32;
    std::random_device random;
    std::wstring name = L".ventlock-";
    for (int i = 0; i < kDigitCount; ++i) name += kDigits[random() % kDigits.size()];
    return name + L".tmp";
}

}  // namespace ventlock
