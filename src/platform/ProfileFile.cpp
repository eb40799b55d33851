#include "platform/ProfileFile.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/Utf.h"
#include "platform/Casing.h"
#include "platform/ProfileLines.h"

namespace ventlock {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string RequireUtf16(std::string_view bytes) {
    std::optional<std::string> text = FromUtf16Bytes(bytes);
    if (!text)
        throw RunTimeError(ErrorNumber::PathFileAccessError, "the UTF-16 text ends within a character");
    return *std::move(text);
}

[[noreturn]] void Refuse(std::string_view text, std::string_view why) {
    std::string shown;
    for (const char c : text) {
        if (c == '\0') {
            shown += "\\0";  // a NUL would end the description
        } else {
            shown += c;
        }
    }
    throw RunTimeError(ErrorNumber::PathFileAccessError, "\"" + shown + "\" " + std::string(why));
}

void RequireWritableKey(std::string_view key) {
    if (key.find('=') != std::string_view::npos) Refuse(key, "is no key: it holds a \"=\"");
    if (!key.empty() && (key.front() == ';' || key.front() == '['))
        Refuse(key, "is no key: it begins with that sign");
}

}  // namespace

/// What a look-up of a key in a section finds.
struct ProfileFile::Place {
    bool hasSection = false;
    bool hasKey = false;
    std::size_t insertAt = 0;    ///< where a missing key of the section goes
    std::size_t equalsEnd = 0;   ///< directly behind "="
    std::size_t valueBegin = 0;  ///< behind "=" and the blanks that follow it
    std::size_t valueEnd = 0;    ///< the line's end
};

ProfileFile::ProfileFile(std::string bytes, CodePage codePage)
    : codePage_(codePage), isUtf16_(bytes.starts_with(kUtf16Mark)) {
    text_ = isUtf16_ ? RequireUtf16(std::string_view(bytes).substr(kUtf16Mark.size())) : std::move(bytes);
}

std::string ProfileFile::Bytes() const {
    std::string room;
    return std::string(Bytes(room));
}

std::string_view ProfileFile::Bytes(std::string& room) const {
    if (!isUtf16_) return text_;
    return room = std::string(kUtf16Mark) + ToUtf16Bytes(text_);
}

std::optional<std::string> ProfileFile::Encode(std::string_view utf8) const {
    if (!isUtf16_) return codePage_.Encode(utf8);
    if (!IsUtf8(utf8)) return std::nullopt;
    return std::string(utf8);
}

std::string ProfileFile::Decode(std::string_view stored) const {
    return isUtf16_ ? std::string(stored) : codePage_.Decode(stored);
}

/// True when a stored name is that of `key`.
bool ProfileFile::IsName(std::string_view stored, std::string_view key) const {
    const std::string_view name = TrimBlanks(stored);
    return IsAscii(name) ? EqualIgnoringCase(name, key) : EqualIgnoringCase(Decode(name), key);
}

/// The name in a header line.
std::string ProfileFile::SectionName(std::string_view line) const {
    if (IsAscii(line)) return std::string(TrimBlanks(HeaderName(line).value_or(std::string_view())));
    // In double-byte pages the second byte of a character may be that of "]", which closes nothing.
    const std::string text = Decode(line);
    return std::string(TrimBlanks(HeaderName(text).value_or(std::string_view())));
}

const std::vector<ProfileFile::Header>& ProfileFile::Headers() const {
    if (headers_) return *headers_;
    headers_.emplace();
    ProfileHeaders lines(text_);
    for (ProfileLine line; lines.Next(line);) {
        headers_->push_back({HashIgnoringCase(SectionName(line.Content(text_))), line.begin});
    }
    std::sort(headers_->begin(), headers_->end());
    return *headers_;
}

