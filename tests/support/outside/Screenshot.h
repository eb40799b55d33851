#pragma once

#include <string>

namespace ventlock::test {

/// Writes what the whole display shows into a PNG file. Its folder is made when it is not there.
/// \return "" or what went wrong
std::string TakeScreenshot(const std::string& path);

/// From now on the first failure of each test leaves a picture of the display at that moment:
/// <build>/screenshots/<suite>.<test>.png, whose path is printed.
void TakeScreenshotsOfFailures();

}  // namespace ventlock::test
