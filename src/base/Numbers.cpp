#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace ventlock {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

constexpr std::size_t kExactDigits = 15;  // so many a double holds, whatever they are

struct LeadingNumber {
    double value = 0;
    std::size_t length = 0;  ///< characters of the number, 0 when the text begins with none
};

LeadingNumber ReadLeadingNumber(std::string_view text);

/// The power of ten that an unsigned number other than zero begins below: 3 for 123 and 1.23e2, -2 for
/// 0.00123.
double DecimalOrder(std::string_view number) {
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const std::string_view exponent = number.substr(std::min(mantissaEnd + 1, number.size()));
    const auto point = static_cast<double>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<double>(mantissa.find_first_of("123456789"));
    return point - first + (first > point ? 1 : 0) + ReadLeadingNumber(exponent).value;
}

// The grammar stands here in full because from_chars also takes "inf" and "nan" and refuses a plus sign.
LeadingNumber ReadLeadingNumber(std::string_view text) {
    const bool hasSign = !text.empty() && (text[0] == '-' || text[0] == '+');
    const std::size_t begin = hasSign ? 1 : 0;
    std::size_t end = SkipDigits(text, begin);
    std::size_t digits = end - begin;
    if (!hasSign && end == text.size() && digits <= kExactDigits) {
        // What nearly all numbers of a database are.
        std::uint64_t whole = 0;
        for (const char digit : text) whole = whole * 10 + static_cast<std::uint64_t>(digit - '0');
        return {static_cast<double>(whole), digits};
    }
    if (end < text.size() && text[end] == '.') {
        const std::size_t fraction = SkipDigits(text, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0) return {};
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
        const std::size_t last = SkipDigits(text, exponent);
        if (last > exponent) end = last;
    }
    double value = 0;
    const auto result = std::from_chars(text.data() + begin, text.data() + end, value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too small is nothing, too large is beyond every range check.
        const bool isLarge = DecimalOrder(text.substr(begin, end - begin)) > 0;
        value = isLarge ? std::numeric_limits<double>::infinity() : 0;
    }
    if (text[0] == '-') value = -value;
    return {value, end};
}

template <class Whole>
Whole Rounded(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max())) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return static_cast<Whole>(rounded);
}

}  // namespace

double NumericValue(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? 0 : ReadLeadingNumber(text.substr(first)).value;
}

std::int16_t ToInteger(double value) {
    return Rounded<std::int16_t>(value);
}

std::int32_t ToItemData(double value) {
    return Rounded<std::int32_t>(value);
}

std::optional<double> WholeNumber(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const LeadingNumber read = ReadLeadingNumber(trimmed);
    if (read.length == 0 || read.length != trimmed.size()) return std::nullopt;
    return read.value;
}

bool SameNumber(const std::optional<std::string_view>& column, double number) {
    return column && WholeNumber(*column) == number;
}

double RequireNumber(std::string_view text) {
    const std::optional<double> number = WholeNumber(text);
    if (!number) throw RunTimeError(ErrorNumber::TypeMismatch);
    return *number;
}

std::string DecimalText(double value) {
    if (value == 0) return "0";  // also for the negative zero
    std::array<char, 400> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
    return {buffer.data(), result.ptr};
}

}  // namespace ventlock