/// Where the first header of a section begins; the name is without blanks around it.
std::optional<std::size_t> ProfileFile::FindHeader(std::string_view section) const {
    const Header wanted{HashIgnoringCase(section), 0};
    const std::vector<Header>& headers = Headers();
    auto header = std::lower_bound(headers.begin(), headers.end(), wanted);
    for (; header != headers.end() && header->hash == wanted.hash; ++header) {
        ProfileLines lines(text_, header->begin);
        ProfileLine line;
        lines.Next(line);
        if (EqualIgnoringCase(SectionName(line.Content(text_)), section)) return header->begin;
    }
    return std::nullopt;
}

ProfileFile::Place ProfileFile::Find(std::string_view section, std::string_view key) const {
    Place place;
    const std::optional<std::size_t> header = FindHeader(TrimBlanks(section));
    if (!header) return place;

    place.hasSection = true;
    const std::string_view wantedKey = TrimBlanks(key);
    ProfileLines lines(text_, *header);
    ProfileLine line;
    lines.Next(line);
    place.insertAt = line.next;
    while (lines.Next(line)) {
        const std::string_view content = line.Content(text_);
        const auto name = KeyName(content);
        if (!name && HeaderName(content)) break;
        if (!name) continue;
        place.insertAt = line.next;
        if (IsName(*name, wantedKey)) {
            place.hasKey = true;
            place.equalsEnd = line.begin + name->size() + 1;
            place.valueBegin = line.begin + ValueBegin(content, *name);
            place.valueEnd = line.end;
            break;
        }
    }
    return place;
}

/// Every change of the text goes through here, so that the known headers move along.
void ProfileFile::Splice(std::size_t at, std::size_t length, std::string_view replacement) {
    text_.replace(at, length, replacement);
    isChanged_ = true;
    if (!headers_) return;
    for (Header& header : *headers_) {
        if (header.begin >= at + length) header.begin += replacement.size() - length;
    }
}

std::optional<std::string> ProfileFile::Read(std::string_view section, std::string_view key,
                                             std::size_t bufferSize) const {
    const Place place = Find(section, key);
    if (!place.hasKey) return std::nullopt;
    const std::string_view stored =
        std::string_view(text_).substr(place.valueBegin, place.valueEnd - place.valueBegin);
    return FittingPart(Decode(ProfileValue(stored)), bufferSize);
}

std::string ProfileFile::ReadOr(std::string_view section, std::string_view key, std::string_view fallback,
                                std::size_t bufferSize) const {
    if (auto value = Read(section, key, bufferSize)) return *std::move(value);
    return FittingPart(std::string(fallback.substr(0, fallback.find_last_not_of(' ') + 1)), bufferSize);
}

std::string ProfileFile::FittingPart(const std::string& utf8, std::size_t bufferSize) const {
    if (bufferSize == 0) return utf8;
    std::size_t used = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t begin = at;
        NextCharacter(utf8, at);
        const auto encoded = codePage_.Encode(std::string_view(utf8).substr(begin, at - begin));
        used += encoded ? encoded->size() : 1;
        if (used >= bufferSize) return utf8.substr(0, begin);
    }
    return utf8;
}

std::optional<std::string> ProfileFile::WhyUnwritable(std::string_view value) const {
    if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) {
        return "holds a line end or a NUL";
    }
    if (Encode(value)) return std::nullopt;
    return "holds a character that " +
           (isUtf16_ ? "UTF-16" : "code page " + std::to_string(codePage_.Number())) + " lacks";
}

void ProfileFile::RequireWritable(std::string_view value) const {
    if (const auto why = WhyUnwritable(value)) Refuse(value, *why);
}

void ProfileFile::RequireWritableSection(std::string_view section) const {
    RequireWritable(section);
    if (section.find(']') != std::string_view::npos) Refuse(section, "is no section name: it holds a \"]\"");
    // In a double-byte page a last byte that is no character alone would make one with the bracket behind it.
    if (SectionName("[" + Encode(section).value_or("") + "]") != TrimBlanks(section)) {
        Refuse(section,
               "is no section name: code page " + std::to_string(codePage_.Number()) + " reads it otherwise");
    }
}

