#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ventlock::bench {

/// A key that is to have a value, in an existing line or a new one.
struct Upsert {
    std::string section;
    std::string key;
    std::string value;
};

/// One a line: section, key and value with tabs between them, as peers and limit programs read them.
std::string ToLines(const std::vector<Upsert>& upserts);
std::vector<Upsert> FromLines(std::string_view lines);

/// The same as an INI file, for programs that merge one.
std::string ToIni(const std::vector<Upsert>& upserts);

}  // namespace ventlock::bench
