// Two dictionary files of any bytes. The input: key, language, first file, second file.

#include <map>
#include <optional>
#include <string>

#include "base/Utf.h"
#include "core/TavDictionary.h"
#include "fuzz/Fields.h"
#include "fuzz/MemoryFiles.h"
#include "fuzz/PlainProfile.h"
#include "fuzz/Require.h"
#include "platform/Casing.h"
#include "platform/ProfileLines.h"

namespace ventlock::test {
namespace {

using Texts = std::map<std::pair<std::string, std::string>, std::string>;

/// The texts of a file by key and language, both in capitals, the last of equal ones; none of a file that is
/// no UTF-8.
/// @return false when a line is none of those that a file may hold.
bool TakeTexts(std::string_view bytes, Texts& texts) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (!IsUtf8(bytes)) return false;
    bool isWhole = true;
    std::string language;
    for (const Line& line : LinesOf(bytes)) {
        const std::string_view text = TrimBlanks(line.content);
        if (text.empty() || text.front() == ';') continue;
        const std::size_t equals = line.content.find('=');
        if (text.front() == '[') {
            language = UpperCase(TrimBlanks(text.substr(1, text.find(']') - 1)));
        } else if (equals == std::string_view::npos || language.empty()) {
            isWhole = false;
        } else {
            const std::string key = UpperCase(TrimBlanks(line.content.substr(0, equals)));
            texts[{key, language}] = line.content.substr(equals + 1);
        }
    }
    return isWhole;
}

std::string Expected(const Texts& texts, const std::string& key, const std::string& language) {
    for (const std::string& wanted : {UpperCase(language), std::string("EN")}) {
        const auto found = texts.find({UpperCase(key), wanted});
        if (found != texts.end()) return found->second;
    }
    const auto any = texts.lower_bound({UpperCase(key), ""});
    return any != texts.end() && any->first.first == UpperCase(key) ? any->second : key;
}

void TryFiles(Fields& fields) {
    const std::string key = fields.Next();
    const std::string language = fields.Next();
    MemoryFiles files;
    files.Replace("first", fields.Next());
    files.Replace("second", fields.Rest());

    Texts texts;
    const bool isFirstWhole = TakeTexts(files.ReadAll("first"), texts);
    const bool isSecondWhole = TakeTexts(files.ReadAll("second"), texts);
    TavDictionary dictionary(files);
    Require(dictionary.Load({"first", "second"}) == (isFirstWhole && isSecondWhole),
            "files are loaded when every line of them is understood", files.ReadAll("second"));

    RequireSame(dictionary.Find(key, language, true), Expected(texts, key, language),
                "a text is that of its language, of EN, of any language, or its key");
    for (const auto& [name, text] : texts) {
        RequireSame(dictionary.Find(name.first, name.second, true), text, "the last of equal texts counts");
        RequireSame(dictionary.Find(LowerCase(name.first), LowerCase(name.second), false),
                    Expected(texts, LowerCase(name.first), LowerCase(name.second)),
                    "keys and languages ignore case");
    }
    TavDictionary none(files);
    Require(!none.Load({"missing"}), "a missing file is not loaded");
    RequireSame(none.Find(key, language, true), key, "without texts a key stands for itself");
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::Fields fields(data, size);
    ventlock::test::TryFiles(fields);
    return 0;
}
