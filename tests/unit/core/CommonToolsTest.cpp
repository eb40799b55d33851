#include "core/modCommonTools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/Guarded.h"
#include "core/ItemList.h"
#include "support/Fakes.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

using namespace std::string_view_literals;

class ModuleTools : public testing::Test {
 protected:
    void SetUp() override { UseModuleMessageBox(&messages_); }
    void TearDown() override { UseModuleMessageBox(nullptr); }

    FakeMessageBox messages_;
};

TEST(FormatErrorText, JoinsTagStepDescriptionAndNumber) {
    EXPECT_EQ(FormatErrorText("MANins", "02.1a", "Invalid use of Null", 94),
              "MANins-02.1a: Invalid use of Null (94)");
    EXPECT_EQ(FormatErrorText("", "", "", 0), "-:  (0)");
}

TEST(FormatErrorText, PrintsTheSignOfANegativeNumber) {
    EXPECT_EQ(FormatErrorText("CONNconn", "02", "failed", -2147217900), "CONNconn-02: failed (-2147217900)");
}

struct Padding {
    std::string name;
    std::string text;
    std::int16_t length;
    std::string fill;
    std::int16_t align;
    std::string padded;
};

void PrintTo(const Padding& row, std::ostream* out) {
    *out << row.name;
}

class PadStringRow : public ModuleTools, public testing::WithParamInterface<Padding> {};

