#include "support/Outcome.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

namespace ventlock::bench {
namespace {

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// The lines of a file, with their ends.
std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if (text.substr(end).starts_with("\r\n")) ++end;
        lines.push_back(text.substr(0, end + 1));
        text.remove_prefix(lines.back().size());
    }
    return lines;
}

using Keys = std::map<std::pair<std::string_view, std::string_view>, std::string_view>;

/// What a file is made of besides the lines of an entry, and which keys of the entry it has.
struct Rest {
    std::vector<std::string_view> lines;
    std::set<std::string_view> sections;
    std::size_t entryKeys = 0;  ///< keys of the entry that have their value
};

/// @param known  the sections whose headers are none of the entry's; all when it is nullptr
Rest WithoutEntry(std::string_view text, const Keys& entry, const std::set<std::string_view>* known,
                  Compared compared) {
    Rest rest;
    std::string_view section;
    for (const std::string_view line : LinesOf(text)) {
        const std::string_view content = Trimmed(line);
        if (content.starts_with('[')) {
            section = content.substr(1, content.find(']') - 1);
            const bool isEntrys = std::any_of(entry.begin(), entry.end(),
                                              [&](const auto& key) { return key.first.first == section; });
            const bool isNew = known != nullptr && isEntrys && !known->contains(section);
            rest.sections.insert(section);
            if (isNew) {
                if (!rest.lines.empty() && Trimmed(rest.lines.back()).empty()) rest.lines.pop_back();
                continue;
            }
        } else if (const std::size_t equals = content.find('='); equals != std::string_view::npos) {
            const auto key = entry.find({section, Trimmed(content.substr(0, equals))});
            if (key != entry.end()) {
                if (Trimmed(content.substr(equals + 1)) == key->second) ++rest.entryKeys;
                continue;
            }
        }
        if (compared == Compared::Everything) {
            rest.lines.push_back(line);
        } else if (!content.empty()) {
            rest.lines.push_back(line.substr(0, line.find_first_of("\r\n")));
        }
    }
    return rest;
}

std::size_t Difference(const std::vector<std::string_view>& before,
                       const std::vector<std::string_view>& after) {
    std::unordered_map<std::string_view, long> counts;
    for (const std::string_view line : before) ++counts[line];
    for (const std::string_view line : after) --counts[line];
    std::size_t bytes = 0;
    for (const auto& [line, count] : counts) bytes += line.size() * static_cast<std::size_t>(std::abs(count));
    if (bytes > 0) return bytes;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] != after[i]) bytes += before[i].size();
    }
    return bytes;
}

}  // namespace

Outcome Compare(std::string_view before, std::string_view after, const std::vector<Upsert>& upserts,
                Compared compared) {
    Keys entry;
    for (const Upsert& upsert : upserts) entry[{upsert.section, upsert.key}] = upsert.value;
    const Rest old = WithoutEntry(before, entry, nullptr, compared);
    const Rest now = WithoutEntry(after, entry, &old.sections, compared);
    return {now.entryKeys == entry.size(), Difference(old.lines, now.lines)};
}

}  // namespace ventlock::bench
