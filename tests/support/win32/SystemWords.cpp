#include "support/SystemWords.h"

#include <windows.h>

#include <array>

#include "platform/win32/WideText.h"

namespace ventlock::test {

std::string SystemWords(unsigned long code) {
    std::array<wchar_t, 512> words{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, words.data(), static_cast<DWORD>(words.size()), nullptr);
    const std::string text = FromWideText({words.data(), length});
    return text.substr(0, text.find_last_not_of(".\r\n") + 1);
}

}  // namespace ventlock::test
