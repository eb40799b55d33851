// Numbers from text and back, and texts by their characters. The input is a text, and its first eight bytes a
// number.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <string>

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/Utf.h"
#include "base/Variant.h"
#include "fuzz/Fields.h"
#include "fuzz/Require.h"

namespace ventlock::test {
namespace {

/// The C library's reading of what can belong to a decimal number. This program keeps the locale "C".
double ByTheLibrary(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string number(text.substr(0, text.find_first_not_of("+-.0123456789eE")));
    return std::strtod(number.c_str(), nullptr);
}

template <class Whole>
void RequireRounded(Whole (*round)(double), double number) {
    constexpr double kLeast = std::numeric_limits<Whole>::min();
    constexpr double kMost = std::numeric_limits<Whole>::max();
    const std::string shown = DecimalText(number);
    try {
        const double rounded = round(number);
        const double distance = std::abs(rounded - number);
        Require(distance < 0.5 || (distance == 0.5 && std::fmod(rounded, 2) == 0),
                "a number is rounded, half to even, and never wraps", shown);
    } catch (const RunTimeError& error) {
        Require(error.Number() == ErrorNumber::Overflow, "a number out of range is error 6", error.what());
        Require(!(number > kLeast - 0.5 && number < kMost + 0.5), "a number in range is taken", shown);
    }
}

void TryNumber(double number) {
    RequireRounded(ToInteger, number);
    RequireRounded(ToItemData, number);
    const std::string text = DecimalText(number);
    RequireSame(TextOf(number), text, "a number has one text");
    if (!std::isfinite(number)) return;
    Require(text.find_first_not_of("-.0123456789") == std::string::npos, "a number is shown in digits", text);
    Require(NumericValue(text) == number && RequireNumber(text) == number, "a number survives text", text);
    Require(SameNumber(" " + text + " ", number), "a number equals its text", text);
}

std::optional<double> WholeNumber(std::string_view text) {
    try {
        return RequireNumber(text);
    } catch (const RunTimeError& error) {
        Require(error.Number() == ErrorNumber::TypeMismatch, "a text that is no number is error 13",
                error.what());
        return std::nullopt;
    }
}

void TryText(std::string_view text) {
    const double number = NumericValue(text);
    Require(number == ByTheLibrary(text), "a text is the number that it begins with", text);
    const std::optional<double> whole = WholeNumber(text);
    Require(!whole || *whole == number, "a text has one number", text);
    Require(SameNumber(text, number) == whole.has_value(), "a text equals the number that it is as a whole",
            text);
    TryNumber(number);

    const std::string_view trimmed = Trim(text);
    Require(text.find(trimmed) != std::string_view::npos && Trim(trimmed) == trimmed,
            "a trimmed text is the middle of the text", text);
    Require(trimmed.find_first_of(' ') != 0 && !trimmed.ends_with(' '), "a trimmed text ends in no blank",
            text);
    Require(std::count(text.begin(), text.end(), ' ') - std::count(trimmed.begin(), trimmed.end(), ' ') ==
                static_cast<std::ptrdiff_t>(text.size() - trimmed.size()),
            "only blanks are trimmed", text);
    if (!IsUtf8(text)) return;
    RequireSame(FromUtf16(ToUtf16(text)), text, "UTF-8 survives UTF-16");
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) NextCharacter(text, at);
    Require(CharacterCount(text) == count, "characters are code points", text);
}

/// Any units at all: lone surrogates survive too.
void TryUnits(std::string_view bytes) {
    const std::optional<std::string> text = FromUtf16Bytes(bytes);
    Require(text.has_value() == (bytes.size() % 2 == 0), "an odd byte is no UTF-16", bytes);
    if (text) RequireSame(ToUtf16Bytes(*text), bytes, "UTF-16 survives UTF-8");
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = ventlock::test::Fields(data, size).Rest();
    ventlock::test::TryText(text);
    ventlock::test::TryUnits(text);
    if (size >= sizeof(double)) {
        double number = 0;
        std::memcpy(&number, data, sizeof(number));
        ventlock::test::TryNumber(number);
    }
    return 0;
}
