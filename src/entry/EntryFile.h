#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ventlock {

enum class Severity { Error, Warning };

/// Something found in an entry file. Ids are stable words, see docs/entry-files.md.
struct Finding {
    int line = 0;  ///< counts from 1; 0 for the file as a whole
    Severity severity = Severity::Error;
    std::string id;
    std::string text;

    bool operator==(const Finding&) const = default;
};

/// `path:line: error|warning [id] text`, without a line for the file as a whole.
std::string FindingLine(const std::string& path, const Finding& finding);

/// One key of an entry file: its name and what an entry without it has.
struct EntryKey {
    std::string_view name;
    std::string_view defaultText;
};

/// All keys an entry may have. They are named as the settings store names them; "Protocol", "MajorCategory"
/// and "MinorCategory" name by text what "ProtID", "DevCatID" and "DevMinCatID" name by id.
std::span<const EntryKey> EntryKeys();

/// One section of an entry file: a device entry.
struct FileEntry {
    struct Value {
        std::string text;
        int line = 0;
    };

    std::string name;                                  ///< of the section; it means nothing but to the reader
    int line = 0;                                      ///< of the header
    std::map<std::string, Value, std::less<>> values;  ///< by the key's own spelling

    [[nodiscard]] bool Has(std::string_view key) const { return values.contains(key); }

    /// The key's text, its default when absent.
    [[nodiscard]] std::string Text(std::string_view key) const;

    /// The key's line, the header's when absent.
    [[nodiscard]] int Line(std::string_view key) const;
};

struct EntryFile {
    std::vector<FileEntry> entries;
    std::vector<Finding> findings;  ///< in the order of lines
};

/// Reads an entry file: a profile file in UTF-8, with or without a mark, or in UTF-16LE with one; one section
/// an entry. Everything that is wrong with its form is found at once; keys and sections ignore case.
EntryFile ParseEntryFile(std::string_view bytes);

/// The entry as the text of an entry file, which ParseEntryFile reads back with the same texts: its keys in
/// the order of EntryKeys, LF behind each line.
/// @throws RunTimeError 75 for a text that is no UTF-8 or cannot stand in one line, or in a header.
std::string EntryText(const FileEntry& entry);

/// True for a text that holds a key of an entry, whatever is wrong with the rest: the beginning of a file
/// does.
bool HoldsEntryKey(std::string_view bytes);

/// False for a profile file that another program has: it holds keys, in any encoding, and none of them is one
/// of an entry. For files that nobody has named; True for whatever may be an entry file with errors.
bool MayBeEntryFile(std::string_view bytes);

}  // namespace ventlock
