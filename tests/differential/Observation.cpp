#include "differential/Observation.h"

#include <cstdio>

namespace ventlock::test {
namespace {

constexpr std::string_view kAbsent = "(absent)";

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += "[" + name + "]";
    return text;
}

void ObserveSections(ProfileEngine& engine, ObservationKind kind, std::vector<Observation>& seen) {
    seen.push_back({kind, "sections", Joined(engine.Sections())});
}

}  // namespace

std::string Shown(std::string_view text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        const std::size_t run = std::min(text.find_first_not_of(c, at), text.size()) - at;
        if (c == '\r')
            shown += "\\r";
        else if (c == '\n')
            shown += "\\n";
        else if (c == '\t')
            shown += "\\t";
        else if (c >= ' ' && c <= '~')
            shown += c;
        else {
            char escape[5];
            std::snprintf(escape, sizeof escape, "\\x%02X",
                          static_cast<unsigned>(static_cast<unsigned char>(c)));
            shown += escape;
        }
        if (run > 20) shown += "{" + std::to_string(run) + "}";
        at += run > 20 ? run : 1;
    }
    return shown;
}

std::vector<Observation> Observe(ProfileEngine& engine, const ProfileCase& tried,
                                 const std::optional<std::string>& written) {
    std::vector<Observation> seen;
    engine.Load(tried.bytes);
    for (const ProfileQuery& query : tried.reads) {
        seen.push_back({ObservationKind::Reading,
                        "[" + query.section + "] " + query.key + ", fallback \"" + query.fallback +
                            "\", buffer " + std::to_string(query.bufferSize),
                        engine.Read(query)});
    }
    ObserveSections(engine, ObservationKind::Reading, seen);
    for (const ProfileWrite& write : tried.writes) {
        seen.push_back({ObservationKind::Bytes, "[" + write.section + "] " + write.key + "=" + write.value,
                        engine.Write(write) ? "written" : "refused"});
    }
    seen.push_back({ObservationKind::Bytes, "bytes", engine.Bytes().value_or(std::string(kAbsent))});

    engine.Load(written);
    for (const auto& [section, key] : tried.keys) {
        const std::string answer = engine.Read({section, key, std::string(kAbsent)});
        seen.push_back({ObservationKind::ReadingBack, "[" + section + "] " + key, answer});
    }
    ObserveSections(engine, ObservationKind::ReadingBack, seen);
    return seen;
}

}  // namespace ventlock::test
