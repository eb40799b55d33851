#include "platform/Casing.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace ventlock {
namespace {

TEST(Casing, ConvertsEveryCharacter) {
    EXPECT_EQ(UpperCase("Prüfgerät azAZ09[`{@"), "PRÜFGERÄT AZAZ09[`{@");
    EXPECT_EQ(LowerCase("PRÜFGERÄT azAZ09[`{@"), "prüfgerät azaz09[`{@");
    EXPECT_EQ(UpperCase("ωжéÿ中"), "ΩЖÉŸ中");
    EXPECT_EQ(LowerCase("ΩЖÉŸ中"), "ωжéÿ中");
}

TEST(Casing, OneCharacterGivesOneCharacter) {
    EXPECT_EQ(UpperCase("Straße"), "STRAßE");
    EXPECT_EQ(UpperCase("ﬁn"), "ﬁN");  // the ligature has no simple capital
    EXPECT_EQ(UpperCase(U'i'), U'I');
    EXPECT_EQ(LowerCase(U'I'), U'i');
    EXPECT_EQ(UpperCase(U'ü'), U'Ü');
    EXPECT_EQ(LowerCase(U'Ü'), U'ü');
}

TEST(Casing, BytesThatAreNoTextAreKept) {
    EXPECT_EQ(UpperCase("a\xFF"
                        "b\xC3"),
              "A\xFF"
              "B\xC3");
    EXPECT_EQ(LowerCase("A\xFF"
                        "B\xC3"),
              "a\xFF"
              "b\xC3");
    EXPECT_TRUE(EqualIgnoringCase("a\xFF", "A\xFF"));
    EXPECT_FALSE(EqualIgnoringCase("a\xFF", "A\xFE"));
    EXPECT_FALSE(EqualIgnoringCase("a\xFF", "A\xEF\xBF\xBD"));
}

TEST(EqualIgnoringCase, ComparesTheCapitalsOfBothTexts) {
    EXPECT_TRUE(EqualIgnoringCase("", ""));
    EXPECT_TRUE(EqualIgnoringCase("DataSourceName", "DATASOURCEname"));
    EXPECT_TRUE(EqualIgnoringCase("Gerät", "GERÄT"));
    EXPECT_TRUE(EqualIgnoringCase("Ⱥ", "ⱥ"));  // two bytes and three
    EXPECT_FALSE(EqualIgnoringCase("a", ""));
    EXPECT_FALSE(EqualIgnoringCase("", "a"));
    EXPECT_FALSE(EqualIgnoringCase("abc", "abcd"));
    EXPECT_FALSE(EqualIgnoringCase("abc", "abd"));
    EXPECT_FALSE(EqualIgnoringCase("ä", "a"));
    EXPECT_FALSE(EqualIgnoringCase("ß", "SS"));
    EXPECT_FALSE(EqualIgnoringCase("@", "`"));
    EXPECT_FALSE(EqualIgnoringCase("[", "{"));
}

TEST(HashIgnoringCase, IsTheSameForEqualTexts) {
    struct Pair {
        std::string_view a;
        std::string_view b;
    };
    for (const auto& [a, b] : {Pair{"", ""}, Pair{"DataSourceName", "DATASOURCEname"}, Pair{"Gerät", "GERÄT"},
                               Pair{"Ⱥ", "ⱥ"}, Pair{"a\xFF", "A\xFF"}}) {
        EXPECT_EQ(HashIgnoringCase(a), HashIgnoringCase(b)) << a;
    }
}

TEST(HashIgnoringCase, DiffersForOthers) {
    std::set<std::string> texts{"", "A", "AB", "BA", "B", "ä", "\xFF", "\xFE", "\xEF\xBF\xBD", "[", "{"};
    for (int i = 0; i < 10000; ++i) texts.insert("000026." + std::to_string(i));
    std::set<std::size_t> hashes;
    for (const std::string& text : texts) hashes.insert(HashIgnoringCase(text));
    EXPECT_EQ(hashes.size(), texts.size());
}

}  // namespace
}  // namespace ventlock
