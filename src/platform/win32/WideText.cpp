#include "platform/win32/WideText.h"

#include "base/Utf.h"

namespace ventlock {

std::wstring ToWideText(std::string_view utf8) {
    const std::u16string units = ToUtf16(utf8);
    return {units.begin(), units.end()};
}

std::string FromWideText(std::wstring_view units) {
    return FromUtf16(std::u16string(units.begin(), units.end()));
}

}  // namespace ventlock
