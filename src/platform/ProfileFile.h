#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"

namespace ventlock {

/// The text of a profile (INI) file, edited in memory by the platform's rules:
/// - look-up of sections and keys ignores case and the blanks around them; the first of equal ones counts;
///   keys before the first header and lines that begin with ";" are no keys;
/// - an existing key keeps its place and spelling, only the value changes; every other byte stays as it is;
/// - a missing key goes directly behind the last key line of its section, or behind the header; a missing
///   section to the end of the file; new lines are `key=value` and CR LF; a last line without end gets one
///   before a line is put behind it and when it is changed itself.
/// A line ends at CR, LF or CR LF. A file with a UTF-16LE mark is UTF-16LE and stays so, any other file is
/// bytes in its code page. Texts given and returned are UTF-8.
class ProfileFile {
 public:
    /// @throws RunTimeError 75 when a UTF-16LE file ends within a character.
    ProfileFile(std::string bytes, CodePage codePage);

    /// The value of a key: blanks around it trimmed, one matching pair of quotes removed, then cut to the
    /// characters that fit into `bufferSize` - 1 bytes of the code page (0: not cut). Nothing when the key is
    /// absent.
    [[nodiscard]] std::optional<std::string> Read(std::string_view section, std::string_view key,
                                                  std::size_t bufferSize = 0) const;

    /// As Read, but with `fallback` for an absent key: without spaces at its end, cut alike.
    [[nodiscard]] std::string ReadOr(std::string_view section, std::string_view key,
                                     std::string_view fallback, std::size_t bufferSize = 0) const;

    /// Sets a key. @throws RunTimeError 75 as RequireWritable, nothing changed then.
    void Write(std::string_view section, std::string_view key, std::string_view value);

    /// Names of all sections in the file's order, equal ones as often as they occur.
    [[nodiscard]] std::vector<std::string> Sections() const;

    /// Puts an empty section to the end of the file unless it has one of that name.
    /// @throws RunTimeError 75 as RequireWritableSection, nothing changed then.
    void AddSection(std::string_view section);

    /// Why a value cannot stand in this file, as a sentence goes on behind it: it "holds a character that
    /// code page 1252 lacks", or a CR, LF or NUL. Nothing when it can.
    [[nodiscard]] std::optional<std::string> WhyUnwritable(std::string_view value) const;

    /// Refuses what cannot stand in this file: an unwritable value, in a section name also a "]" and an end
    /// that its header would read otherwise. @throws RunTimeError 75 with the text in the detail.
    void RequireWritable(std::string_view value) const;
    void RequireWritableSection(std::string_view section) const;

    /// The tidy pass: an empty line before every line from the second on that begins with "[" and does not
    /// follow a line of blanks; every line then ends in CR LF. Nothing is changed when it throws.
    /// @throws RunTimeError 6 for more than 32767 lines.
    void SeparateSections();

    /// True when the text has been changed since it was given.
    [[nodiscard]] bool IsChanged() const noexcept { return isChanged_; }

    /// Lines of the file, the last one counted without a line end too.
    [[nodiscard]] std::size_t LineCount() const;

    /// The whole text, for showing it.
    [[nodiscard]] std::string Text() const { return Decode(text_); }

    /// The file as it is to be stored, mark included.
    [[nodiscard]] std::string Bytes() const;

    /// The same, copied only where the text is not the file's own bytes: those of a UTF-16LE file are put
    /// into `room`. Valid until one of both changes.
    [[nodiscard]] std::string_view Bytes(std::string& room) const;

 private:
    struct Place;
    struct Header {
        std::size_t hash = 0;   ///< of the section's name
        std::size_t begin = 0;  ///< of its line
        bool operator<(const Header& other) const {
            return hash != other.hash ? hash < other.hash : begin < other.begin;
        }
    };
    [[nodiscard]] std::optional<std::string> Encode(std::string_view utf8) const;
    [[nodiscard]] std::string Decode(std::string_view stored) const;
    [[nodiscard]] std::string FittingPart(const std::string& utf8, std::size_t bufferSize) const;
    [[nodiscard]] bool IsName(std::string_view stored, std::string_view key) const;
    [[nodiscard]] std::string SectionName(std::string_view line) const;
    [[nodiscard]] Place Find(std::string_view section, std::string_view key) const;
    [[nodiscard]] const std::vector<Header>& Headers() const;
    [[nodiscard]] std::optional<std::size_t> FindHeader(std::string_view section) const;
    void ReplaceValue(const Place& place, std::string newValue);
    std::size_t InsertLine(std::size_t at, std::string_view line);
    void Splice(std::size_t at, std::size_t length, std::string_view replacement);

    CodePage codePage_;
    bool isUtf16_ = false;
    std::string text_;  ///< the file's own bytes; UTF-8 for a UTF-16LE file, mark left out

    bool isChanged_ = false;

    /// All headers in their order, by which equal ones stand in the file's; made by the first look-up, kept
    /// in step by Splice.
    mutable std::optional<std::vector<Header>> headers_;
};

}  // namespace ventlock
