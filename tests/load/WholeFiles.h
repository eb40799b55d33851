#pragma once

#include <set>
#include <string>

namespace ventlock::test {

/// Devices that a file holds, "manufacturer.device type" each, as in "000020.0001".
using Devices = std::set<std::string>;

/// Reads a "Pyx.ini" that only the program has written. Fails the test when anything of it is cut off, stands
/// there twice or is not what belongs to its entry: each device has its line and its section of five keys.
Devices DevicesOfWholePyxIni(const std::string& bytes);

/// The same for a "Ddinstal.ini": its counts are those of its sections, each device has its sixteen keys.
Devices DevicesOfWholeDdinstal(const std::string& bytes);

}  // namespace ventlock::test
