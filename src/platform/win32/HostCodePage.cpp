#include "platform/HostCodePage.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>

#include "base/Utf.h"
#include "platform/win32/WideText.h"

namespace ventlock {
namespace {

constexpr int kGb18030 = 54936;
constexpr std::size_t kLongestCharacter = 8;  ///< in bytes of any page

bool IsAscii(char32_t character) {
    return character < 0x80;
}

/// The tables give a byte without a meaning one of the last private characters, of which fonts make no use.
bool IsPlaceHolder(char32_t character) {
    return character >= 0xF880 && character <= 0xF8FE;
}

/// A code page of the system, character by character, because only then does the system tell where the first
/// one stands that has no counterpart.
class SystemCodePage final : public HostCodePage {
 public:
    SystemCodePage(UINT number, UINT longestCharacter) : number_(number), longest_(longestCharacter) {
        for (int i = 0; i < 256; ++i) singles_[i] = SingleByte(static_cast<char>(i));
    }

    bool ToUtf8(std::string_view bytes, std::size_t& position, std::string& text) override {
        while (position < bytes.size()) {
            std::size_t length = 1;
            std::optional<char32_t> character = singles_[static_cast<unsigned char>(bytes[position])];
            while (!character && length < longest_ && position + length < bytes.size()) {
                ++length;
                character = Character(bytes.substr(position, length));
            }
            if (!character) return false;
            AppendCharacter(text, *character);
            position += length;
        }
        return true;
    }

    bool FromUtf8(std::string_view utf8, std::size_t& position, std::string& bytes) override {
        while (position < utf8.size()) {
            std::size_t next = position;
            const char32_t character = NextCharacter(utf8, next);
            if (IsAscii(character)) {
                bytes += utf8[position];
            } else if (!AppendBytes(utf8.substr(position, next - position), bytes)) {
                return false;
            }
            position = next;
        }
        return true;
    }

 private:
    [[nodiscard]] std::optional<char32_t> SingleByte(char byte) const {
        const auto value = static_cast<unsigned char>(byte);
        if (IsDBCSLeadByteEx(number_, value) != 0) return std::nullopt;
        const std::optional<char32_t> character = Character({&byte, 1});
        // Pages of seven bits leave the eighth out of account.
        const bool isStripped = character && IsAscii(*character) && !IsAscii(value);
        return isStripped ? std::nullopt : character;
    }

    /// The character that all of these bytes are, if they are one.
    [[nodiscard]] std::optional<char32_t> Character(std::string_view bytes) const {
        std::array<wchar_t, kLongestCharacter> units{};
        const int count =
            MultiByteToWideChar(number_, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                                units.data(), static_cast<int>(units.size()));
        if (count <= 0) return std::nullopt;
        const std::string utf8 = FromWideText({units.data(), static_cast<std::size_t>(count)});
        std::size_t position = 0;
        const char32_t character = NextCharacter(utf8, position);
        if (position != utf8.size() || IsPlaceHolder(character)) return std::nullopt;
        return character;
    }

    [[nodiscard]] bool AppendBytes(std::string_view character, std::string& bytes) const {
        const std::wstring units = ToWideText(character);
        std::array<char, kLongestCharacter> buffer{};
        BOOL isSubstitute = FALSE;
        // The one page that holds every character knows neither similar nor substitute ones.
        const bool isComplete = number_ == kGb18030;
        const int count = WideCharToMultiByte(
            number_, isComplete ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS, units.data(),
            static_cast<int>(units.size()), buffer.data(), static_cast<int>(buffer.size()), nullptr,
            isComplete ? nullptr : &isSubstitute);
        if (count <= 0 || isSubstitute != FALSE) return false;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        return true;
    }

    UINT number_;
    UINT longest_;
    std::array<std::optional<char32_t>, 256> singles_;
};

}  // namespace

std::unique_ptr<HostCodePage> OpenHostCodePage(int number) {
    const auto asked = static_cast<UINT>(number);
    CPINFOEXW facts{};
    // Numbers that stand for the page of a user or a thread name no page.
    if (GetCPInfoExW(asked, 0, &facts) == 0 || facts.CodePage != asked) return nullptr;
    return std::make_unique<SystemCodePage>(asked, facts.MaxCharSize);
}

int DefaultCodePage() {
    return static_cast<int>(GetACP());
}

}  // namespace ventlock
