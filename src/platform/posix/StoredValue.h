#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ventlock {

/// A value of the registry's store file.
struct StoredValue {
    std::uint32_t type = 0;
    std::string bytes;
};

/// The text of a value in the store file, one line of printable characters:
/// - type 1: `text:"..."` in UTF-8, with \\ \" \n \r \0 for these characters and \xHH for any other control
///   character and for every byte that is no UTF-8;
/// - type 4 of four bytes: `dword:ffffffc4`, the number in eight hexadecimal digits;
/// - anything else: `hex(N):aa,bb`, N the type in decimal, the bytes in hexadecimal.
std::string StoredText(const StoredValue& value);

/// The value of such a text, also when hand-written with fewer digits or with capitals ("dword:1F"). Nothing
/// for any other text.
std::optional<StoredValue> ParseStoredText(std::string_view text);

}  // namespace ventlock
