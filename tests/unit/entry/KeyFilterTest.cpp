#include "entry/KeyFilter.h"

#include <gtest/gtest.h>

#include <ostream>
#include <set>
#include <string>
#include <string_view>

#include "entry/EntryForm.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

constexpr char32_t kSwallowed = 0;

struct KeyRow {
    std::string_view name;
    char32_t typed;
    char32_t result;
};

void PrintTo(const KeyRow& row, std::ostream* out) {
    *out << "code " << static_cast<unsigned>(row.typed);
}

class KeyFilter : public testing::TestWithParam<KeyRow> {};

TEST_P(KeyFilter, MakesOfTheKeyWhatTheRowSays) {
    EXPECT_EQ(FilterKey(GetParam().typed), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, KeyFilter,
    testing::Values(KeyRow{"Digit0", U'0', U'0'}, KeyRow{"Digit9", U'9', U'9'},
                    KeyRow{"CapitalA", U'A', U'A'}, KeyRow{"CapitalF", U'F', U'F'},
                    KeyRow{"SmallA", U'a', U'A'}, KeyRow{"SmallF", U'f', U'F'}, KeyRow{"Backspace", 8, 8},
                    KeyRow{"Tab", 9, 9}, KeyRow{"LineFeed", 10, 10}, KeyRow{"CarriageReturn", 13, 13},
                    KeyRow{"Nothing", 0, kSwallowed}, KeyRow{"BeforeBackspace", 7, kSwallowed},
                    KeyRow{"VerticalTab", 11, kSwallowed}, KeyRow{"FormFeed", 12, kSwallowed},
                    KeyRow{"Esc", 27, kSwallowed}, KeyRow{"Blank", 32, kSwallowed},
                    KeyRow{"Minus", U'-', kSwallowed}, KeyRow{"Slash", U'/', kSwallowed},
                    KeyRow{"Colon", U':', kSwallowed}, KeyRow{"At", U'@', kSwallowed},
                    KeyRow{"CapitalG", U'G', kSwallowed}, KeyRow{"Backquote", U'`', kSwallowed},
                    KeyRow{"SmallG", U'g', kSwallowed}, KeyRow{"SmallX", U'x', kSwallowed},
                    KeyRow{"Delete", 127, kSwallowed}, KeyRow{"Umlaut", U'ä', kSwallowed},
                    KeyRow{"WideDigit", U'\uFF11', kSwallowed},
                    KeyRow{"BeyondSixteenBits", 0x10041, kSwallowed}),
    RowName());

TEST(KeyFilterRules, LeavesOfATypedLineTheHexadecimalDigitsInCapitals) {
    std::u32string left;
    for (const char32_t code : std::u32string_view(U"1aF g-x")) {
        if (const char32_t typed = FilterKey(code)) left += typed;
    }
    EXPECT_EQ(left, U"1AF");
}

TEST(KeyFilterRules, IsThatOfTheTwoIdentifiersAndNoOtherTextBox) {
    std::set<std::size_t> filtered;
    for (std::size_t box = 0; box < kTextBoxCount + 1; ++box) {
        if (HasKeyFilter(box)) filtered.insert(box);
    }
    EXPECT_EQ(filtered, (std::set<std::size_t>{3, 6}));
}

}  // namespace
}  // namespace ventlock::test
