// Rules that hold for every profile file, tried on files made at random from fixed seeds.

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "unit/platform/ProfileText.h"

namespace ventlock::test {
namespace {

constexpr std::uint32_t kSeeds = 600;
constexpr int kWritesPerFile = 5;
constexpr int kMostLines = 14;

// No two of a kind are equal without regard to case.
constexpr std::array<std::string_view, 5> kSections{"A", "sec 1", "", "[x", "Ä"};
constexpr std::array<std::string_view, 6> kKeys{"x", "Long Key", "", "#k", "ä", "x.y"};
constexpr std::array<std::string_view, 8> kValues{"", "1", "a=b", "ü€", ";x", "[y]", "a  b", "\"half"};

struct Line {
    std::string content;
    std::string end;
    bool operator==(const Line&) const = default;
};

std::vector<Line> Split(std::string_view text) {
    std::vector<Line> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
        const std::size_t length = text.substr(end, 2) == "\r\n" ? 2 : 1;
        lines.push_back({std::string(text.substr(at, end - at)), std::string(text.substr(end, length))});
        at = end + length;
    }
    return lines;
}

/// Makes files, names and values. The same seed makes the same ones.
class Generator {
 public:
    Generator(std::uint32_t seed, bool asciiOnly) : random_(seed), asciiOnly_(asciiOnly) {}

    std::string File() {
        std::string bytes;
        const std::size_t count = Below(kMostLines + 1);
        for (std::size_t i = 0; i < count; ++i) bytes += Content() + std::string(Pick(kEnds));
        if (Below(3) == 0) bytes += Content();
        return bytes;
    }

    template <std::size_t count>
    std::string_view Pick(const std::array<std::string_view, count>& choices) {
        for (;;) {
            const std::string_view choice = choices[Below(count)];
            if (!asciiOnly_ || CodePage(20127).Encode(choice)) return choice;
        }
    }

    /// The text with the case of some of its ASCII letters changed.
    std::string OtherCase(std::string_view text) {
        std::string changed(text);
        for (char& c : changed) {
            const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
            if (isLetter && Below(2) == 0) c = static_cast<char>(c ^ 0x20);
        }
        return changed;
    }

 private:
    static constexpr std::array<std::string_view, 4> kEnds{"\r\n", "\r\n", "\n", "\r"};
    static constexpr std::array<std::string_view, 5> kBlanks{"", "", "", " ", "\t "};

    std::size_t Below(std::size_t limit) { return random_() % limit; }
    std::string Blanks() { return std::string(Pick(kBlanks)); }
    std::string Stored(std::string_view text) { return CodePage(1252).Encode(text).value(); }

    std::string Content() {
        switch (Below(8)) {
            case 0:
            case 1:
                return Blanks() + "[" + Blanks() + OtherCase(Stored(Pick(kSections))) + Blanks() +
                       (Below(5) == 0 ? "" : "]") + (Below(5) == 0 ? " behind" : "");
            case 2:
            case 3:
            case 4:
                return Blanks() + OtherCase(Stored(Pick(kKeys))) + Blanks() + "=" + Blanks() +
                       Stored(Pick(kValues)) + Blanks();
            case 5:
                return Blanks() + "; " + Stored(Pick(kKeys)) + "=comment";
            case 6:
                return Blanks();
            default:
                return Noise();
        }
    }

    std::string Noise() {
        std::string bytes;
        for (std::size_t i = Below(6); i > 0; --i) {
            const auto byte = static_cast<char>(Below(asciiOnly_ ? 128 : 256));
            if (byte != '\r' && byte != '\n') bytes += byte;
        }
        return bytes;
    }

    std::mt19937 random_;
    bool asciiOnly_;
};

struct OneWrite {
    std::string section;
    std::string key;
    std::string value;

