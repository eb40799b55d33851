#include "platform/CodePage.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/Raised.h"

namespace ventlock {
namespace {

std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
}

TEST(CodePage, WesternTextHasOneByteACharacter) {
    const CodePage page(1252);
    EXPECT_EQ(page.Encode("Prüfgerät €"),
              "Pr\xFC"
              "fger\xE4t \x80");
    EXPECT_EQ(page.Decode("Pr\xFC"
                          "fger\xE4t \x80"),
              "Prüfgerät €");
}

TEST(CodePage, EveryByteOfTheWesternPageSurvivesTheWayThereAndBack) {
    const CodePage page(1252);
    const std::string text = page.Decode(AllBytes());
    EXPECT_EQ(page.Encode(text), AllBytes());
}

TEST(CodePage, AByteThatStandsForNothingBecomesTheCharacterOfItsNumber) {
    const CodePage page(1252);
    EXPECT_EQ(page.Decode("a\x81\x8D\x8F\x90\x9D"
                          "b"),
              "a\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"
              "b");
    EXPECT_EQ(page.Encode("\xC2\x81"), "\x81");
    EXPECT_EQ(CodePage(1253).Decode("\x9F"), "\xC2\x9F");
    EXPECT_EQ(CodePage(1253).Encode("\xC2\x9F"), "\x9F");
}

TEST(CodePage, ACharacterThatThePageLacksIsRefusedAndNeverReplaced) {
    for (const std::string_view text :
         {"Ω", "中", "Ā", "aΩ", "Ωb", "\xC2\x80", "\xF0\x9F\x98\x80", "\xEF\xBC\xA1"}) {
        EXPECT_EQ(CodePage(1252).Encode(text), std::nullopt) << text;
    }
    EXPECT_EQ(CodePage(932).Encode("é"), std::nullopt);
    EXPECT_EQ(CodePage(932).Encode("¥"), std::nullopt);  // not the backslash that shares its place
}

TEST(CodePage, BytesThatAreNoUtf8AreRefused) {
    EXPECT_EQ(CodePage(1252).Encode("a\xFF"), std::nullopt);
    EXPECT_EQ(CodePage(1252).Encode("\xC3"), std::nullopt);
    EXPECT_EQ(CodePage(65001).Encode("a\xFF"), std::nullopt);
    EXPECT_EQ(CodePage(65001).Encode("\xED\xA0\x80"), std::nullopt);
}

TEST(CodePage, TextOfAPageWithTwoBytesACharacterIsConverted) {
    const CodePage page(932);
    EXPECT_EQ(page.Encode("圧力ABC"),
              "\x88\xB3\x97\xCD"
              "ABC");
    EXPECT_EQ(page.Decode("\x88\xB3\x97\xCD"
                          "ABC"),
              "圧力ABC");
    EXPECT_EQ(page.Decode("C:\\a\\b\x83\x5C"), "C:\\a\\bソ");  // its second byte is that of the backslash
    EXPECT_EQ(page.Encode("ソ"), "\x83\x5C");
}

TEST(CodePage, ACutOffCharacterKeepsItsByte) {
    EXPECT_EQ(CodePage(932).Decode("ab\x88"), "ab\xC2\x88");
    EXPECT_EQ(CodePage(932).Decode("\xFF"
                                   "a"),
              "\xC3\xBF"
              "a");
}

TEST(CodePage, Utf8IsAPageToo) {
    const CodePage page(65001);
    EXPECT_EQ(page.Encode("Ω中\xF0\x9F\x98\x80"), "Ω中\xF0\x9F\x98\x80");
    EXPECT_EQ(page.Decode("Ω中\xF0\x9F\x98\x80"), "Ω中\xF0\x9F\x98\x80");
    EXPECT_EQ(page.Decode("ü\xFF"
                          "b"),
              "üÿb");
    EXPECT_EQ(page.Decode("\xEF\xBF\xBD"), "\xEF\xBF\xBD");
}

TEST(CodePage, OtherPagesAreKnownByTheirNumbers) {
    EXPECT_EQ(CodePage(1251).Encode("Ж"), "\xC6");
    EXPECT_EQ(CodePage(437).Encode("ü"), "\x81");
    EXPECT_EQ(CodePage(850).Encode("ü"), "\x81");
    EXPECT_EQ(CodePage(936).Encode("中"), "\xD6\xD0");
    EXPECT_EQ(CodePage(949).Encode("한"), "\xC7\xD1");
    EXPECT_EQ(CodePage(950).Encode("中"), "\xA4\xA4");
    EXPECT_EQ(CodePage(28591).Encode("ü"), "\xFC");
    EXPECT_EQ(CodePage(28605).Encode("€"), "\xA4");
    EXPECT_EQ(CodePage(20866).Encode("ж"), "\xD6");
    EXPECT_EQ(CodePage(21866).Encode("ї"), "\xA7");
    EXPECT_EQ(CodePage(10000).Encode("ü"), "\x9F");
    EXPECT_EQ(CodePage(20127).Encode("ü"), std::nullopt);
}

TEST(CodePage, ALastCharacterThatCouldStillBeCombinedIsNotLost) {
    EXPECT_EQ(CodePage(1258).Decode("\xEA"), "ê");
    EXPECT_EQ(CodePage(1258).Encode("ê"), "\xEA");
    EXPECT_EQ(CodePage(1255).Decode("\xE9"), "י");
}

TEST(CodePage, APageThatIsNotKnownOrChangesAsciiIsRefused) {
    for (const int number : {0, -1, 1, 123456, 1200, 500, 65000}) {
        EXPECT_EQ(test::NumberRaisedBy([&] { CodePage{number}; }), 5) << number;
    }
    EXPECT_EQ(test::DescriptionRaisedBy([] { CodePage{123456}; }),
              "Invalid procedure call or argument code page 123456");
}

TEST(CodePage, LongTextIsConvertedWhole) {
    std::string text;
    std::string bytes;
    for (int i = 0; i < 20000; ++i) {
        text += "üa€";
        bytes +=
            "\xFC"
            "a\x80";
    }
    EXPECT_EQ(CodePage(1252).Encode(text), bytes);
    EXPECT_EQ(CodePage(1252).Decode(bytes), text);
    EXPECT_EQ(CodePage(1252).Decode(bytes + "\x81" + bytes), text + "\xC2\x81" + text);
}

TEST(CodePage, APageHoldsForEveryThread) {
    const CodePage page(1253);
    std::optional<std::string> bytes;
    std::thread other([&] { bytes = page.Encode("Ω"); });
    other.join();
    EXPECT_EQ(bytes, "\xD9");
}

TEST(CodePage, PagesAreEqualByTheirNumber) {
    EXPECT_EQ(CodePage(1252), CodePage(1252));
    EXPECT_EQ(CodePage(1252).Number(), 1252);
    EXPECT_NE(CodePage(1252), CodePage(1251));
}

}  // namespace
}  // namespace ventlock
