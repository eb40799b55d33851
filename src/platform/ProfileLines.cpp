#include "platform/ProfileLines.h"

#include <algorithm>

namespace ventlock {
namespace {

constexpr std::string_view kBlanks = " \t\v";
constexpr std::string_view kLineEnds = "\r\n";

/// The first character of a line that is no blank; NUL for a line without one.
char FirstSign(std::string_view line) {
    const std::size_t first = line.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? '\0' : line[first];
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool BeginsWithBlank(std::string_view text) {
    return !text.empty() && kBlanks.find(text.front()) != std::string_view::npos;
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
    return std::min(line.find_first_not_of(kBlanks, keyName.size() + 1), line.size());
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

ProfileLines::ProfileLines(std::string_view text, std::size_t from)
    : text_(text), at_(from), lineFeed_(std::min(text.find('\n', from), text.size())) {}

bool ProfileLines::Next(ProfileLine& line) {
    if (at_ >= text_.size()) return false;
    if (lineFeed_ < at_) lineFeed_ = std::min(text_.find('\n', at_), text_.size());
    line.begin = at_;
    line.end = std::min(text_.substr(0, lineFeed_).find('\r', at_), lineFeed_);
    line.next = std::min(line.end + 1, text_.size());
    const bool endsInBoth = lineFeed_ < text_.size() && line.end + 1 == lineFeed_;
    if (endsInBoth) line.next = lineFeed_ + 1;
    at_ = line.next;
    return true;
}

bool ProfileHeaders::Next(ProfileLine& line) {
    for (std::size_t at = text_.find('[', at_); at != std::string_view::npos; at = text_.find('[', at + 1)) {
        const std::size_t before = text_.substr(0, at).find_last_not_of(kBlanks);
        const bool isFirst =
            before == std::string_view::npos || kLineEnds.find(text_[before]) != std::string_view::npos;
        if (!isFirst) continue;
        lines_.GoTo(before + 1);
        lines_.Next(line);
        at_ = line.next;
        return true;
    }
    at_ = text_.size();
    return false;
}

}  // namespace ventlock