TEST_P(PadStringRow, NeverCutsRepeatsTheFillWholeAndKnowsTwoSides) {
    const Padding& row = GetParam();
    EXPECT_EQ(PadString(row.text, row.length, row.fill, row.align), row.padded);
    EXPECT_EQ(messages_.messages.size(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    PadString, PadStringRow,
    testing::Values(
        Padding{"ZerosInFront", "5", 4, "0", 4, "0005"}, Padding{"BlanksBehind", "5", 4, " ", 3, "5   "},
        Padding{"LongerThanTheLength", "12345", 4, "0", 4, "12345"},
        Padding{"SevenDigitsToSix", "1234567", 6, "0", 4, "1234567"}, Padding{"AlignOne", "5", 4, "0", 1, ""},
        Padding{"AlignOneWithNothingToPad", "12345", 4, "0", 1, ""}, Padding{"AlignZero", "5", 4, "0", 0, ""},
        Padding{"AlignTwo", "5", 4, "0", 2, ""}, Padding{"AlignFive", "5", 4, "0", 5, ""},
        Padding{"LongFillInFront", "5", 4, "ab", 4, "ababab5"},
        Padding{"LongFillBehind", "5", 3, "ab", 3, "5abab"}, Padding{"EmptyText", "", 2, "0", 4, "00"},
        Padding{"EmptyFill", "5", 4, "", 4, "5"}, Padding{"EmptyFillBehind", "5", 4, "", 3, "5"},
        Padding{"LengthZero", "5", 0, "0", 4, "5"}, Padding{"NegativeLength", "5", -3, "0", 4, "5"},
        Padding{"SameLength", "0005", 4, "0", 4, "0005"},
        Padding{"CountsCharactersAndNotBytes", "ü€", 4, "0", 4, "00ü€"},
        Padding{"FillAboveAscii", "a", 3, "ü", 3, "aüü"}),
    RowName());

TEST_F(ModuleTools, PadStringPadsWithZerosInFrontWhenNothingElseIsSaid) {
    EXPECT_EQ(PadString("26", 6), "000026");
    EXPECT_EQ(PadString("7", 4, " "), "   7");
}

TEST_F(ModuleTools, PadStringOverflowsWhenTheCountIsBeyondSixteenBits) {
    EXPECT_EQ(PadString(std::string(32767, 'x'), 0), std::string(32767, 'x'));
    EXPECT_EQ(messages_.messages.size(), 0U);
    EXPECT_EQ(PadString(std::string(32769, 'x'), 0), "");
    ASSERT_EQ(messages_.messages.size(), 1U);
    EXPECT_EQ(messages_.messages[0].text, "mCTps-00: Overflow");
}

TEST(FillParam, ReplacesTheFirstMarkerOnly) {
    EXPECT_EQ(FillParam("INSERT INTO ? ", "Devices"), "INSERT INTO Devices ");
    EXPECT_EQ(FillParam("VALUES (?, '?', '?') ", "7"), "VALUES (7, '?', '?') ");
}

TEST(FillParam, LeavesATemplateWithoutMarkerUnchanged) {
    EXPECT_EQ(FillParam("SELECT *   FROM __version ", "x"), "SELECT *   FROM __version ");
    EXPECT_EQ(FillParam("", "x"), "");
}

TEST(FillParam, AnEmptyValueRemovesTheMarker) {
    EXPECT_EQ(FillParam("a ? b", ""), "a  b");
}

TEST(FillParam, AMarkerInAValueIsRefilledByTheNextCall) {
    const std::string first = FillParam("VALUES ('?', '?') ", "A?B");
    EXPECT_EQ(first, "VALUES ('A?B', '?') ");
    EXPECT_EQ(FillParam(first, "D"), "VALUES ('ADB', '?') ");
}

TEST(FillParam, TakesALeadingAndATrailingMarker) {
    EXPECT_EQ(FillParam("? b", "a"), "a b");
    EXPECT_EQ(FillParam("a ?", "b"), "a b");
    EXPECT_EQ(FillParam("?", "x"), "x");
}

TEST(FillParam, LeavesTheValueUnchanged) {
    const std::string value = "O'Neil";
    EXPECT_EQ(FillParam("'?' ", value), "'O'Neil' ");
    EXPECT_EQ(value, "O'Neil");
}

TEST(FillParam, AddsNoQuotesAndDoublesNothing) {
    EXPECT_EQ(FillParam("(?)", "it's \"x\" \\ ''"), "(it's \"x\" \\ '')");
}

class Searches : public ModuleTools {
 protected:
    ItemList list_;
};

TEST_F(Searches, FindListTextOnAnEmptyListIsMinusOne) {
    EXPECT_EQ(FindListText(list_, ""), -1);
    EXPECT_EQ(FindListText(list_, "x"), -1);
}

TEST_F(Searches, FindListTextIsExactAndCaseSensitiveAndGivesTheFirstOfEqualItems) {
    list_.Add({{"5.0"}, {"abc"}, {"Abc"}, {"abc"}, {"6.0"}});
    EXPECT_EQ(FindListText(list_, "5.0"), 0);
    EXPECT_EQ(FindListText(list_, "abc"), 1);
    EXPECT_EQ(FindListText(list_, "Abc"), 2);
    EXPECT_EQ(FindListText(list_, "6.0"), 4) << "the last item is compared too";
    EXPECT_EQ(FindListText(list_, "ABC"), -1);
    EXPECT_EQ(FindListText(list_, "ab"), -1);
    EXPECT_EQ(FindListText(list_, "abc "), -1);
    EXPECT_TRUE(messages_.messages.empty()) << "no item behind the last is asked for";
}

TEST_F(Searches, FindListItemDataGivesTheFirstMatchElseMinusOne) {
    EXPECT_EQ(FindListItemData(list_, 0), -1);
    list_.Add({{"HART", 0}, {"fieldbus", 1}, {"again", 1}, {"large", 65537}, {"last", -7}});
    EXPECT_EQ(FindListItemData(list_, 0), 0) << "data 0 can match";
    EXPECT_EQ(FindListItemData(list_, 1), 1);
    EXPECT_EQ(FindListItemData(list_, -7), 4);
    EXPECT_EQ(FindListItemData(list_, 2), -1);
    EXPECT_TRUE(messages_.messages.empty()) << "no item behind the last is asked for";
}

TEST_F(Searches, AnErrorOfTheListGivesMinusOneAndAMessage) {
    struct BrokenList final : IList {
        [[nodiscard]] int Count() const override { return 1; }
        [[nodiscard]] std::string Text(int) const override { throw std::bad_alloc(); }
        [[nodiscard]] std::int32_t ItemData(int) const override { throw RunTimeError(ErrorNumber::Overflow); }
        void Add(const std::vector<ListItem>&) override {}
    };
    const BrokenList broken;
    EXPECT_EQ(FindListText(broken, "x"), -1);
    EXPECT_EQ(FindListItemData(broken, 1), -1);
    ASSERT_EQ(messages_.messages.size(), 2U);
    EXPECT_EQ(messages_.messages[0].text, "mCTflt-00: Out of memory");
    EXPECT_EQ(messages_.messages[1].text, "mCTfli-00: Overflow");
}

TEST(ItemList, KeepsTextsAndItemData) {
    ItemList list;
    EXPECT_EQ(list.Count(), 0);
    list.Add({{"a"}});
    list.Add({{"b", 70000}, {"c", 1}});
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.Text(1), "b");
    EXPECT_EQ(list.ItemData(0), 0);
    EXPECT_EQ(list.ItemData(1), 70000);
    EXPECT_THROW(static_cast<void>(list.Text(3)), std::out_of_range);
}

class Bounds final : public IBounds {
 public:
    Bounds(double left, double top, double width, double height)
        : left_(left), top_(top), width_(width), height_(height) {}
    [[nodiscard]] double Left() const override { return left_; }
    [[nodiscard]] double Top() const override { return top_; }
    [[nodiscard]] double Width() const override { return width_; }
    [[nodiscard]] double Height() const override { return height_; }
    void Move(double left, double top) override {
        left_ = left;
        top_ = top;
    }

 private:
    double left_, top_, width_, height_;
};

TEST(CenterForm, WithoutParentTakesTheMiddleOfTheScreenWithHalvesCutToWholeUnits) {
    Bounds form(7, 7, 401, 301);
    CenterForm(form, 1280, 1024);
    EXPECT_EQ(form.Left(), 440);
    EXPECT_EQ(form.Top(), 362);
    EXPECT_EQ(form.Width(), 401);
}

TEST(CenterForm, WithParentTakesItsMiddle) {
    Bounds form(0, 0, 401, 301);
    CenterForm(form, Bounds(100, 50, 800, 600));
    EXPECT_EQ(form.Left(), 300);
    EXPECT_EQ(form.Top(), 200);
}

TEST(CenterForm, CutsTheHalvesOneByOne) {
    Bounds form(0, 0, 4, 4);
    CenterForm(form, Bounds(0, 0, 7, 9));
    EXPECT_EQ(form.Left(), 1);
    EXPECT_EQ(form.Top(), 2);
}

TEST(CenterForm, OfALargerFormThanTheScreenIsNegative) {
    Bounds form(0, 0, 1000, 800);
    CenterForm(form, 640, 480);
    EXPECT_EQ(form.Left(), -180);
    EXPECT_EQ(form.Top(), -160);
}

struct Hex {
    std::string name;
    std::string text;
    double number;
};

void PrintTo(const Hex& row, std::ostream* out) {
    *out << row.name;
}

class HexToNumberRow : public testing::TestWithParam<Hex> {};

TEST_P(HexToNumberRow, NeverFails) {
    EXPECT_EQ(HexToNumber(GetParam().text), GetParam().number) << '"' << GetParam().text << '"';
}

INSTANTIATE_TEST_SUITE_P(
    HexToNumber, HexToNumberRow,
    testing::Values(Hex{"PrefixIsDropped", "0x1F", 31}, Hex{"LowerCase", "1f", 31},
                    Hex{"CapitalPrefixIsNot", "0X1F", -225}, Hex{"Empty", "", 0}, Hex{"PrefixAlone", "0x", 0},
                    Hex{"OneForeignCharacter", "G", -1}, Hex{"ForeignCharacters", "XYZ", -273},
                    Hex{"Sign", "-1", -15}, Hex{"LeadingBlank", " 26", -218},
                    Hex{"TrailingBlank", "26 ", 607}, Hex{"InnerBlank", "1 2", 242},
                    Hex{"SecondPrefix", "0x0x1F", -225}, Hex{"SevenDigits", "1234567", 19088743},
                    Hex{"FiftyThreeBits", "1FFFFFFFFFFFFF", 9007199254740991},
                    Hex{"SixDigits", "FFFFFF", 16777215}, Hex{"EightDigits", "FFFFFFFF", 4294967295},
                    Hex{"NineDigits", "100000000", 4294967296}, Hex{"ForeignCharacterOfTwoBytes", "1ü2", 242},
                    Hex{"MixedCase", "aBcDeF", 11259375},
                    Hex{"ManyLeadingZeros", std::string(400, '0') + "1F", 31}),
    RowName());

TEST(HexText, HasAtLeastTwoDigits) {
    EXPECT_EQ(HexText(0), "00");
    EXPECT_EQ(HexText(10), "0A");
    EXPECT_EQ(HexText(255), "FF");
    EXPECT_EQ(HexText(256), "100");
    EXPECT_EQ(HexText(4503599627370495.0), "FFFFFFFFFFFFF");
}

TEST(HexToNumber, OfMoreDigitsThanANumberHoldsIsInfiniteAndRaisesNothing) {
    EXPECT_TRUE(std::isinf(HexToNumber(std::string(400, 'F'))));
    EXPECT_FALSE(std::isnan(HexToNumber(std::string(400, 'F') + "G0")));
}

TEST(StripNull, GivesWhatStandsBeforeTheFirstNulAndNothingWithoutOne) {
    EXPECT_EQ(StripNull("abc"), "");
    EXPECT_EQ(StripNull("abc\0def"sv), "abc");
    EXPECT_EQ(StripNull("abc\0d\0e"sv), "abc");
    EXPECT_EQ(StripNull("abc\0"sv), "abc");
    EXPECT_EQ(StripNull("\0abc"sv), "");
    EXPECT_EQ(StripNull(""), "");
}

}  // namespace
}  // namespace ventlock::test