void ProfileFile::Write(std::string_view section, std::string_view key, std::string_view value) {
    const std::string_view sectionName = TrimBlanks(section);
    const std::string_view keyName = TrimBlanks(key);
    RequireWritableSection(sectionName);
    RequireWritable(keyName);
    RequireWritableKey(keyName);
    RequireWritable(value);

    AddSection(sectionName);
    const std::string newValue = Encode(value).value_or("");
    const Place place = Find(sectionName, keyName);
    if (place.hasKey) {
        ReplaceValue(place, newValue);
        return;
    }
    const std::string line = Encode(keyName).value_or("") + "=" + newValue;
    InsertLine(place.insertAt, line);
}

void ProfileFile::ReplaceValue(const Place& place, std::string newValue) {
    const std::string_view stored =
        std::string_view(text_).substr(place.equalsEnd, place.valueEnd - place.equalsEnd);
    if (stored == newValue || TrimBlanks(stored) == newValue) return;
    // Blanks behind "=" stay, unless the value brings its own: they would grow with every write.
    const std::size_t begin = BeginsWithBlank(newValue) ? place.equalsEnd : place.valueBegin;
    if (place.valueEnd == text_.size()) newValue += kLineEnd;
    Splice(begin, place.valueEnd - begin, newValue);
}

std::vector<std::string> ProfileFile::Sections() const {
    std::vector<std::string> names;
    ProfileHeaders lines(text_);
    for (ProfileLine line; lines.Next(line);) names.push_back(SectionName(line.Content(text_)));
    return names;
}

void ProfileFile::AddSection(std::string_view section) {
    const std::string_view name = TrimBlanks(section);
    RequireWritableSection(name);
    if (FindHeader(name)) return;
    const Header added{HashIgnoringCase(name),
                       InsertLine(text_.size(), "[" + Encode(name).value_or("") + "]")};
    headers_->insert(std::lower_bound(headers_->begin(), headers_->end(), added), added);
}

/// Puts a line at `at`, the beginning of a line or the end of the text, and returns where it begins.
std::size_t ProfileFile::InsertLine(std::size_t at, std::string_view line) {
    const bool followsOpenLine = at > 0 && text_[at - 1] != '\n' && text_[at - 1] != '\r';
    std::string added(followsOpenLine ? kLineEnd : "");
    const std::size_t begin = at + added.size();
    added += line;
    added += kLineEnd;
    Splice(at, 0, added);
    return begin;
}

void ProfileFile::SeparateSections() {
    constexpr std::size_t kMostLines = std::numeric_limits<std::int16_t>::max();
    std::string tail;           // what is to stand from the first change on
    std::size_t unchanged = 0;  // what stands before it
    std::size_t copied = 0;     // what of the text is in `tail`
    const auto putLineEnd = [&](std::size_t from, std::size_t to) {
        if (tail.empty()) unchanged = copied = from;
        tail.append(text_, copied, from - copied) += kLineEnd;
        copied = to;
    };
    std::size_t count = 0;
    ProfileLine before;  // empty, so that the first line follows a blank one
    ProfileLines lines(text_);
    for (ProfileLine line; lines.Next(line); before = line) {
        if (++count > kMostLines) throw RunTimeError(ErrorNumber::Overflow);
        const bool isHeader = line.Content(text_).starts_with('[');
        if (isHeader && !Trim(before.Content(text_)).empty()) putLineEnd(line.begin, line.begin);
        const bool endsInBoth = line.next - line.end == kLineEnd.size();
        if (!endsInBoth) putLineEnd(line.end, line.next);
    }
    if (tail.empty()) return;
    text_.replace(unchanged, std::string::npos, tail.append(text_, copied));
    isChanged_ = true;
    headers_.reset();
}

std::size_t ProfileFile::LineCount() const {
    std::size_t count = 0;
    ProfileLines lines(text_);
    for (ProfileLine line; lines.Next(line);) ++count;
    return count;
}

}  // namespace ventlock
