#include "entry/EntryFile.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/NearWord.h"
#include "base/RunTimeError.h"
#include "base/Utf.h"
#include "platform/Casing.h"
#include "platform/ProfileLines.h"

namespace ventlock {
namespace {

// Defaults are those that the settings store gives on a clean machine.
constexpr auto kKeys = std::to_array<EntryKey>({
    {"ManID", ""},         {"ManName", ""},       {"ManDesc", ""},        {"ProtID", "0"},
    {"DevID", ""},         {"DevName", ""},       {"DevDesc", ""},        {"DevRev", "01"},
    {"DDRev", "01"},       {"ProtRev", "05"},     {"DevRevName", ""},     {"DevRevDesc", ""},
    {"DevCatID", "0"},     {"DevMinCatID", "0"},  {"DLLName", ""},        {"TemplateName", ""},
    {"DevHelp", ""},       {"BlkHelp", ""},       {"TAVVersions", "5.0"}, {"Protocol", ""},
    {"MajorCategory", ""}, {"MinorCategory", ""},
});

const EntryKey* FindKey(std::string_view name) {
    const auto found = std::find_if(kKeys.begin(), kKeys.end(),
                                    [&](const EntryKey& key) { return EqualIgnoringCase(key.name, name); });
    return found == kKeys.end() ? nullptr : &*found;
}

/// What a name that is no key may have been meant to be.
std::string KeyAdvice(std::string_view name) {
    std::vector<std::string> known;
    std::string names;
    for (const EntryKey& key : kKeys) {
        known.push_back(UpperCase(key.name));
        names.append(names.empty() ? "" : ", ").append(key.name);
    }
    const auto near = NearestWord(UpperCase(name), known);
    return near ? "did you mean " + std::string(kKeys.at(*near).name) + "?" : "the keys are " + names;
}

/// The text of the file in UTF-8, or nothing when it is no text. `badLine` is then where it ceases to be.
std::optional<std::string> TextOf(std::string_view bytes, int& badLine) {
    std::optional<std::string> text;
    badLine = 1;
    if (bytes.starts_with(kUtf16Mark)) {
        text = FromUtf16Bytes(bytes.substr(kUtf16Mark.size()));
    } else {
        text = bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0);
    }
    if (!text) return std::nullopt;
    ProfileLines lines(*text);
    for (ProfileLine line; lines.Next(line); ++badLine) {
        const std::string_view content = line.Content(*text);
        if (!IsUtf8(content) || content.find('\0') != std::string_view::npos) return std::nullopt;
    }
    return text;
}

class Parser {
 public:
    EntryFile Parse(std::string_view text) {
        ProfileLines lines(text);
        for (ProfileLine line; lines.Next(line);) {
            ++line_;
            const std::string_view content = line.Content(text);
            if (IsBlankOrComment(content)) continue;
            if (const auto header = HeaderName(content)) {
                BeginEntry(std::string(TrimBlanks(*header)));
            } else if (const auto key = KeyName(content)) {
                TakeKey(std::string(TrimBlanks(*key)),
                        std::string(ProfileValue(content.substr(key->size() + 1))));
            } else {
                Error("syntax", "the line is no section, no key=value and no comment");
            }
        }
        if (file_.entries.empty() && file_.findings.empty()) {
            file_.findings.push_back({0, Severity::Error, "no-section",
                                      "the file holds no entry; begin each one with a line [name]"});
        }
        return std::move(file_);
    }

 private:
    void BeginEntry(const std::string& name) {
        if (!sections_.insert(UpperCase(name)).second) {
            Error("duplicate-section",
                  "section [" + name + "] stands twice; give each entry a name of its own");
        }
        file_.entries.push_back({name, line_, {}});
    }

    void TakeKey(const std::string& name, const std::string& text) {
        if (file_.entries.empty()) {
            Error("no-section",
                  "\"" + name + "\" stands before the first section; begin the entry with a line [name]");
            return;
        }
        const EntryKey* key = FindKey(name);
        if (key == nullptr) {
            Error("unknown-key", "\"" + name + "\" is no key of an entry; " + KeyAdvice(name));
            return;
        }
        const bool isNew = file_.entries.back()
                               .values.try_emplace(std::string(key->name), FileEntry::Value{text, line_})
                               .second;
        if (!isNew) Error("duplicate-key", "\"" + name + "\" stands twice in this section; keep one");
    }

