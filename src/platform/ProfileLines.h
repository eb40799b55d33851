#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace ventlock {

/// One line of a text by its positions: content from `begin` to `end`, the line end up to `next`.
struct ProfileLine {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t next = 0;

    [[nodiscard]] std::string_view Content(std::string_view text) const {
        return text.substr(begin, end - begin);
    }
};

/// Without blanks, tabs and vertical tabs at both ends: what profile files take for blanks.
std::string_view TrimBlanks(std::string_view text);

/// True when the text begins with a character that TrimBlanks takes away.
bool BeginsWithBlank(std::string_view text);

/// The name between the brackets of a header line, as it stands. A header without "]" is closed by its line
/// end; what stands behind the first "]" means nothing. Nothing for any other line.
std::optional<std::string_view> HeaderName(std::string_view line);

/// What stands before "=" in a key line; nothing for a header, a comment and a line without "=".
std::optional<std::string_view> KeyName(std::string_view line);

/// Where the value begins in a key line: behind "=" and the blanks that follow it.
std::size_t ValueBegin(std::string_view line, std::string_view keyName);

/// A stored value as it is read: blanks around it trimmed, one matching pair of quotes removed.
std::string_view ProfileValue(std::string_view stored);

/// True for an empty line and a comment.
bool IsBlankOrComment(std::string_view line);

/// Walks the lines of a text, each ended by CR, LF or CR LF, the last one perhaps by nothing. An empty text
/// has none. The text must outlive the walk and stay unchanged.
class ProfileLines {
 public:
    /// The walk begins at `from`, which is the beginning of a line.
    explicit ProfileLines(std::string_view text, std::size_t from = 0) : text_(text), at_(from) {}

    /// Takes the next line; False at the end of the text.
    bool Next(ProfileLine& line);

    /// Goes on at `at`, which is the beginning of a line that has not been taken yet.
    void GoTo(std::size_t at) { at_ = at; }

 private:
    std::string_view text_;
    std::size_t at_;
};

/// Walks the header lines of a text, as ProfileLines does all of them; what stands between two of them costs
/// next to nothing.
class ProfileHeaders {
 public:
    explicit ProfileHeaders(std::string_view text) : text_(text), lines_(text) {}

    /// Takes the next header line; False at the end of the text.
    bool Next(ProfileLine& line);

 private:
    std::string_view text_;
    ProfileLines lines_;
    std::size_t at_ = 0;
};

}  // namespace ventlock
