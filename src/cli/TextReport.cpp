#include "cli/TextReport.h"

#include "base/ShownText.h"
#include "cli/ReportCases.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;
using Outcome = ReportCase::Outcome;

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
        "ventlock-cli " + document.value("command", std::string()) + ", " + TimeText(begin, ' ') + "\n";
    if (document.value("dryRun", false)) text += "Nothing was written; this is what would be.\n";
    const Json targets = document.value("targets", Json::object());
    for (const auto& [key, place] : targets.items()) {
        text += std::string(TargetName(key)) + ": " + place.get<std::string>() + "\n";
    }
    for (const std::string& path : LeftOut(document)) text += "left out: " + path + "\n";
    const std::string transaction = TransactionStatus(document);
    if (!transaction.empty()) text += "transaction: " + transaction + "\n";
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
