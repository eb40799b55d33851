// A profile file of any bytes, edited twice: by an edit nothing but its own line changes, it reads back, and
// made again it changes nothing. The input: code page, section, key, value, section, key, value, bytes of the
// file.

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Utf.h"
#include "fuzz/Fields.h"
#include "fuzz/PlainProfile.h"
#include "fuzz/Require.h"
#include "platform/Casing.h"
#include "platform/ProfileFile.h"
#include "platform/ProfileLines.h"

namespace ventlock::test {
namespace {

constexpr std::size_t kMostKeys = 40;  // that are looked up again after an edit

struct Edit {
    std::string section;
    std::string key;
    std::string value;
};

CodePage PageOf(const std::string& letter) {
    if (letter == "u") return CodePage(65001);
    if (letter == "j") return CodePage(932);
    if (letter == "g") return CodePage(54936);
    return CodePage(1252);
}

/// What the file's lines are told apart in: its bytes, or its text when it is UTF-16.
std::string Plain(std::string_view bytes) {
    if (!bytes.starts_with(kUtf16Mark)) return std::string(bytes);
    return FromUtf16Bytes(bytes.substr(kUtf16Mark.size())).value();
}

std::string Stored(std::string_view text, std::string_view bytes, CodePage page) {
    return bytes.starts_with(kUtf16Mark) ? std::string(text) : page.Encode(text).value();
}

void RequireEveryByteInALine(std::string_view text) {
    std::string joined;
    std::size_t count = 0;
    const std::vector<Line> expected = LinesOf(text);
    ProfileLines lines(text);
    for (ProfileLine line; lines.Next(line); ++count) {
        Require(count < expected.size(), "the walk ends with the text", text);
        RequireSame(line.Content(text), expected[count].content, "a line ends at CR, LF or CR LF");
        joined += text.substr(line.begin, line.next - line.begin);
    }
    RequireSame(joined, text, "every byte belongs to a line");
}

/// The text with the value of line `place` replaced.
std::string Changed(const std::vector<Line>& lines, std::size_t place, const std::string& value) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string content(lines[i].content);
        if (i != place) {
            text.append(content).append(lines[i].end);
            continue;
        }
        const std::size_t equals = content.find('=') + 1;
        Require(equals != 0, "only a line with \"=\" is changed", content);
        const std::size_t begin = BeginsWithBlank(value)
                                      ? equals
                                      : std::min(content.find_first_not_of(" \t\v", equals), content.size());
        text += content.substr(0, begin) + value;
        text += lines[i].end.empty() ? "\r\n" : lines[i].end;
    }
    return text;
}

/// The text with `added` put before line `place`, or to the end.
std::string WithAdded(const std::vector<Line>& lines, std::size_t place, const std::string& added) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == place) text += added;
        text.append(lines[i].content).append(lines[i].end);
    }
    if (place < lines.size()) return text;
    if (!lines.empty() && lines.back().end.empty()) text += "\r\n";
    return text + added;
}

/// `after` is `before` with one value changed or with the lines of the edit put in.
void RequireOnlyTheEdit(const std::string& before, const std::string& after, const Edit& edit) {
    if (before == after) return;
    const std::vector<Line> old = LinesOf(before);
    const std::vector<Line> now = LinesOf(after);
    std::size_t place = 0;
    while (place < old.size() && place < now.size() && old[place] == now[place]) ++place;
    const std::string key = edit.key + "=" + edit.value + "\r\n";
    std::string expected;
    if (now.size() == old.size()) {
        expected = Changed(old, place, edit.value);
    } else if (now.size() == old.size() + 1) {
        expected = WithAdded(old, place, key);
        if (expected != after) expected = WithAdded(old, old.size(), key);
    } else {
        expected = WithAdded(old, old.size(), "[" + edit.section + "]\r\n" + key);
    }
    RequireSame(after, expected, "an edit changes one value or adds its own lines, and no other byte");
}

/// Sections and keys of a file, as far as they stand in it.
std::vector<std::pair<std::string, std::string>> KeysOf(const ProfileFile& file) {
    std::vector<std::pair<std::string, std::string>> keys;
    std::optional<std::string> section;
    const std::string text = file.Text();
    for (const Line& line : LinesOf(text)) {
        if (const auto header = HeaderName(line.content)) section = *header;
        const auto key = KeyName(line.content);
        if (section && key && keys.size() < kMostKeys) keys.emplace_back(*section, *key);
    }
    return keys;
}

