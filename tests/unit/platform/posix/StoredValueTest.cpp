#include "platform/posix/StoredValue.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace ventlock {
namespace {

TEST(StoredValue, EveryKindHasOneTextThatReadsBack) {
    const std::vector<std::tuple<std::uint32_t, std::string, std::string>> table{
        {1, "Acme", "text:\"Acme\""},
        {1, "", "text:\"\""},
        {1, "  a  ", "text:\"  a  \""},
        {1, "\"quoted\"", "text:\"\\\"quoted\\\"\""},
        {1, "A:\\Ddinstal.ini", "text:\"A:\\\\Ddinstal.ini\""},
        {1, "a\r\nb", "text:\"a\\r\\nb\""},
        {1, std::string("ab\0cd", 5), "text:\"ab\\0cd\""},
        {1, "\t\x01\x7F", "text:\"\\x09\\x01\\x7f\""},
        {1, "Prüfgerät Ω中", "text:\"Prüfgerät Ω中\""},
        {1,
         "a\xFF"
         "b",
         "text:\"a\\xffb\""},
        {1, "\xED\xA0\x80", "text:\"\\xed\\xa0\\x80\""},
        {1, "[x];=y", "text:\"[x];=y\""},
        {4, "\xC4\xFF\xFF\xFF", "dword:ffffffc4"},
        {4, std::string("\x01\0\0\0", 4), "dword:00000001"},
        {4, "\x01\x02", "hex(4):01,02"},
        {3, std::string("\0\xAB", 2), "hex(3):00,ab"},
        {3, "", "hex(3):"},
        {2, "%x%", "hex(2):25,78,25"},
        {4294967295U, "a", "hex(4294967295):61"},
    };
    for (const auto& [type, bytes, text] : table) {
        EXPECT_EQ(StoredText({type, bytes}), text);
        const std::optional<StoredValue> value = ParseStoredText(text);
        ASSERT_TRUE(value) << text;
        EXPECT_EQ(value->type, type) << text;
        EXPECT_EQ(value->bytes, bytes) << text;
    }
}

TEST(StoredValue, ATextSurvivesWhateverByteItHolds) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    const std::string text = StoredText({1, bytes + bytes});
    EXPECT_EQ(text.find_first_of("\r\n\t"), std::string::npos);
    const std::optional<StoredValue> value = ParseStoredText(text);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->bytes, bytes + bytes);
}

TEST(StoredValue, HandWrittenNumbersMayBeShortAndInCapitals) {
    EXPECT_EQ(ParseStoredText("dword:1F")->bytes, std::string("\x1F\0\0\0", 4));
    EXPECT_EQ(ParseStoredText("dword:FFFFFFC4")->bytes, "\xC4\xFF\xFF\xFF");
    EXPECT_EQ(ParseStoredText("hex(3):A,b,0C")->bytes, "\x0A\x0B\x0C");
}

TEST(StoredValue, AnyOtherTextIsNoValue) {
    for (const std::string_view text : {"",
                                        "Acme",
                                        "\"Acme\"",
                                        "text:",
                                        "text:\"",
                                        "text:\"a",
                                        "text:a\"",
                                        "text:\"a\"b\"",
                                        "text:\"a\\\"",
                                        "text:\"\\q\"",
                                        "text:\"\\x1\"",
                                        "text:\"\\xgg\"",
                                        "text:\"\\x",
                                        "Text:\"a\"",
                                        "dword:",
                                        "dword:g",
                                        "dword:-1",
                                        "dword:1 ",
                                        "dword:100000000",
                                        "dword:0x1",
                                        "hex:00",
                                        "hex():00",
                                        "hex(a):00",
                                        "hex(-1):00",
                                        "hex(4294967296):00",
                                        "hex(3)",
                                        "hex(3:00",
                                        "hex(3):0,",
                                        "hex(3):,0",
                                        "hex(3):0,,0",
                                        "hex(3):100",
                                        "hex(3):00 01"}) {
        EXPECT_FALSE(ParseStoredText(text)) << text;
    }
}

}  // namespace
}  // namespace ventlock
