#include "base/Utf.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace ventlock {
namespace {

struct Sample {
    char32_t character;
    std::string_view utf8;
    std::u16string_view utf16;
};

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> kSamples{
        {0x00, std::string_view("\0", 1), std::u16string_view(u"\0", 1)},
        {0x41, "A", u"A"},
        {0x7F, "\x7F", u"\x7F"},
        {0x80, "\xC2\x80", u"\x80"},
        {0xFC, "\xC3\xBC", u"\xFC"},
        {0x7FF, "\xDF\xBF", u"\x7FF"},
        {0x800, "\xE0\xA0\x80", u"\x800"},
        {0x4E2D, "\xE4\xB8\xAD", u"\x4E2D"},
        {0xFFFD, "\xEF\xBF\xBD", u"\xFFFD"},
        {0xFFFF, "\xEF\xBF\xBF", u"\xFFFF"},
        {0x10000, "\xF0\x90\x80\x80", u"\xD800\xDC00"},
        {0x1F600, "\xF0\x9F\x98\x80", u"\xD83D\xDE00"},
        {0x10FFFF, "\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
    };
    return kSamples;
}

TEST(Utf, OneCharacterIsReadAndWrittenInEveryLength) {
    for (const Sample& sample : Samples()) {
        std::size_t position = 0;
        EXPECT_EQ(NextCharacter(sample.utf8, position), sample.character);
        EXPECT_EQ(position, sample.utf8.size());
        std::string written;
        AppendCharacter(written, sample.character);
        EXPECT_EQ(written, sample.utf8);
        EXPECT_EQ(ToUtf16(sample.utf8), sample.utf16);
        EXPECT_EQ(FromUtf16(sample.utf16), sample.utf8);
        EXPECT_TRUE(IsUtf8(sample.utf8));
    }
}

TEST(Utf, BytesThatBeginNoCharacterGiveTheReplacementOneByOne) {
    for (const std::string_view bytes : {
             "\x80",              // a continuation alone
             "\xC0\xAF",          // a longer form than needed
             "\xC1\xBF",          // likewise
             "\xE0\x80\x80",      // likewise
             "\xF0\x80\x80\x80",  // likewise
             "\xF4\x90\x80\x80",  // beyond the last character
             "\xF5\x80\x80\x80",  // likewise
             "\xFE",              // never a lead
             "\xC3",              // cut off
             "\xE4\xB8",          // cut off
             "\xF0\x9F\x98",      // cut off
             "\xC3(",             // no continuation
         }) {
        EXPECT_FALSE(IsUtf8(bytes));
        std::size_t position = 0;
        EXPECT_EQ(NextCharacter(bytes, position), kReplacementCharacter);
        EXPECT_EQ(position, 1U);
    }
    EXPECT_EQ(ToUtf16("a\xFF"
                      "b"),
              u"a\xFFFD"
              u"b");
    EXPECT_EQ(ToUtf16("\xE4\xB8"), u"\xFFFD\xFFFD");
}

TEST(Utf, LoneSurrogatesSurviveTheWayThereAndBack) {
    for (const std::u16string& text :
         {std::u16string{0xD800}, std::u16string{0xDC00}, std::u16string{0xDFFF, 'a'},
          std::u16string{0xDC00, 0xD800}, std::u16string{'a', 0xDBFF}}) {
        const std::string utf8 = FromUtf16(text);
        EXPECT_FALSE(IsUtf8(utf8));
        EXPECT_EQ(ToUtf16(utf8), text);
    }
    EXPECT_EQ(FromUtf16(std::u16string{0xD800}), "\xED\xA0\x80");
}

TEST(Utf, LongTextSurvivesTheWayThereAndBack) {
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "aü中\xF0\x9F\x98\x80";
    EXPECT_TRUE(IsUtf8(text));
    EXPECT_EQ(ToUtf16(text).size(), 5000U);
    EXPECT_EQ(FromUtf16(ToUtf16(text)), text);
}

TEST(Utf, BytesOfUtf16AreLeastSignificantFirstBothWays) {
    const std::string bytes("A\0\xFC\0\x3D\xD8\0\xDE", 8);
    EXPECT_EQ(FromUtf16Bytes(bytes), "A\xC3\xBC\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf16Bytes("A\xC3\xBC\xF0\x9F\x98\x80"), bytes);
    EXPECT_EQ(FromUtf16Bytes("A"), std::nullopt) << "half a character is no text";
}

TEST(Utf, AsciiEndsAt127) {
    EXPECT_TRUE(IsAscii(""));
    EXPECT_TRUE(IsAscii(std::string_view("a\0\x7F", 3)));
    EXPECT_FALSE(IsAscii("a\x80"));
    EXPECT_FALSE(IsAscii("\xFF z"));
}

}  // namespace
}  // namespace ventlock
