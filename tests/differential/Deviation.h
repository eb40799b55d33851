#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string_view>

namespace ventlock::test {

/// What the host's functions do otherwise than the editor. In the order in which a difference is explained:
/// first how lines are understood, then what a write does, last what becomes of the rest of the file.
enum class Deviation {
    Utf8MarkIsUnderstood,
    LastBracketEndsName,
    OpenHeaderIsNoHeader,
    EmptyNameMeansFileHead,
    CommentIsKey,
    LineWithoutEqualsIsKey,
    OnlyAsciiIgnoresCase,
    ControlSignsAreBlanks,
    DefaultLosesQuotes,
    FittingQuotedTextLosesItsEnd,
    MissingCharacterIsReplaced,
    UnreadableTextIsWritten,
    NewNameKeepsTrailingBlanks,
    ValueLosesLeadingBlanks,
    NewKeyGoesToSectionEnd,
    EmptyHeaderIsDropped,
    HeadersAreWrittenAnew,
    LinesAreWrittenAnew,
    RepeatedEmptyKeyIsDropped,
    LineEndsBecomeCrLf,
    BlankLinesAreDropped,
};

inline constexpr std::size_t kDeviations = 21;

using Deviations = std::bitset<kDeviations>;

/// The name of each, as the document's table has it.
inline constexpr std::array<std::string_view, kDeviations> kDeviationNames{
    "UTF-8 mark is understood",
    "last bracket ends the name",
    "open header is no header",
    "empty name means the file's head",
    "comment is a key",
    "line without equals sign is a key",
    "only ASCII letters ignore case",
    "form feed and Ctrl+Z are blanks",
    "default loses its quotes",
    "quoted text that just fits loses its end",
    "missing character is replaced",
    "unreadable text is written",
    "new name keeps trailing blanks",
    "value loses leading blanks",
    "new key goes to the section's end",
    "empty header is dropped",
    "headers are written anew",
    "lines are written anew",
    "repeated empty key is dropped",
    "line ends become CR LF",
    "blank lines are dropped",
};

}  // namespace ventlock::test
