#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <string>
#include <string_view>

#include "support/Raised.h"

namespace ventlock {
namespace {

using test::NumberRaisedBy;

TEST(NumericValue, ReadsTheNumberThatATextBeginsWith) {
    EXPECT_EQ(NumericValue("38"), 38);
    EXPECT_EQ(NumericValue("  38"), 38);
    EXPECT_EQ(NumericValue("12abc"), 12);
    EXPECT_EQ(NumericValue("2abc"), 2);
    EXPECT_EQ(NumericValue("3x"), 3);
    EXPECT_EQ(NumericValue("-60"), -60);
    EXPECT_EQ(NumericValue("+7"), 7);
    EXPECT_EQ(NumericValue("2.5"), 2.5);
    EXPECT_EQ(NumericValue(".5"), 0.5);
    EXPECT_EQ(NumericValue("5."), 5);
    EXPECT_EQ(NumericValue("1e3"), 1000);
    EXPECT_EQ(NumericValue("1E-2x"), 0.01);
    EXPECT_EQ(NumericValue("1 2"), 1);
}

TEST(NumericValue, OfManyDigitsIsTheNearestThatThereIs) {
    EXPECT_EQ(NumericValue("999999999999999"), 999999999999999.0);
    EXPECT_EQ(NumericValue("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(NumericValue("98765432109876543210"), 98765432109876543210.0);
    EXPECT_EQ(NumericValue("000000000000000000012"), 12);
    EXPECT_EQ(NumericValue(""), 0);
}

TEST(NumericValue, AnExponentSignWithoutDigitsBelongsToNoNumber) {
    EXPECT_EQ(NumericValue("3e"), 3);
    EXPECT_EQ(NumericValue("3e+"), 3);
    EXPECT_EQ(NumericValue("3ex"), 3);
}

TEST(NumericValue, IsZeroForTextThatBeginsOtherwise) {
    for (const std::string_view text :
         {"", "   ", "abc", "&H1F", "&HFF", "-", "+", ".", "-.", "e5", "inf", "nan", "\t5", "- 5"}) {
        EXPECT_EQ(NumericValue(text), 0) << '"' << text << '"';
    }
}

TEST(NumericValue, TakesThePointInEveryLocale) {
    struct Commas : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale(), new Commas));
    const double point = NumericValue("2.5");
    const double comma = NumericValue("2,5");
    const std::string text = DecimalText(1234567.5);
    std::locale::global(before);
    EXPECT_EQ(point, 2.5);
    EXPECT_EQ(comma, 2);
    EXPECT_EQ(text, "1234567.5");
}

TEST(NumericValue, OfAnExponentBeyondTheRangeIsInfiniteOrNothing) {
    EXPECT_EQ(NumericValue("1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(NumericValue("-1e999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(NumericValue("1e-999"), 0);
}

TEST(NumericValue, OfDigitsBeyondTheRangeIsInfiniteOrNothingWhateverTheSignOfTheExponent) {
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    const std::string zeros(400, '0');
    EXPECT_EQ(NumericValue("0." + zeros + "1"), 0);
    EXPECT_EQ(NumericValue("0." + zeros + "1e10"), 0);
    EXPECT_EQ(NumericValue("0." + zeros + "1e401"), 1);
    EXPECT_EQ(NumericValue("1" + zeros), kInfinite);
    EXPECT_EQ(NumericValue("-1" + zeros + ".5e-10"), -kInfinite);
    EXPECT_EQ(NumericValue("1" + zeros + "e-400"), 1);
    EXPECT_EQ(NumericValue("1e" + std::string(400, '9')), kInfinite);
    EXPECT_EQ(NumericValue("1e-" + std::string(400, '9')), 0);
}

TEST(NumericValue, ToSixteenBitsRoundsHalfToEven) {
    EXPECT_EQ(ToInteger(NumericValue("0.5")), 0);
    EXPECT_EQ(ToInteger(NumericValue("1.5")), 2);
    EXPECT_EQ(ToInteger(NumericValue("2.5")), 2);
    EXPECT_EQ(ToInteger(NumericValue("3.5")), 4);
    EXPECT_EQ(ToInteger(NumericValue("-0.5")), 0);
    EXPECT_EQ(ToInteger(NumericValue("-1.5")), -2);
    EXPECT_EQ(ToInteger(NumericValue("&H1F")), 0);
    EXPECT_EQ(ToInteger(NumericValue("")), 0);
    EXPECT_EQ(ToInteger(2.4), 2);
}

TEST(ToInteger, OverflowsBeyondSixteenBitsAndNeverWraps) {
    EXPECT_EQ(ToInteger(32767), 32767);
    EXPECT_EQ(ToInteger(32767.4), 32767);
    EXPECT_EQ(ToInteger(-32768), -32768);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
    for (const double value :
         {32767.5, 32768.0, -32769.0, 65536.0, 4294967236.0, 1e300, std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(NumberRaisedBy([&] { ToInteger(value); }), 6) << value;
    }
}

TEST(SameNumber, ComparesTheWholeTrimmedColumn) {
    for (const std::string_view text : {"38", " 38", "038", "38   ", "38.0", "+38", "3.8e1"}) {
        EXPECT_TRUE(SameNumber(text, 38)) << '"' << text << '"';
    }
    EXPECT_FALSE(SameNumber("39", 38));
    EXPECT_FALSE(SameNumber("-38", 38));
}

TEST(SameNumber, NeverMatchesWhatIsNoNumberAndRaisesNothing) {
    EXPECT_FALSE(SameNumber(std::nullopt, 0));
    for (const std::string_view text : {"", "   ", "abc", "0abc", "0 0", "&H0", "0x0", "\t0"}) {
        EXPECT_FALSE(SameNumber(text, 0)) << '"' << text << '"';
    }
}

TEST(RequireNumber, TakesAWholeTextAndMismatchesAnyOther) {
    EXPECT_EQ(RequireNumber(" 38 "), 38);
    EXPECT_EQ(RequireNumber("-2.5"), -2.5);
    for (const std::string_view text : {"", " ", "abc", "12abc", "1 2", "&H1F"}) {
        EXPECT_EQ(NumberRaisedBy([&] { RequireNumber(text); }), 13) << '"' << text << '"';
    }
}

TEST(DecimalText, HasNoBlankGroupingOrExponent) {
    EXPECT_EQ(DecimalText(0), "0");
    EXPECT_EQ(DecimalText(-0.0), "0");
    EXPECT_EQ(DecimalText(38), "38");
    EXPECT_EQ(DecimalText(-1), "-1");
    EXPECT_EQ(DecimalText(2.5), "2.5");
    EXPECT_EQ(DecimalText(1234567), "1234567");
    EXPECT_EQ(DecimalText(1e20), "100000000000000000000");
    EXPECT_EQ(DecimalText(0.0001), "0.0001");
}

}  // namespace
}  // namespace ventlock
