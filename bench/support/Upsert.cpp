#include "support/Upsert.h"

namespace ventlock::bench {

std::string ToLines(const std::vector<Upsert>& upserts) {
    std::string lines;
    for (const Upsert& upsert : upserts)
        lines += upsert.section + '\t' + upsert.key + '\t' + upsert.value + '\n';
    return lines;
}

std::vector<Upsert> FromLines(std::string_view lines) {
    std::vector<Upsert> upserts;
    const auto take = [&](char end) {
        const std::size_t at = lines.find(end);
        const std::string text(lines.substr(0, at));
        lines.remove_prefix(at == std::string_view::npos ? lines.size() : at + 1);
        return text;
    };
    while (!lines.empty()) {
        std::string section = take('\t');
        std::string key = take('\t');
        upserts.push_back({std::move(section), std::move(key), take('\n')});
    }
    return upserts;
}

std::string ToIni(const std::vector<Upsert>& upserts) {
    std::string text;
    std::string section;
    for (const Upsert& upsert : upserts) {
        if (upsert.section != section) text += "[" + upsert.section + "]\n";
        section = upsert.section;
        text += upsert.key + "=" + upsert.value + "\n";
    }
    return text;
}

}  // namespace ventlock::bench
