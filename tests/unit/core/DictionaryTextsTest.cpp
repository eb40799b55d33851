// The texts that come with the program, in data/, and the keys that its source asks for.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Utf.h"
#include "core/TavDictionary.h"
#include "platform/Casing.h"
#include "platform/Host.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

using Keys = std::set<std::string>;

const std::vector<std::string> kFiles = {VENTLOCK_SOURCE_FOLDER "/data/QorStandard.dct",
                                         VENTLOCK_SOURCE_FOLDER "/data/Ventlock.dct"};

/// Kept for other tools that read the files.
constexpr const char* kUnusedKey = "IDS_MSG_DB_ERR_INVALID";

/// What the program puts "..." behind.
const Keys kKeysBeforeDots = {"IDS_MNU_SELECT_DD",     "IDS_MNU_SELECT_INI", "IDS_MNU_HELP_INDEX",
                              "IDS_MNU_HELP_CONTENTS", "IDS_MNU_HELP_ABOUT", "IDS_MNU_OPEN_ENTRY",
                              "IDS_MNU_SAVE_ENTRY",    "IDS_MNU_PREVIEW"};

const std::map<std::string, Keys> kMenus = {
    {"menu bar", {"IDS_MNU_FILE", "IDS_MNU_EDIT", "IDS_MNU_HELP", "IDS_MNU_TOOLS"}},
    {"File",
     {"IDS_MNU_SELECT_DD", "IDS_MNU_SELECT_INI", "IDS_MNU_WRITE_DB", "IDS_MNU_WRITE_INI", "IDS_MNU_WRITE_DD",
      "IDS_MNU_FILE_EXIT"}},
    {"Edit", {"IDS_MNU_EDIT_CUT", "IDS_MNU_EDIT_COPY", "IDS_MNU_EDIT_PASTE", "IDS_MNU_CLEAR"}},
    {"Help", {"IDS_MNU_HELP_CONTENTS", "IDS_MNU_HELP_INDEX", "IDS_MNU_HELP_ABOUT"}},
    {"Tools", {"IDS_MNU_OPEN_ENTRY", "IDS_MNU_SAVE_ENTRY", "IDS_MNU_PREVIEW", "IDS_MNU_LOG"}},
};

/// One text line of a file.
struct TextLine {
    std::string language;
    std::string key;
    std::string text;
};

/// The text lines of both files, read strictly: a line is empty, a comment, "[XX]" or "IDS_KEY=text" with no
/// blank at either end of the text. Any other line fails the test.
std::vector<TextLine> TextLines() {
    static const std::regex header("\\[([A-Z]{2})\\]");
    static const std::regex entry("(IDS_[A-Z0-9_]+)=([^ \t\r](.*[^ \t\r])?)");
    std::vector<TextLine> lines;
    for (const std::string& file : kFiles) {
        std::istringstream text(ReadBytes(file));
        std::string language;
        std::smatch match;
        for (std::string line; std::getline(text, line);) {
            if (line.empty() || line.starts_with("; ")) continue;
            if (std::regex_match(line, match, header)) {
                language = match[1];
            } else if (std::regex_match(line, match, entry) && !language.empty()) {
                lines.push_back({language, match[1], match[2]});
            } else {
                ADD_FAILURE() << file << ": " << line;
            }
        }
    }
    return lines;
}

Keys KeysIn(std::string_view language) {
    Keys keys;
    for (const TextLine& line : TextLines()) {
        if (line.language == language) keys.insert(line.key);
    }
    return keys;
}

/// All keys that stand in quotes in the program's source.
Keys KeysInSource() {
    static const std::regex literal("\"(IDS_[A-Z0-9_]+)\"");
    Keys keys;
    for (const fs::directory_entry& file : fs::recursive_directory_iterator(VENTLOCK_SOURCE_FOLDER "/src")) {
        const fs::path extension = file.path().extension();
        if (extension != ".cpp" && extension != ".h") continue;
        const std::string source = ReadBytes(file.path().string());
        for (std::sregex_iterator match(source.begin(), source.end(), literal), end; match != end; ++match)
            keys.insert((*match)[1]);
    }
    return keys;
}

Keys Without(const Keys& keys, const Keys& others) {
    Keys rest;
    std::set_difference(keys.begin(), keys.end(), others.begin(), others.end(),
                        std::inserter(rest, rest.end()));
    return rest;
}

