#include "cli/TextReport.h"

#include <array>
#include <cstdio>

#include "base/ShownText.h"
#include "cli/ReportCases.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;
using Outcome = ReportCase::Outcome;

std::string TimeText(const LocalTime& time) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                  time.hour, time.minute, time.second);
    return text.data();
}

std::string CaseLines(const ReportCase& result) {
    std::string text = result.file;
    if (!text.empty() && result.line > 0) text += ":" + std::to_string(result.line);
    text += (text.empty() ? "" : ": ") + result.name + ": " + result.status + "\n";
    for (const std::string& line : result.lines) text += "  " + line + "\n";
    return text;
}

}  // namespace

std::string TextReport(const Json& document, const LocalTime& begin) {
    std::string text =
        "ventlock-cli " + document.value("command", std::string()) + ", " + TimeText(begin) + "\n";
    if (document.value("dryRun", false)) text += "Nothing was written; this is what would be.\n";
    const Json targets = document.value("targets", Json::object());
    for (const auto& [key, place] : targets.items()) {
        text += std::string(TargetName(key)) + ": " + place.get<std::string>() + "\n";
    }
    text += "\n";
    int passed = 0;
    int failed = 0;
    int skipped = 0;
    for (const ReportCase& result : ReportCases(document)) {
        text += CaseLines(result);
        ++(result.outcome == Outcome::Passed ? passed : result.outcome == Outcome::Failed ? failed : skipped);
    }
    text += "\n" + std::to_string(passed) + " passed, " + std::to_string(failed) + " failed, " +
            std::to_string(skipped) + " skipped\nexit code " + std::to_string(document.value("exitCode", 0)) +
            "\n";
    return ShownText(text);
}

}  // namespace ventlock
