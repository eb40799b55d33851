#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "platform/IClock.h"

namespace ventlock {

/// A command's document as JUnit XML: one test suite with a property for each target and a test case for each
/// result. A failure has the first of what was said about it as its message and all of it as its text. The
/// XML is well-formed UTF-8 whatever names, paths and drivers hold: control characters are written out, what
/// is no text is replaced.
std::string JunitReport(const nlohmann::ordered_json& document, const LocalTime& begin);

}  // namespace ventlock
