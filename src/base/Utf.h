#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ventlock {

/// The marks that tell a file's encoding.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16Mark = "\xFF\xFE";  ///< least significant byte first

/// What stands for a piece of text that is not UTF-8.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Takes the character that begins at `position` and moves `position` behind it. Surrogates that stand alone
/// are taken as they are (three bytes), so that UTF-16 text survives a round trip; a byte that begins no
/// character gives kReplacementCharacter and moves on by one.
char32_t NextCharacter(std::string_view utf8, std::size_t& position);

/// Appends the UTF-8 form of one code point; a lone surrogate takes its three-byte form.
void AppendCharacter(std::string& utf8, char32_t character);

/// UTF-8 to UTF-16 code units. Bytes that are no UTF-8 become kReplacementCharacter.
std::u16string ToUtf16(std::string_view utf8);

/// UTF-16 code units to UTF-8; lone surrogates survive the way there and back.
std::string FromUtf16(std::u16string_view utf16);

/// The text of UTF-16 bytes, least significant first and without a mark; nothing when they end within a
/// character.
std::optional<std::string> FromUtf16Bytes(std::string_view bytes);

/// The way back.
std::string ToUtf16Bytes(std::string_view utf8);

/// True when no byte of the text is above 127.
bool IsAscii(std::string_view text);

/// True when every byte of the text belongs to a well-formed character (no lone surrogates).
bool IsUtf8(std::string_view text);

}  // namespace ventlock