void RequireOtherKeysKept(const ProfileFile& before, const ProfileFile& after, const Edit& edit) {
    for (const auto& [section, key] : KeysOf(before)) {
        const bool isEdited = EqualIgnoringCase(TrimBlanks(section), TrimBlanks(edit.section)) &&
                              EqualIgnoringCase(TrimBlanks(key), TrimBlanks(edit.key));
        if (isEdited) continue;
        RequireSame(after.Read(section, key).value_or("\x1F absent"),
                    before.Read(section, key).value_or("\x1F absent"), "an edit changes no other key");
    }
}

/// False when the file refuses the edit, for the one reason there is.
bool Write(ProfileFile& file, const Edit& edit) {
    const std::string before = file.Bytes();
    try {
        file.Write(edit.section, edit.key, edit.value);
        return true;
    } catch (const RunTimeError& error) {
        Require(error.Number() == ErrorNumber::PathFileAccessError, "a refusal is error 75", error.what());
        RequireSame(file.Bytes(), before, "a refused edit changes nothing");
        return false;
    }
}

void RequireCutWithinCharacters(const ProfileFile& file, const Edit& edit, const std::string& whole) {
    for (const std::size_t size : {1U, 2U, 4U, 7U, 255U}) {
        const std::string cut = file.Read(edit.section, edit.key, size).value();
        Require(whole.starts_with(cut), "a cut value is the beginning of the whole one", cut);
        Require(cut.size() == whole.size() || cut.size() < size * 4, "a cut value fits", cut);
    }
}

void TryEdit(std::string& bytes, ProfileFile& together, const Edit& edit, CodePage page) {
    ProfileFile file(bytes, page);
    const ProfileFile before(bytes, page);
    if (!Write(file, edit)) {
        Require(!Write(together, edit), "a file is edited in several steps as in one", edit.section);
        return;
    }
    const std::string after = file.Bytes();
    RequireOnlyTheEdit(Plain(bytes), Plain(after),
                       {Stored(TrimBlanks(edit.section), bytes, page),
                        Stored(TrimBlanks(edit.key), bytes, page), Stored(edit.value, bytes, page)});
    ProfileFile again(after, page);
    RequireOtherKeysKept(before, again, edit);
    const std::optional<std::string> read = again.Read(edit.section, edit.key);
    Require(read.has_value(), "what is written is found", after);
    RequireSame(*read, AsRead(edit.value), "what is written reads back");
    RequireCutWithinCharacters(again, edit, *read);
    Require(Write(again, edit), "an edit can be made twice", after);
    RequireSame(again.Bytes(), after, "an edit made twice changes nothing");

    Require(Write(together, edit), "a file is edited in several steps as in one", after);
    RequireSame(together.Bytes(), after, "a file is edited in several steps as in one");
    bytes = after;
}

void TryTidyPass(const std::string& bytes, CodePage page) {
    std::string expected;
    bool followsBlank = true;  // the first line gets none
    const std::string plain = Plain(bytes);
    for (const Line& line : LinesOf(plain)) {
        if (line.content.starts_with('[') && !followsBlank) expected += "\r\n";
        expected += std::string(line.content) + "\r\n";
        followsBlank = line.content.find_first_not_of(' ') == std::string_view::npos;
    }
    ProfileFile file(bytes, page);
    file.SeparateSections();
    RequireSame(Plain(file.Bytes()), expected, "the tidy pass adds empty lines before headers, nothing else");
    ProfileFile again(file.Bytes(), page);
    again.SeparateSections();
    RequireSame(again.Bytes(), file.Bytes(), "the tidy pass is idempotent");
}

void TryFile(Fields& fields) {
    const CodePage page = PageOf(fields.Next());
    std::array<Edit, 2> edits;
    for (Edit& edit : edits) edit = {fields.Next(), fields.Next(), fields.Next()};
    std::string bytes(fields.Rest());
    RequireEveryByteInALine(bytes);

    std::optional<ProfileFile> file;
    try {
        file.emplace(bytes, page);
    } catch (const RunTimeError& error) {
        Require(error.Number() == ErrorNumber::PathFileAccessError, "a refusal is error 75", error.what());
        Require(bytes.starts_with(kUtf16Mark) && bytes.size() % 2 != 0, "only half a unit is refused", bytes);
        return;
    }
    RequireSame(file->Bytes(), bytes, "a file that is not edited keeps its bytes");
    for (const Edit& edit : edits) TryEdit(bytes, *file, edit, page);
    TryTidyPass(bytes, page);
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::Fields fields(data, size);
    ventlock::test::TryFile(fields);
    return 0;
}