    void Error(std::string id, std::string text) {
        file_.findings.push_back({line_, Severity::Error, std::move(id), std::move(text)});
    }

    EntryFile file_;
    std::set<std::string> sections_;
    int line_ = 0;
};

/// The text in UTF-8 if it has a mark; without one, the bytes as they are.
std::string WithoutMark(std::string_view bytes) {
    if (!bytes.starts_with(kUtf16Mark)) {
        return std::string(bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0));
    }
    return FromUtf16Bytes(bytes.substr(kUtf16Mark.size())).value_or(std::string());
}

/// Keys of a profile file's bytes, known ones and others.
struct KeyCounts {
    std::size_t known = 0;
    std::size_t others = 0;
};

KeyCounts CountKeys(std::string_view text) {
    KeyCounts counts;
    ProfileLines lines(text);
    for (ProfileLine line; lines.Next(line);) {
        const auto key = KeyName(line.Content(text));
        if (key) ++(FindKey(TrimBlanks(*key)) != nullptr ? counts.known : counts.others);
    }
    return counts;
}

}  // namespace

std::string FindingLine(const std::string& path, const Finding& finding) {
    const std::string line = finding.line == 0 ? "" : ":" + std::to_string(finding.line);
    return path + line + ": " + (finding.severity == Severity::Error ? "error" : "warning") + " [" +
           finding.id + "] " + finding.text;
}

std::span<const EntryKey> EntryKeys() {
    return kKeys;
}

std::string FileEntry::Text(std::string_view key) const {
    const auto found = values.find(key);
    if (found != values.end()) return found->second.text;
    const auto known = std::ranges::find(kKeys, key, &EntryKey::name);
    return known == kKeys.end() ? std::string() : std::string(known->defaultText);
}

int FileEntry::Line(std::string_view key) const {
    const auto found = values.find(key);
    return found == values.end() ? line : found->second.line;
}

EntryFile ParseEntryFile(std::string_view bytes) {
    int badLine = 0;
    const std::optional<std::string> text = TextOf(bytes, badLine);
    if (text) return Parser().Parse(*text);
    EntryFile file;
    file.findings.push_back(
        {badLine, Severity::Error, "not-text",
         "the file is no text in UTF-8 from here on; save it as UTF-8, or as UTF-16 with a mark"});
    return file;
}

std::string EntryText(const FileEntry& entry) {
    using namespace std::string_view_literals;
    const auto refuse = [](const std::string& text) -> std::string {
        throw RunTimeError(ErrorNumber::PathFileAccessError,
                           "\"" + text + "\" cannot stand in an entry file");
    };
    const auto line = [&](const std::string& text) {
        const bool isLine = IsUtf8(text) && text.find_first_of("\r\n\0"sv) == std::string::npos;
        return isLine ? text + "\n" : refuse(text);
    };
    const std::string header = "[" + entry.name + "]";
    if (TrimBlanks(HeaderName(header).value_or("")) != entry.name) refuse(entry.name);
    std::string text = line(header);
    for (const EntryKey& key : kKeys) {
        const auto found = entry.values.find(key.name);
        if (found == entry.values.end()) continue;
        const std::string& value = found->second.text;
        // Blanks and quotes around it would be taken away.
        const std::string quotes = ProfileValue(value) == value ? "" : "\"";
        text += line(std::string(key.name).append("=").append(quotes).append(value).append(quotes));
    }
    return text;
}

bool HoldsEntryKey(std::string_view bytes) {
    return CountKeys(WithoutMark(bytes)).known != 0;
}

bool MayBeEntryFile(std::string_view bytes) {
    const std::string text = WithoutMark(bytes);
    if (text.find('\0') != std::string::npos) return true;  // UTF-16 without its mark, for one
    const KeyCounts counts = CountKeys(text);
    return counts.known != 0 || counts.others == 0;
}

}  // namespace ventlock
