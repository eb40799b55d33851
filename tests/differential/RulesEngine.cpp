#include "differential/RulesEngine.h"

#include <windows.h>

#include <algorithm>

#include "base/Text.h"
#include "base/Utf.h"
#include "platform/Casing.h"
#include "platform/CodePage.h"
#include "platform/win32/WideText.h"

namespace ventlock::test {
namespace {

std::string WithoutOuterQuotes(const std::string& text) {
    if (text.size() < 2 || text.front() != text.back()) return text;
    return text.front() == '"' || text.front() == '\'' ? text.substr(1, text.size() - 2) : text;
}

/// Of each character its bytes in the page, "?" for what the page lacks.
std::string Replaced(std::string_view utf8) {
    const CodePage page(kPage);
    std::string text;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t begin = at;
        NextCharacter(utf8, at);
        const std::string_view character = utf8.substr(begin, at - begin);
        text += page.Encode(character) ? character : "?";
    }
    return text;
}

/// UTF-8 with its faulty bytes replaced as the host replaces them.
std::string ByTheHost(std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring units(bytes.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, units.data(), size);
    return FromWideText(std::wstring_view(units).substr(0, static_cast<std::size_t>(length)));
}

std::string WithoutSpacesAtEnd(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string FirstCharacters(const std::string& utf8, std::size_t count) {
    std::size_t at = 0;
    for (; count > 0 && at < utf8.size(); --count) NextCharacter(utf8, at);
    return utf8.substr(0, at);
}

}  // namespace

std::string_view RulesEngine::Blanks() const {
    return Has(Deviation::ControlSignsAreBlanks) ? " \t\v\f\x1A" : " \t\v";
}

std::string RulesEngine::Trimmed(std::string_view text) const {
    const std::size_t first = text.find_first_not_of(Blanks());
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(Blanks()) - first + 1));
}

std::string RulesEngine::Folded(std::string_view name) const {
    std::string folded = Trimmed(name);
    if (!Has(Deviation::OnlyAsciiIgnoresCase)) return UpperCase(folded);
    for (char& c : folded) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return folded;
}

RulesEngine::Line RulesEngine::LineOf(std::string content, std::string end) const {
    Line line{std::move(content), std::move(end)};
    const std::string text = Trimmed(line.content);
    if (text.empty()) return line;

    const std::string inside = text.substr(1);
    const std::size_t bracket = Has(Deviation::LastBracketEndsName) ? inside.rfind(']') : inside.find(']');
    const bool isOpen = bracket == std::string::npos;
    if (text.front() == '[' && !(isOpen && Has(Deviation::OpenHeaderIsNoHeader))) {
        line.kind = Kind::Header;
        line.name = Trimmed(inside.substr(0, bracket));
        return line;
    }
    if (text.front() == ';' && !Has(Deviation::CommentIsKey)) {
        line.kind = Kind::Comment;
        return line;
    }
    const std::size_t equals = text.find('=');
    line.kind = equals == std::string::npos ? Kind::Odd : Kind::Key;
    line.name = Trimmed(text.substr(0, equals));
    if (line.kind == Kind::Key) line.value = Trimmed(std::string_view(text).substr(equals + 1));
    return line;
}

void RulesEngine::Split(std::string_view text) {
    lines_.clear();
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::size_t endLength =
            text.substr(end, 2) == "\r\n" ? 2 : std::min<std::size_t>(1, text.size() - end);
        lines_.push_back(LineOf(std::string(text.substr(0, end)), std::string(text.substr(end, endLength))));
        text.remove_prefix(end + endLength);
    }
}

void RulesEngine::Load(const std::optional<std::string>& bytes) {
    exists_ = bytes.has_value();
    isUtf16_ = bytes && bytes->starts_with(kUtf16Mark);
    isUtf8_ = bytes && bytes->starts_with(kUtf8Mark) && Has(Deviation::Utf8MarkIsUnderstood);
    if (isUtf8_) {
        Split(ByTheHost(std::string_view(*bytes).substr(kUtf8Mark.size())));
    } else if (isUtf16_) {
        Split(FromUtf16Bytes(std::string_view(*bytes).substr(kUtf16Mark.size())).value());
    } else {
        Split(CodePage(kPage).Decode(bytes.value_or("")));
    }
}

RulesEngine::Part RulesEngine::FindSection(std::string_view section) const {
    const std::string wanted = Folded(section);
    const auto isHeader = [](const Line& line) { return line.kind == Kind::Header; };
    auto first = lines_.begin();
    if (!wanted.empty() || !Has(Deviation::EmptyNameMeansFileHead)) {
        first = std::find_if(first, lines_.end(),
                             [&](const Line& line) { return isHeader(line) && Folded(line.name) == wanted; });
        if (first == lines_.end()) return {};
        ++first;
    }
    const auto last = std::find_if(first, lines_.end(), isHeader);
    return {true, static_cast<std::size_t>(first - lines_.begin()),
            static_cast<std::size_t>(last - lines_.begin())};
}

std::optional<std::size_t> RulesEngine::FindKey(const Part& part, std::string_view key) const {
    const std::string wanted = Folded(key);
    for (std::size_t at = part.begin; at < part.end; ++at) {
        const Line& line = lines_[at];
        const bool isKey =
            line.kind == Kind::Key || (line.kind == Kind::Odd && Has(Deviation::LineWithoutEqualsIsKey));
        if (isKey && Folded(line.name) == wanted) return at;
    }
    return std::nullopt;
}

std::string RulesEngine::Read(const ProfileQuery& query) {
    const Part part = FindSection(query.section);
    const auto at = part.isFound ? FindKey(part, query.key) : std::nullopt;
    const bool isFound = at && lines_[*at].kind == Kind::Key;
    const std::string stored = isFound ? lines_[*at].value : WithoutSpacesAtEnd(query.fallback);
    const bool losesQuotes = isFound || Has(Deviation::DefaultLosesQuotes);
    const std::string value = losesQuotes ? WithoutOuterQuotes(stored) : stored;
    if (query.bufferSize == 0) return value;

    const bool justFits = CharacterCount(value) == query.bufferSize - 1;
    const bool losesEnd = Has(Deviation::FittingQuotedTextLosesItsEnd) && justFits && value != stored;
    return FirstCharacters(value, query.bufferSize - (losesEnd && !value.empty() ? 2 : 1));
}

std::vector<std::string> RulesEngine::Sections() {
    std::vector<std::string> names;
    for (const Line& line : lines_) {
        if (line.kind != Kind::Header) continue;
        if (line.name.empty() && Has(Deviation::EmptyNameMeansFileHead)) continue;
        names.push_back(line.name);
    }
    return names;
}

std::optional<std::string> RulesEngine::Bytes() {
    if (!exists_) return std::nullopt;
    std::string text;
    for (const Line& line : lines_) text += line.content + line.end;
    if (isUtf8_) return std::string(kUtf8Mark) + text;
    if (isUtf16_) return std::string(kUtf16Mark) + ToUtf16Bytes(text);
    return CodePage(kPage).Encode(Replaced(text)).value();
}

}  // namespace ventlock::test
