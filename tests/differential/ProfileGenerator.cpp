#include "differential/ProfileGenerator.h"

#include <algorithm>

#include "base/Utf.h"
#include "platform/CodePage.h"

namespace ventlock::test {
namespace {

constexpr std::size_t kMostLines = 12;
constexpr std::size_t kMostWrites = 6;
constexpr std::size_t kLongest = 5000;

/// A few names of each kind, so that equal ones meet.
const std::vector<std::string> kSections{"A", "A", "sec 1", "sec 1", "TAV", "", "[x", "Ä€", "\"q\"", ";s"};
const std::vector<std::string> kKeys{"x", "x", "y", "Long Key", "#k", "ä", "x.y", "", "'q'"};
const std::vector<std::string> kValues{
    "",   "1",  "2",        "two words", "a=b", ";x",   "[y]", "ü€\u0081", "'s'", "\"d\"",  "\"h'",
    "\"", "'s", "\" in \"", "\"\"t\"\"", "v;c", "a\tb", "\f1", "1\x1A",    "]",   "\u00A0", "000026\\0007\\"};
const std::vector<std::string> kWideValues{"Ωμέγα", "中文", "я"};
const std::vector<std::string> kLineEnds{"\r\n", "\n", "\r"};

}  // namespace

std::string ProfileGenerator::Blanks() {
    static const Choices kBlanks{"", "", "", "", " ", "  ", "\t", " \t ", "\v"};
    return OneIn(60) ? "\f" : Pick(kBlanks);
}

/// The text with the case of some of its letters changed.
std::string ProfileGenerator::OtherCase(std::string text) {
    for (char& c : text) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (isLetter && OneIn(3)) c = static_cast<char>(c ^ 0x20);
    }
    if (OneIn(2)) {
        if (const auto at = text.find("Ä"); at != std::string::npos)
            text.replace(at, 2, "ä");
        else if (const auto lower = text.find("ä"); lower != std::string::npos)
            text.replace(lower, 2, "Ä");
    }
    return text;
}

std::string ProfileGenerator::SectionName() {
    return OtherCase(Pick(kSections));
}

std::string ProfileGenerator::KeyName() {
    return OtherCase(Pick(kKeys));
}

std::string ProfileGenerator::Value() {
    if (OneIn(60)) return std::string(200 + Below(kLongest), static_cast<char>('a' + Below(26)));
    if (isUtf16_ && OneIn(5)) return Pick(kWideValues);
    if (OneIn(12)) {
        const std::string byte(1, static_cast<char>(0x80 + Below(0x80)));
        return "b" + CodePage(kPage).Decode(byte) + "b";
    }
    return Pick(kValues);
}

std::string ProfileGenerator::LineEnd() {
    return lineEnds_ < kLineEnds.size() ? kLineEnds[lineEnds_] : Pick(kLineEnds);
}

std::string ProfileGenerator::Header() {
    section_ = SectionName();
    const std::string begin = Blanks() + "[" + Blanks() + section_ + Blanks();
    if (OneIn(12)) return begin;
    static const Choices kBehind{"", "", "", "", "", " behind", " ; c", "x", "k=v", " [y]", "]"};
    return begin + "]" + Pick(kBehind);
}

std::string ProfileGenerator::KeyLine() {
    const std::string key = KeyName();
    Note(section_, key);
    return Blanks() + key + Blanks() + "=" + Blanks() + Value() + Blanks();
}

std::string ProfileGenerator::OddLine() {
    if (!OneIn(3)) return Blanks() + KeyName() + Blanks();
    std::string bytes;
    for (std::size_t count = 1 + Below(6); count > 0; --count) {
        const auto byte = static_cast<char>(1 + Below(255));
        if (byte != '\r' && byte != '\n') bytes += byte;
    }
    return CodePage(kPage).Decode(bytes);
}

