#include "platform/ProfileLines.h"

#include <algorithm>
#include <experimental/simd>

namespace ventlock {
namespace {

constexpr std::string_view kBothEnds = "\r\n";

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\v';
}

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

/// The first character of a line that is no blank; NUL for a line without one.
char FirstSign(std::string_view line) {
    const auto* const first = std::find_if_not(line.begin(), line.end(), IsBlank);
    return first == line.end() ? '\0' : *first;
}

/// Where the next CR or LF is, or the text's size. Lines are short: one look at a block of bytes is less work
/// than two calls of the library, one for each sign.
std::size_t FindLineEnd(std::string_view text, std::size_t at) {
    using Block = std::experimental::native_simd<char>;
    for (; at + Block::size() <= text.size(); at += Block::size()) {
        const Block block(text.data() + at, std::experimental::element_aligned);
        const auto ends = block == '\r' || block == '\n';
        if (any_of(ends)) return at + static_cast<std::size_t>(find_first_set(ends));
    }
    while (at < text.size() && !IsLineEnd(text[at])) ++at;
    return at;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

bool BeginsWithBlank(std::string_view text) {
    return !text.empty() && IsBlank(text.front());
}

std::optional<std::string_view> HeaderName(std::string_view line) {
    if (FirstSign(line) != '[') return std::nullopt;
    const std::string_view inside = line.substr(line.find('[') + 1);
    return inside.substr(0, inside.find(']'));
}

std::optional<std::string_view> KeyName(std::string_view line) {
    const char first = FirstSign(line);
    const std::size_t equals = line.find('=');
    if (first == ';' || first == '[' || equals == std::string_view::npos) return std::nullopt;
    return line.substr(0, equals);
}

std::size_t ValueBegin(std::string_view line, std::string_view keyName) {
    const std::string_view value = line.substr(keyName.size() + 1);
    const auto* const first = std::find_if_not(value.begin(), value.end(), IsBlank);
    return line.size() - static_cast<std::size_t>(value.end() - first);
}

std::string_view ProfileValue(std::string_view stored) {
    const std::string_view text = TrimBlanks(stored);
    const bool isQuoted =
        text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

bool IsBlankOrComment(std::string_view line) {
    return FirstSign(line) == ';' || TrimBlanks(line).empty();
}

bool ProfileLines::Next(ProfileLine& line) {
    if (at_ >= text_.size()) return false;
    line.begin = at_;
    line.end = FindLineEnd(text_, at_);
    const bool endsInBoth = text_.substr(line.end).starts_with(kBothEnds);
    line.next = std::min(line.end + (endsInBoth ? kBothEnds.size() : 1), text_.size());
    at_ = line.next;
    return true;
}

bool ProfileHeaders::Next(ProfileLine& line) {
    for (std::size_t at = text_.find('[', at_); at != std::string_view::npos; at = text_.find('[', at + 1)) {
        std::size_t begin = at;
        while (begin > 0 && IsBlank(text_[begin - 1])) --begin;
        if (begin > 0 && !IsLineEnd(text_[begin - 1])) continue;
        lines_.GoTo(begin);
        lines_.Next(line);
        at_ = line.next;
        return true;
    }
    at_ = text_.size();
    return false;
}

}  // namespace ventlock
