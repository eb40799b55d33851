#include <algorithm>

#include "differential/RulesEngine.h"
#include "platform/CodePage.h"

namespace ventlock::test {

bool RulesEngine::IsRefused(const ProfileWrite& write) const {
    const std::string section = Trimmed(write.section);
    const std::string key = Trimmed(write.key);
    if (!Has(Deviation::UnreadableTextIsWritten)) {
        const bool isNoKey =
            key.find('=') != std::string::npos || key.starts_with(';') || key.starts_with('[');
        if (isNoKey || section.find(']') != std::string::npos) return true;
        if (write.value.find_first_of("\r\n") != std::string::npos) return true;
    }
    if (isUtf16_ || isUtf8_ || Has(Deviation::MissingCharacterIsReplaced)) return false;
    return !CodePage(kPage).Encode(section + key + write.value);
}

std::string RulesEngine::NewName(std::string_view name) const {
    if (!Has(Deviation::NewNameKeepsTrailingBlanks)) return Trimmed(name);
    return std::string(name.substr(std::min(name.find_first_not_of(Blanks()), name.size())));
}

/// False when the line holds that value already.
bool RulesEngine::Change(Line& line, const std::string& value) const {
    if (line.kind == Kind::Odd) {
        line.content = line.name + "=" + value;
    } else {
        const std::size_t equals = line.content.find('=') + 1;
        const std::string stored = line.content.substr(equals);
        if (line.value == value) return false;
        if (stored == value && !Has(Deviation::LinesAreWrittenAnew)) return false;
        const bool bringsBlanks = value.find_first_of(Blanks()) == 0;
        const std::size_t blanks =
            bringsBlanks ? 0 : std::min(stored.find_first_not_of(Blanks()), stored.size());
        line.content = Has(Deviation::LinesAreWrittenAnew) ? line.name + "=" + value
                                                           : line.content.substr(0, equals + blanks) + value;
    }
    if (line.end.empty()) line.end = "\r\n";
    line.isNew = true;
    return true;
}

std::size_t RulesEngine::PlaceOfNewKey(const Part& part) const {
    std::size_t place = part.begin;
    for (std::size_t at = part.begin; at < part.end; ++at) {
        const Kind kind = lines_[at].kind;
        if (kind == Kind::Key || (Has(Deviation::NewKeyGoesToSectionEnd) && kind != Kind::Blank))
            place = at + 1;
    }
    return place;
}

/// `name` as the write gave it, which the line may tell otherwise when it is read.
void RulesEngine::Insert(std::size_t at, const std::string& content, const std::string& name) {
    if (at > 0 && lines_[at - 1].end.empty()) lines_[at - 1].end = "\r\n";
    Line line = LineOf(content, "\r\n");
    line.name = name;
    line.isNew = true;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}

bool RulesEngine::Write(const ProfileWrite& write) {
    if (IsRefused(write)) return false;
    exists_ = true;
    std::string value = write.value;
    if (Has(Deviation::ValueLosesLeadingBlanks))
        value.erase(0, std::min(value.find_first_not_of(Blanks()), value.size()));

    const Part part = FindSection(write.section);
    const auto key = part.isFound ? FindKey(part, write.key) : std::nullopt;
    if (key) {
        if (!Change(lines_[*key], value)) return true;
    } else {
        const std::size_t place = part.isFound ? PlaceOfNewKey(part) : lines_.size() + 1;
        if (!part.isFound) Insert(lines_.size(), "[" + NewName(write.section) + "]", NewName(write.section));
        Insert(place, NewName(write.key) + "=" + value, NewName(write.key));
    }
    WriteRestAnew();
    Load(Bytes());  // a value that is no line of its own is understood anew
    return true;
}

/// What the host makes of all the other lines when it stores a file.
void RulesEngine::WriteRestAnew() {
    std::vector<Line> kept;
    const Line* previous = nullptr;
    for (Line& line : lines_) {
        const bool isEmptyKey = line.kind == Kind::Key && line.name.empty();
        const bool followsEmptyKey =
            previous != nullptr && previous->kind == Kind::Key && previous->name.empty();
        const Line* const before = previous;
        if (line.kind != Kind::Blank) previous = &line;
        if (line.kind == Kind::Blank && Has(Deviation::BlankLinesAreDropped)) continue;
        if (line.kind == Kind::Header && line.name.empty() && Has(Deviation::EmptyHeaderIsDropped)) continue;
        if (isEmptyKey && followsEmptyKey && Has(Deviation::RepeatedEmptyKeyIsDropped)) {
            previous = before;
            continue;
        }
        if (!line.isNew && line.kind == Kind::Header && Has(Deviation::HeadersAreWrittenAnew))
            line.content = "[" + line.name + "]";
        if (!line.isNew && line.kind != Kind::Header && Has(Deviation::LinesAreWrittenAnew))
            line.content = line.kind == Kind::Key ? line.name + "=" + line.value : Trimmed(line.content);
        if (Has(Deviation::LineEndsBecomeCrLf)) line.end = "\r\n";
        kept.push_back(line);
    }
    lines_ = std::move(kept);
}

}  // namespace ventlock::test