std::string ProfileGenerator::Content() {
    switch (Below(10)) {
        case 0:
        case 1:
            return Header();
        case 2: {
            const std::string key = KeyName();
            if (OneIn(4)) Note(section_, ";" + key);
            return Blanks() + ";" + key + (OneIn(2) ? "" : "=" + Value());
        }
        case 3:
            return OddLine();
        case 4:
            return Blanks();
        default:
            return KeyLine();
    }
}

std::string ProfileGenerator::File() {
    lineEnds_ = OneIn(2) ? 0 : Below(kLineEnds.size() + 1);
    std::string text;
    if (OneIn(8))
        section_ = "";
    else
        text = Header() + LineEnd();
    for (std::size_t count = Below(kMostLines + 1); count > 0; --count) {
        text += Content() + LineEnd();
        if (OneIn(6)) {
            for (std::size_t blank = 1 + Below(3); blank > 0; --blank) text += LineEnd();
        }
    }
    if (OneIn(4)) text += Content();
    return text;
}

std::string ProfileGenerator::Stored(const std::string& text) {
    if (isUtf16_) return std::string(kUtf16Mark) + ToUtf16Bytes(text);
    if (OneIn(50)) return std::string(kUtf8Mark) + text;
    return CodePage(kPage).Encode(text).value();
}

void ProfileGenerator::Note(const std::string& section, const std::string& key) {
    const std::pair<std::string, std::string> noted{section, key};
    if (std::find(made_.keys.begin(), made_.keys.end(), noted) == made_.keys.end())
        made_.keys.push_back(noted);
}

std::pair<std::string, std::string> ProfileGenerator::SomeKey() {
    if (made_.keys.empty() || OneIn(3)) return {SectionName(), KeyName()};
    const auto& [section, key] = made_.keys[Below(made_.keys.size())];
    return {OtherCase(section), OtherCase(key)};
}

ProfileQuery ProfileGenerator::Query() {
    static const Choices kFallbacks{"none",     "",       "  blanks  ",      "tab\t",
                                    "'quoted'", "\"half", "ä€ long fallback"};
    auto [section, key] = SomeKey();
    if (OneIn(10)) section = " " + section + " ";
    if (OneIn(10)) key = "\t" + key + " ";
    return {section, key, Pick(kFallbacks), OneIn(2) ? 0 : 1 + Below(12)};
}

ProfileWrite ProfileGenerator::Write() {
    if (!made_.writes.empty() && OneIn(8)) return made_.writes.back();
    static const Choices kUnreadable{"two\r\nlines", "two\nlines", "cr\r"};
    auto [section, key] = SomeKey();
    std::string value = Value();
    if (OneIn(10)) value = Blanks() + value + Blanks();
    if (OneIn(15)) section = Blanks() + section + Blanks();
    if (OneIn(15)) key = Blanks() + key + Blanks();
    switch (Below(150)) {
        case 0:
            return {section, key, Pick(kUnreadable)};
        case 1:
            return {section + "]", key, value};
        case 2:
            return {section, key + "=1", value};
        case 3:
            return {section, "[" + key, value};
        case 4:
            return {section, ";" + key, value};
        case 5:
            return {section, key, "1中2"};
        case 6:
            return {section, key + "中", value};
        default:
            return {section, key, value};
    }
}

ProfileCase ProfileGenerator::Make() {
    made_ = {};
    section_.clear();
    isUtf16_ = false;
    if (!OneIn(40)) {
        isUtf16_ = OneIn(8);
        made_.bytes = Stored(OneIn(40) ? "" : File());
    }
    for (std::size_t count = 1 + Below(3); count > 0; --count) made_.reads.push_back(Query());
    for (std::size_t count = 1 + std::min(Below(kMostWrites), Below(kMostWrites)); count > 0; --count)
        made_.writes.push_back(Write());
    for (const ProfileWrite& write : made_.writes) Note(write.section, write.key);
    return made_;
}

}  // namespace ventlock::test
