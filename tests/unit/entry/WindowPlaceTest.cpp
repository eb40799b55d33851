#include "entry/WindowPlace.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string_view>

#include "support/RowName.h"

namespace ventlock::test {
namespace {

struct TwipsRow {
    std::string_view name;
    double pixels;
    std::int16_t twips;
};

void PrintTo(const TwipsRow& row, std::ostream* out) {
    *out << row.pixels << " pixels";
}

class Twips : public testing::TestWithParam<TwipsRow> {};

TEST_P(Twips, AreThoseOfThePixels) {
    EXPECT_EQ(ToTwips(GetParam().pixels), GetParam().twips);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Twips,
    testing::Values(TwipsRow{"Nothing", 0, 0}, TwipsRow{"OnePixel", 1, 15},
                    TwipsRow{"LeftOfTheDisplay", -4, -60}, TwipsRow{"SmallestWidth", 400, 6000},
                    TwipsRow{"SmallestHeight", 343, 5145}, TwipsRow{"HalfToEvenBelow", 0.5 / 15, 0},
                    TwipsRow{"HalfToEvenAbove", 0.1, 2}, TwipsRow{"HalfToEvenBelowAgain", 0.5, 8},
                    TwipsRow{"NegativeHalf", -0.5, -8}, TwipsRow{"MoreThanHalf", 0.6 / 15, 1},
                    TwipsRow{"LastThatFits", 2184, 32760}, TwipsRow{"FirstThatDoesNotFit", 2185, 32767},
                    TwipsRow{"FarRightOnAWideDisplay", 2300, 32767},
                    TwipsRow{"LastNegativeThatFits", -2184, -32760},
                    TwipsRow{"FirstNegativeThatDoesNotFit", -2185, -32768},
                    TwipsRow{"WhereMinimisedWindowsAre", -32000, -32768}),
    RowName());

TEST(TwipsToPixels, GiveWholePixelsBackAsTheyWere) {
    for (int pixels = -2184; pixels <= 2184; ++pixels) ASSERT_EQ(ToPixels(ToTwips(pixels)), pixels);
}

TEST(TwipsToPixels, GiveTheNearestPixelOfTwipsInBetween) {
    EXPECT_EQ(ToPixels(7), 0);
    EXPECT_EQ(ToPixels(8), 1);
    EXPECT_EQ(ToPixels(-7), 0);
    EXPECT_EQ(ToPixels(-8), -1);
    EXPECT_EQ(ToPixels(32767), 2184);
    EXPECT_EQ(ToPixels(-32768), -2185);
}

struct SizeRow {
    std::string_view name;
    WindowSize size;
    WindowSize result;
};

void PrintTo(const SizeRow& row, std::ostream* out) {
    *out << row.size.width << " x " << row.size.height;
}

class MinimumSizeOf : public testing::TestWithParam<SizeRow> {};

TEST_P(MinimumSizeOf, ChangesOnlyWhatIsTooSmall) {
    EXPECT_EQ(MinimumSize(GetParam().size), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Rows, MinimumSizeOf,
                         testing::Values(SizeRow{"Smallest", {400, 343}, {400, 343}},
                                         SizeRow{"Larger", {1000, 800}, {1000, 800}},
                                         SizeRow{"TooLow", {1000, 342}, {1000, 343}},
                                         SizeRow{"TooNarrow", {399, 800}, {400, 800}},
                                         SizeRow{"TooLowAndTooNarrow", {399, 342}, {400, 343}},
                                         SizeRow{"Nothing", {0, 0}, {400, 343}}),
                         RowName());

TEST(SmallestWindow, IsThatOfTheTwips) {
    EXPECT_EQ(ToTwips(kSmallestWindow.width), 6000);
    EXPECT_EQ(ToTwips(kSmallestWindow.height), 5145);
}

}  // namespace
}  // namespace ventlock::test
