// docs/profile-editor.md gives the reason for every deviation by its name.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

#include "differential/Deviation.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

constexpr std::string_view kHeading = "| The host's deviation |";

/// First column of the table of deviations; a row without a reason counts as none.
std::vector<std::string> NamesInTheDocument() {
    std::istringstream document(ReadBytes(VENTLOCK_SOURCE_FOLDER "/docs/profile-editor.md"));
    std::vector<std::string> names;
    bool isInTable = false;
    for (std::string line; std::getline(document, line);) {
        if (line.starts_with(kHeading)) {
            isInTable = true;
        } else if (!line.starts_with("| ")) {
            isInTable = isInTable && line.starts_with("|-");
        } else if (isInTable) {
            const std::size_t end = line.find(" | ", 2);
            const bool hasReason = end != std::string::npos && line.size() > end + 10;
            if (hasReason) names.push_back(line.substr(2, end - 2));
        }
    }
    return names;
}

TEST(ProfileDocument, GivesTheReasonForEveryDeviationAndForNoOther) {
    EXPECT_EQ(NamesInTheDocument(), std::vector<std::string>(kDeviationNames.begin(), kDeviationNames.end()));
}

}  // namespace
}  // namespace ventlock::test
