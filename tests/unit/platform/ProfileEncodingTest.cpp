#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Raised.h"
#include "unit/platform/ProfileText.h"

namespace ventlock::test {
namespace {

using namespace std::string_literals;

std::string AllHighBytes() {
    std::string bytes;
    for (int i = 0x80; i <= 0xFF; ++i) bytes += static_cast<char>(i);
    return bytes;
}

TEST(ProfileEncoding, BytesAbove127InUntouchedLinesAreUnchanged) {
    const std::string high = AllHighBytes();
    const std::string before =
        ";" + high + "\r\n[" + high + "]\r\n" + high + "=" + high + "\r\n" + high + "\r\n[A]\r\nx=";
    EXPECT_EQ(AfterWrite(before + "1\r\n", "A", "x", "9"), before + "9\r\n");
    EXPECT_EQ(AfterTidy(before + "1\r\n"), ";" + high + "\r\n\r\n[" + high + "]\r\n" + high + "=" + high +
                                               "\r\n" + high + "\r\n\r\n[A]\r\nx=1\r\n");
}

TEST(ProfileEncoding, NewTextIsWrittenInTheBytesOfTheWesternPage) {
    EXPECT_EQ(AfterWrite("", "Geräte", "Größe", "ü€"),
              "[Ger\xE4te]\r\nGr\xF6\xDF"
              "e=\xFC\x80\r\n");
    EXPECT_EQ(WesternFile("[A]\r\nx=\xFC\x80\r\n").Read("A", "x"), "ü€");
}

TEST(ProfileEncoding, LettersAboveAsciiAreFoundWithoutRegardToCase) {
    const std::string before = "[GER\xC4TE]\r\n\xC4nderung=1\r\n";
    EXPECT_EQ(WesternFile(before).Read("geräte", "äNDERUNG"), "1");
    EXPECT_EQ(AfterWrite(before, "Geräte", "ÄNDERUNG", "2"), "[GER\xC4TE]\r\n\xC4nderung=2\r\n");
}

TEST(ProfileEncoding, ACharacterThatThePageLacksIsRefusedWithItsTextAndNothingChanges) {
    struct Row {
        std::string_view section, key, value, text;
    };
    for (const Row& row : {Row{"A", "x", "5 Ω", "5 Ω"}, Row{"A", "Ωkey", "v", "Ωkey"},
                           Row{"Ωsec", "x", "v", "Ωsec"}, Row{"New", "y", "中", "中"}}) {
        ProfileFile file = WesternFile("[A]\r\nx=1");
        const auto write = [&] { file.Write(row.section, row.key, row.value); };
        EXPECT_EQ(NumberRaisedBy(write), 75);
        EXPECT_EQ(DescriptionRaisedBy(write), "Path/File access error \"" + std::string(row.text) +
                                                  "\" holds a character that code page 1252 lacks");
        EXPECT_EQ(file.Bytes(), "[A]\r\nx=1");
    }
}

TEST(ProfileEncoding, AFileWithTheUtf16MarkStaysUtf16WithItsMark) {
    EXPECT_EQ(AfterWrite(MarkedUtf16("[A]\nx=1\r\n\n;c\r\n"), "a", "X", "9"),
              MarkedUtf16("[A]\nx=9\r\n\n;c\r\n"));
    EXPECT_EQ(AfterWrite(MarkedUtf16("[A]\r\nx=1\r\n\r\n[B]"), "A", "y", "2"),
              MarkedUtf16("[A]\r\nx=1\r\ny=2\r\n\r\n[B]"));
    EXPECT_EQ(AfterWrite(MarkedUtf16("[A]\r\nx=1"), "B", "y", "2"),
              MarkedUtf16("[A]\r\nx=1\r\n[B]\r\ny=2\r\n"));
    EXPECT_EQ(AfterTidy(MarkedUtf16("[A]\nx=1\n[B]")), MarkedUtf16("[A]\r\nx=1\r\n\r\n[B]\r\n"));
}

TEST(ProfileEncoding, AFileOfTheTwoBytesOfTheMarkIsAnEmptyUtf16File) {
    EXPECT_EQ(AfterWrite("\xFF\xFE", "A", "x", "1"), MarkedUtf16("[A]\r\nx=1\r\n"));
    EXPECT_EQ(AfterTidy("\xFF\xFE"), "\xFF\xFE");
}

TEST(ProfileEncoding, AUtf16FileTakesCharactersThatTheCodePageLacks) {
    const std::string bytes = AfterWrite(MarkedUtf16("[A]\r\n"), "A", "Ω", "\xF0\x9F\x98\x80");
    EXPECT_EQ(bytes, MarkedUtf16("[A]\r\n") + "\xA9\x03=\0\x3D\xD8\x00\xDE\r\0\n\0"s);
    EXPECT_EQ(WesternFile(bytes).Read("a", "ω"), "\xF0\x9F\x98\x80");
}

TEST(ProfileEncoding, AUtf16FileRefusesBytesThatAreNoCharacter) {
    ProfileFile file = WesternFile(MarkedUtf16("[A]\r\n"));
    EXPECT_EQ(DescriptionRaisedBy([&] { file.Write("A", "x", "1\xFF"); }),
              "Path/File access error \"1\xFF\" holds a character that UTF-16 lacks");
}

TEST(ProfileEncoding, ALineFeedWithinAUtf16CharacterIsNoLineEnd) {
    // U+0A0D and U+0D0A consist of the bytes of a line end.
    const std::string bytes = MarkedUtf16("[A]\r\nx=") + "\x0D\x0A\x0A\x0D"s + std::string("\r\0\n\0", 4);
    EXPECT_EQ(WesternFile(bytes).Read("A", "x"), "\xE0\xA8\x8D\xE0\xB4\x8A");
    ProfileFile file = WesternFile(bytes);
    file.Write("A", "y", "1");
    EXPECT_EQ(file.Bytes(), bytes + MarkedUtf16("y=1\r\n").substr(2));
}

TEST(ProfileEncoding, LoneSurrogatesOfAnUntouchedUtf16LineAreKept) {
    const std::string odd = ";\0\x00\xDC\x00\xD8\x41\0\r\0\n\0"s;
    EXPECT_EQ(AfterWrite("\xFF\xFE" + odd + MarkedUtf16("[A]\r\nx=1\r\n").substr(2), "A", "x", "2"),
              "\xFF\xFE" + odd + MarkedUtf16("[A]\r\nx=2\r\n").substr(2));
}

TEST(ProfileEncoding, AUtf16FileThatEndsWithinACharacterIsRefused) {
    const auto open = [] { WesternFile("\xFF\xFE[\0A"s); };
    EXPECT_EQ(NumberRaisedBy(open), 75);
    EXPECT_EQ(DescriptionRaisedBy(open), "Path/File access error the UTF-16 text ends within a character");
}

TEST(ProfileEncoding, TextThatIsNoUtf8IsRefusedForAUtf16FileToo) {
    for (const std::string& before : {MarkedUtf16("[A]\r\n"), "[A]\r\n"s}) {
        ProfileFile file = WesternFile(before);
        EXPECT_EQ(NumberRaisedBy([&] { file.Write("A", "x", "a\xFF"); }), 75);
        EXPECT_EQ(NumberRaisedBy([&] { file.Write("A", "x", "\xED\xA0\x80"); }), 75);
        EXPECT_EQ(file.Bytes(), before);
    }
}

TEST(ProfileEncoding, AUtf8MarkIsPartOfTheFirstLineAndHidesAHeaderThere) {
    const std::string before = "\xEF\xBB\xBF[A]\r\nx=1\r\n[B]\r\ny=2\r\n";
    EXPECT_EQ(WesternFile(before).Read("A", "x"), std::nullopt);
    EXPECT_EQ(WesternFile(before).Read("B", "y"), "2");
    EXPECT_EQ(AfterWrite(before, "B", "y", "3"), "\xEF\xBB\xBF[A]\r\nx=1\r\n[B]\r\ny=3\r\n");
}

TEST(ProfileEncoding, ThePageDecidesTheBytes) {
    ProfileFile cyrillic("[A]\r\n", CodePage(1251));
    cyrillic.Write("A", "x", "Щит");
    EXPECT_EQ(cyrillic.Bytes(), "[A]\r\nx=\xD9\xE8\xF2\r\n");
    EXPECT_EQ(cyrillic.Read("A", "x"), "Щит");

    ProfileFile utf8("[A]\r\n", CodePage(65001));
    utf8.Write("A", "x", "Щ€");
    EXPECT_EQ(utf8.Bytes(), "[A]\r\nx=Щ€\r\n");
}

/// Page 932: the second bytes of ゼ, ソ and ゾ are those of "[", "\" and "]".
class ProfileJapanese : public testing::Test {
 protected:
    static ProfileFile File(std::string_view bytes) { return {std::string(bytes), CodePage(932)}; }
};

TEST_F(ProfileJapanese, ASecondByteOfABracketEndsNoSectionName) {
    const std::string before =
        "[a\x83\x5D"
        "b]\r\nx=1\r\n[\x83\x5B\x83\x5C\x83\x5D]\r\nx=2\r\n";
    EXPECT_EQ(File(before).Sections(), (std::vector<std::string>{"aゾb", "ゼソゾ"}));
    EXPECT_EQ(File(before).Read("Aゾb", "x"), "1");
    EXPECT_EQ(File(before).Read("ゼソゾ", "x"), "2");

    ProfileFile file = File(before);
    file.Write("aゾB", "y", "3");
    file.Write("ゼソゾ", "x", "4");
    EXPECT_EQ(file.Bytes(),
              "[a\x83\x5D"
              "b]\r\nx=1\r\ny=3\r\n[\x83\x5B\x83\x5C\x83\x5D]\r\nx=4\r\n");
}

TEST_F(ProfileJapanese, ASectionNameThatWouldTakeTheClosingBracketIntoItsLastCharacterIsRefused) {
    ProfileFile file = File("[A]\r\n");
    EXPECT_EQ(DescriptionRaisedBy([&] { file.Write("\u0095", "x", "1"); }),
              "Path/File access error \"\u0095\" is no section name: code page 932 reads it otherwise");
    EXPECT_EQ(file.Bytes(), "[A]\r\n");
    file.Write("A", "\u0095", "\u0095");
    EXPECT_EQ(File(file.Bytes()).Read("A", "\u0095"), "\u0095");
}

TEST_F(ProfileJapanese, ANewSectionOfSuchCharactersIsFoundAgain) {
    ProfileFile file = File("");
    file.Write("ゾ", "ゼ", "ソ");
    const std::string once = "[\x83\x5D]\r\n\x83\x5B=\x83\x5C\r\n";
    EXPECT_EQ(file.Bytes(), once);

    ProfileFile again = File(once);
    EXPECT_EQ(again.Read("ゾ", "ゼ"), "ソ");
    again.Write("ゾ", "ゼ", "ソ");
    EXPECT_EQ(again.Bytes(), once);
}

TEST_F(ProfileJapanese, AKeyThatBeginsWithSuchACharacterIsNoHeader) {
    const ProfileFile file = File("[A]\r\n\x83\x5B=1\r\n\x83\x5B]=2\r\ny=3\r\n");
    EXPECT_EQ(file.Read("A", "ゼ"), "1");
    EXPECT_EQ(file.Read("A", "ゼ]"), "2");
    EXPECT_EQ(file.Read("A", "y"), "3");
}

TEST_F(ProfileJapanese, AValueThatEndsInTheByteOfABackslashIsReadWhole) {
    EXPECT_EQ(File("[A]\r\nx=000026\\\x83\x5C\r\n").Read("A", "x"), "000026\\ソ");
}

TEST_F(ProfileJapanese, TheTidyPassTakesALineOfSuchACharacterForNoHeader) {
    ProfileFile file = File("[A]\r\n\x83\x5B\r\n[B]\r\n");
    file.SeparateSections();
    EXPECT_EQ(file.Bytes(), "[A]\r\n\x83\x5B\r\n\r\n[B]\r\n");
}

TEST_F(ProfileJapanese, ACharacterThatThePageLacksIsRefused) {
    ProfileFile file = File("[A]\r\n");
    EXPECT_EQ(DescriptionRaisedBy([&] { file.Write("A", "x", "é"); }),
              "Path/File access error \"é\" holds a character that code page 932 lacks");
    EXPECT_EQ(file.Bytes(), "[A]\r\n");
}

}  // namespace
}  // namespace ventlock::test