    [[nodiscard]] std::vector<Line> NewLines() const {
        const std::string line = CodePage(1252).Encode(key + "=" + value).value();
        return {{"[" + CodePage(1252).Encode(section).value() + "]", "\r\n"}, {line, "\r\n"}};
    }
};

OneWrite MakeWrite(Generator& generator) {
    return {generator.OtherCase(generator.Pick(kSections)), generator.OtherCase(generator.Pick(kKeys)),
            std::string(generator.Pick(kValues))};
}

/// True when `after` is `before` with one value changed, or with the lines of the write put in; the last line
/// of `before` may have gained a line end only when it is the one changed or something was put behind it.
testing::AssertionResult OnlyThisWriteShows(const std::string& before, const std::string& after,
                                            const OneWrite& write) {
    const std::vector<Line> old = Split(before);
    const std::vector<Line> now = Split(after);
    if (now.size() < old.size()) return testing::AssertionFailure() << "lines are gone";
    std::size_t at = 0;
    while (at < old.size() && old[at] == now[at]) ++at;
    if (now.size() == old.size()) {
        if (at == old.size()) return testing::AssertionSuccess();
        std::vector<Line> expected = old;
        const std::size_t equals = old[at].content.find('=');
        if (equals == std::string::npos)
            return testing::AssertionFailure() << "a line without \"=\" has changed";
        const std::size_t begin =
            std::min(old[at].content.find_first_not_of(" \t\v", equals + 1), old[at].content.size());
        expected[at].content = old[at].content.substr(0, begin) + CodePage(1252).Encode(write.value).value();
        if (expected[at].end.empty()) expected[at].end = "\r\n";
        if (now == expected) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "more than a value has changed";
    }
    std::vector<Line> added = write.NewLines();
    if (now.size() == old.size() + 1) added.erase(added.begin());
    for (std::size_t place = 0; place <= old.size(); ++place) {
        if (added.size() == 2 && place != old.size()) continue;  // a new section goes to the end
        std::vector<Line> expected = old;
        if (place == old.size() && !expected.empty() && expected.back().end.empty())
            expected.back().end = "\r\n";
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(place), added.begin(), added.end());
        if (now == expected) return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "other lines than those of the write have come or changed";
}

TEST(GeneratedProfiles, AWriteLeavesEveryOtherByteAndIsReadBackAndRepeatsWithoutChange) {
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
        Generator generator(seed, false);
        std::string bytes = generator.File();
        for (int i = 0; i < kWritesPerFile; ++i) {
            const OneWrite write = MakeWrite(generator);
            const std::string after = AfterWrite(bytes, write.section, write.key, write.value);
            ASSERT_TRUE(OnlyThisWriteShows(bytes, after, write))
                << "seed " << seed << "\nbefore:\n"
                << bytes << "\nafter:\n"
                << after << "\nwritten: [" << write.section << "] " << write.key << "=" << write.value;
            ASSERT_EQ(WesternFile(after).Read(write.section, write.key), write.value) << "seed " << seed;
            ASSERT_EQ(AfterWrite(after, write.section, write.key, write.value), after) << "seed " << seed;
            bytes = after;
        }
    }
}

TEST(GeneratedProfiles, AWriteChangesTheValueOfNoOtherKey) {
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
        Generator generator(seed, false);
        const std::string bytes = generator.File();
        const std::string_view section = generator.Pick(kSections);
        const std::string_view key = generator.Pick(kKeys);
        const ProfileFile before = WesternFile(bytes);
        const ProfileFile after = WesternFile(AfterWrite(bytes, section, key, "new"));
        for (const std::string_view otherSection : kSections) {
            for (const std::string_view otherKey : kKeys) {
                if (otherSection == section && otherKey == key) continue;
                ASSERT_EQ(after.Read(otherSection, otherKey), before.Read(otherSection, otherKey))
                    << "seed " << seed << " [" << otherSection << "] " << otherKey << "\n"
                    << bytes;
            }
        }
    }
}

TEST(GeneratedProfiles, ManyWritesToOneObjectGiveTheBytesOfOneWriteAtATime) {
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
        Generator generator(seed, false);
        std::string bytes = generator.File();
        ProfileFile together = WesternFile(bytes);
        for (int i = 0; i < kWritesPerFile; ++i) {
            const OneWrite write = MakeWrite(generator);
            bytes = AfterWrite(bytes, write.section, write.key, write.value);
            together.Write(write.section, write.key, write.value);
            ASSERT_EQ(together.Bytes(), bytes) << "seed " << seed;
        }
    }
}

TEST(GeneratedProfiles, AUtf16FileIsEditedLikeTheSameTextInTheCodePage) {
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
        Generator generator(seed, true);
        const std::string text = generator.File();
        const OneWrite write = MakeWrite(generator);
        ASSERT_EQ(AfterWrite(MarkedUtf16(text), write.section, write.key, write.value),
                  MarkedUtf16(AfterWrite(text, write.section, write.key, write.value)))
            << "seed " << seed;
        ASSERT_EQ(AfterTidy(MarkedUtf16(text)), MarkedUtf16(AfterTidy(text))) << "seed " << seed;
    }
}

TEST(GeneratedProfiles, TheTidyPassKeepsEveryLineAndIsIdempotent) {
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
        const std::string bytes = Generator(seed, false).File();
        std::string expected;
        bool followsBlank = true;  // the first line gets none
        for (const Line& line : Split(bytes)) {
            if (line.content.starts_with('[') && !followsBlank) expected += "\r\n";
            expected += line.content + "\r\n";
            followsBlank = line.content.find_first_not_of(' ') == std::string::npos;
        }
        ASSERT_EQ(AfterTidy(bytes), expected) << "seed " << seed;
        ASSERT_EQ(AfterTidy(expected), expected) << "seed " << seed;
    }
}

}  // namespace
}  // namespace ventlock::test
