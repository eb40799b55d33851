#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ventlock::bench {

/// The rows of a device database, numbered from 1: row n of each of the four tables belongs to device n,
/// which is its manufacturer's only one. The next devices are registered.

/// The queries of what a database holds, one a table.
const std::vector<std::string>& DeviceQueries();

/// Statements that put the first `count` devices into the empty tables of the current schema.
std::vector<std::string> DeviceInserts(std::size_t count);

/// What the queries give when the devices from `first` to `last` are there: "a|b\n" each.
std::vector<std::string> ExpectedRows(std::size_t first, std::size_t last);

/// The devices from `first` to `last` as entries of an entry file.
std::string EntriesOf(std::size_t first, std::size_t last);

/// The same for those that read no entry files: "<manufacturer's id>\t<its name>\t<device type>\t<its
/// name>\n" each, numbers in decimal.
std::string LinesOf(std::size_t first, std::size_t last);

}  // namespace ventlock::bench
