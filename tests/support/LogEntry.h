#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>

#include "base/RunTimeError.h"

namespace ventlock::test {

/// The log entry of an error without a detail: "tag-step: description (number)".
inline std::string EntryText(std::string_view tagAndStep, ErrorNumber number) {
    return std::string(tagAndStep) + ": " + std::string(DescriptionOf(number)) + " (" +
           std::to_string(static_cast<int>(number)) + ")";
}

/// Matches the log entry of an error whose detail holds `detail`: "tag-step: description ...detail...
/// (number)".
inline testing::Matcher<std::string> EntryWith(std::string_view tagAndStep, ErrorNumber number,
                                               const std::string& detail) {
    const std::string begin = std::string(tagAndStep) + ": " + std::string(DescriptionOf(number)) + " ";
    const std::string end = " (" + std::to_string(static_cast<int>(number)) + ")";
    return testing::AllOf(testing::StartsWith(begin), testing::HasSubstr(detail), testing::EndsWith(end));
}

/// Matches the log entry of a failed database call, which goes on with what the driver said.
inline testing::Matcher<std::string> DatabaseEntry(std::string_view tagAndStep) {
    return EntryWith(tagAndStep, ErrorNumber::OdbcCallFailed, " [");
}

}  // namespace ventlock::test
