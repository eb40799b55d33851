#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/odbc/DataSources.h"

namespace ventlock::test {

/// The places of these data sources in the list, -1 for one that is not in it. A data source is
/// "name|driver|user" or "name|driver|system".
inline std::vector<std::ptrdiff_t> PlacesOf(const std::vector<std::string>& lines) {
    std::vector<std::string> listed;
    for (const DataSource& source : ListDataSources()) {
        listed.push_back(source.name + "|" + source.driver + "|" + (source.system ? "system" : "user"));
    }
    std::vector<std::ptrdiff_t> places;
    for (const std::string& line : lines) {
        const auto found = std::find(listed.begin(), listed.end(), line);
        places.push_back(found == listed.end() ? -1 : found - listed.begin());
    }
    return places;
}

}  // namespace ventlock::test