/// The letter behind "&" as a capital; "" without one.
std::string AccessKey(const std::string& caption) {
    const std::size_t mark = caption.find('&');
    return mark == std::string::npos ? "" : UpperCase(caption.substr(mark + 1, 1));
}

TEST(Dictionaries, AreUtf8WithoutAMarkThatTheProgramTakesWhole) {
    for (const std::string& file : kFiles) {
        const std::string bytes = ReadBytes(file);
        EXPECT_TRUE(IsUtf8(bytes)) << file;
        EXPECT_FALSE(bytes.starts_with(kUtf8Mark)) << file;
        EXPECT_TRUE(bytes.ends_with('\n')) << file;
    }
    const std::unique_ptr<Host> host = CreateHost("ventlock");
    TavDictionary dictionary(host->Files());
    EXPECT_TRUE(dictionary.Load(kFiles));
    for (const TextLine& line : TextLines())
        EXPECT_EQ(dictionary.Find(line.key, line.language, true), line.text) << line.key;
}

TEST(Dictionaries, HoldEnglishAndGermanTextsOnly) {
    Keys languages;
    for (const TextLine& line : TextLines()) languages.insert(line.language);
    EXPECT_EQ(languages, (Keys{"DE", "EN"}));
}

TEST(Dictionaries, HaveATextForEveryKeyOfTheProgram) {
    const Keys used = KeysInSource();
    EXPECT_TRUE(used.contains("IDS_MSG_DB_ERR_VER_NOREAD")) << "the source was not read";
    EXPECT_EQ(Without(used, KeysIn("EN")), Keys{});
    EXPECT_EQ(Without(used, KeysIn("DE")), Keys{});
}

TEST(Dictionaries, HoldNoTextThatTheProgramDoesNotUse) {
    EXPECT_EQ(Without(KeysIn("EN"), KeysInSource()), Keys{kUnusedKey});
}

TEST(Dictionaries, HoldTheSameKeysInBothLanguages) {
    EXPECT_EQ(KeysIn("EN"), KeysIn("DE"));
}

TEST(Dictionaries, HoldNoKeyTwiceInALanguage) {
    std::set<std::pair<std::string, std::string>> seen;
    for (const TextLine& line : TextLines())
        EXPECT_TRUE(seen.emplace(line.language, line.key).second) << line.language << ' ' << line.key;
}

TEST(Dictionaries, LeaveTheDotsAndColonsToTheProgram) {
    for (const TextLine& line : TextLines()) {
        const char appended = kKeysBeforeDots.contains(line.key) ? '.'
                              : line.key.starts_with("IDS_LBL_") ? ':'
                                                                 : '\0';
        EXPECT_NE(line.text.back(), appended) << line.key;
    }
}

TEST(Dictionaries, MarkAnAccessKeyInMenusOnly) {
    for (const TextLine& line : TextLines()) {
        const auto marks = std::count(line.text.begin(), line.text.end(), '&');
        EXPECT_EQ(marks, line.key.starts_with("IDS_MNU_") ? 1 : 0) << line.text;
    }
}

TEST(Dictionaries, GiveEachItemOfAMenuAnAccessKeyOfItsOwn) {
    const std::vector<TextLine> lines = TextLines();
    for (const auto& [menu, keys] : kMenus) {
        std::map<std::string, Keys> accessKeys;  // by language
        for (const TextLine& line : lines) {
            if (keys.contains(line.key)) accessKeys[line.language].insert(AccessKey(line.text));
        }
        EXPECT_EQ(accessKeys["EN"].size(), keys.size()) << menu;
        EXPECT_EQ(accessKeys["DE"].size(), keys.size()) << menu;
    }
}

TEST(Dictionaries, HaveAPlaceWhereTheProgramPutsANameAndNowhereElse) {
    const Keys withPlace = {"IDS_STA_CONNECTED",        "IDS_STA_NOT_CONNECTED", "IDS_MSG_ENTRY_MORE",
                            "IDS_MSG_ENTRY_NO_REPLACE", "IDS_PRV_EMPTY",         "IDS_STA_OPENED"};
    for (const TextLine& line : TextLines()) {
        EXPECT_EQ(std::count(line.text.begin(), line.text.end(), '?'), withPlace.contains(line.key) ? 1 : 0)
            << line.text;
    }
}

}  // namespace
}  // namespace ventlock::test
