#include <gtest/gtest.h>
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/CodePage.h"
#include "support/Raised.h"

namespace ventlock::test {
namespace {

TEST(CodePage, OfFilesThatSayNothingIsTheSystemsAnsiPage) {
    EXPECT_EQ(CodePage::SystemDefault().Number(), static_cast<int>(GetACP()));
}

TEST(CodePage, APrivateCharacterThatTheTablesGiveAMeaninglessByteIsNotText) {
    EXPECT_EQ(CodePage(1253).Decode("a\xAA"
                                    "b"),
              "aªb");
    EXPECT_EQ(CodePage(1253).Encode("\xEF\xA3\xB9"), std::nullopt);  // U+F8F9
    EXPECT_EQ(CodePage(874).Decode("\xDB"), "Û");
}

TEST(CodePage, ASimilarCharacterIsNotTakenForTheOneThatIsMissing) {
    EXPECT_EQ(CodePage(1252).Encode("Ａ"), std::nullopt);  // the wide A
    EXPECT_EQ(CodePage(1252).Encode("∞"), std::nullopt);   // not the 8
    EXPECT_EQ(CodePage(20127).Encode("é"), std::nullopt);  // not the e
    EXPECT_EQ(CodePage(20127).Decode("\xC1"), "Á");        // not the A
    EXPECT_EQ(CodePage(1252).Encode("?"), "?");            // what the system puts for a missing one
}

TEST(CodePage, OfFourBytesACharacterHoldsEveryOneWhereTheSystemHasIt) {
    if (IsValidCodePage(54936) == 0) {
        EXPECT_EQ(NumberRaisedBy([] { CodePage{54936}; }), 5);
        return;
    }
    const CodePage page(54936);
    const std::string_view text = "aü€中\xF0\x9F\x98\x80";
    const std::string bytes = "a\x81\x30\x89\x39\xA2\xE3\xD6\xD0\x94\x39\xFC\x36";
    EXPECT_EQ(page.Encode(text), bytes);
    EXPECT_EQ(page.Decode(bytes), text);
    EXPECT_EQ(page.Decode("\x81"), "\xC2\x81");
}

TEST(CodePage, ThatShiftsBetweenAlphabetsIsRefused) {
    for (const int number : {2, 3, 42, 37, 50220, 50221, 50225, 52936, 65000}) {
        EXPECT_EQ(NumberRaisedBy([&] { CodePage{number}; }), 5) << number;
    }
}

}  // namespace
}  // namespace ventlock::test
