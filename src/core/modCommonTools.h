#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/IList.h"

namespace ventlock {

/// tag-step: description (number)
std::string FormatErrorText(std::string_view tag, std::string_view step, std::string_view description,
                            std::int32_t number);

/// Sides for PadString.
inline constexpr std::int16_t kAlignLeft = 3;
inline constexpr std::int16_t kAlignRight = 4;

/// The text with `fill`, repeated whole, added as often as characters are missing to `length`. Never cuts.
/// kAlignLeft adds behind, kAlignRight in front, any other align gives "".
/// Shows the modules' message box and gives "" for a text of more than 32767 characters.
std::string PadString(std::string_view text, std::int16_t length, std::string_view fill = "0",
                      std::int16_t align = kAlignRight);

/// The template with its first "?" replaced by the value; unchanged when it has none. Nothing is quoted or
/// doubled.
std::string FillParam(std::string_view statement, std::string_view value);

/// Index of the first item with exactly this text, -1 for none.
int FindListText(const IList& list, std::string_view text);

/// Index of the first item with this item data, -1 for none.
int FindListItemData(const IList& list, std::int16_t number);

/// Puts `form` in the middle of the screen, or of `parent`: halves are cut to whole units.
void CenterForm(IBounds& form, double screenWidth, double screenHeight);
void CenterForm(IBounds& form, const IBounds& parent);

/// The number of a hexadecimal text. "0x" in front is dropped, "0X" is not; any character that is no
/// hexadecimal digit counts as -1 at its place, and nothing is ever refused: callers check their input first.
double HexToNumber(std::string_view text);

/// A whole number of 0 or more as a hexadecimal text of at least two digits, as ids are typed: 10 gives "0A".
std::string HexText(double number);

/// What stands before the first NUL; "" when there is none, for a platform buffer always holds one.
std::string StripNull(std::string_view buffer);

}  // namespace ventlock
