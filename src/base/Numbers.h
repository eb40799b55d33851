#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ventlock {

/// Digits of the largest id that is exact in every target, in hexadecimal and, for a list's ids, in decimal.
inline constexpr std::size_t kMostIdDigits = 13;

/// The number that a text begins with: blanks skipped, optional sign, digits, optional "." and digits,
/// optional exponent. "" and text that begins otherwise give 0 ("&H1F" too). The decimal point is "." in
/// every locale.
double NumericValue(std::string_view text);

/// Rounded half to even (0.5 gives 0, 1.5 and 2.5 give 2) into 16 bits.
/// @throws RunTimeError 6 outside -32768..32767.
std::int16_t ToInteger(double value);

/// Rounded half to even into the 32 bits of a list entry's item data.
/// @throws RunTimeError 6 out of range.
std::int32_t ToItemData(double value);

/// The number of a text that is one as a whole, blanks around it allowed; nothing for any other text.
std::optional<double> WholeNumber(std::string_view text);

/// True when the trimmed column text as a whole is a decimal number equal to `number`. NULL, empty and other
/// text never match and raise nothing: "38", " 38", "038" and "38   " are all 38.
bool SameNumber(const std::optional<std::string_view>& column, double number);

/// The number of a text that must be one as a whole, blanks around it allowed.
/// @throws RunTimeError 13 for any other text.
double RequireNumber(std::string_view text);

/// Decimal text without blanks, grouping or exponent: 38 gives "38", -1 gives "-1", 2.5 gives "2.5".
std::string DecimalText(double value);

}  // namespace ventlock
