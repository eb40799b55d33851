#include "cli/ReportCases.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <utility>

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;
using Outcome = ReportCase::Outcome;

std::string TextAt(const Json& json, const char* key) {
    return json.value(key, std::string());
}

/// The texts of a list that need not be there.
std::vector<std::string> TextsAt(const Json& json, const char* key) {
    return json.value(key, std::vector<std::string>());
}

/// The list of that name, empty when there is none.
const Json& ListAt(const Json& json, const char* key) {
    static const Json kNone = Json::array();
    const auto found = json.find(key);
    return found == json.end() ? kNone : *found;
}

void AddAdvice(const Json& json, std::vector<std::string>& lines) {
    const std::string advice = TextAt(json, "advice");
    if (!advice.empty()) lines.push_back(advice);
}

Outcome OutcomeOf(std::string_view status) {
    if (status == "written" || status == "planned" || status == "same") return Outcome::Passed;
    return status == "skipped" ? Outcome::Skipped : Outcome::Failed;
}

void AddEntry(const Json& entry, std::vector<ReportCase>& cases) {
    for (const auto& [key, target] : entry.at("targets").items()) {
        ReportCase result{TextAt(entry, "file"),
                          entry.value("line", 0),
                          "[" + TextAt(entry, "name") + "] " + std::string(TargetName(key)),
                          OutcomeOf(TextAt(target, "status")),
                          TextAt(target, "status"),
                          TextsAt(target, "messages")};
        for (const Json& difference : ListAt(target, "differences")) {
            result.lines.push_back(TextAt(difference, "text"));
        }
        AddAdvice(target, result.lines);
        cases.push_back(std::move(result));
    }
}

void AddFinding(const Json& finding, bool isStrict, std::vector<ReportCase>& cases) {
    const std::string severity = TextAt(finding, "severity");
    const int line = finding.value("line", 0);
    cases.push_back(
        {TextAt(finding, "file"),
         line,
         (line == 0 ? "" : "line " + std::to_string(line) + " ") + "[" + TextAt(finding, "id") + "]",
         severity == "error" || isStrict ? Outcome::Failed : Outcome::Passed,
         severity,
         {TextAt(finding, "text")}});
}

/// What a check found. A file that nothing speaks against is a result, too, or a good run would have none.
void AddCheck(const Json& document, std::vector<ReportCase>& cases) {
    const bool isStrict = document.value("strict", false);
    for (const Json& finding : ListAt(document, "findings")) AddFinding(finding, isStrict, cases);
    if (isStrict) {
        for (const std::string& path : LeftOut(document)) {
            cases.push_back({path, 0, "check", Outcome::Failed, "left out", {kNoEntryKey}});
        }
    }
    std::set<std::string> wrongFiles;
    for (const ReportCase& result : cases) {
        if (result.outcome == Outcome::Failed) wrongFiles.insert(result.file);
    }
    for (const Json& file : ListAt(document, "files")) {
        const std::string path = TextAt(file, "file");
        if (!wrongFiles.contains(path)) cases.push_back({path, 0, "check", Outcome::Passed, "passed", {}});
    }
}

/// What ended the run, or what no entry's own failure accounts for: the commit of all, for one.
void AddError(const Json& document, std::vector<ReportCase>& cases) {
    const bool isAccountedFor = std::any_of(
        cases.begin(), cases.end(), [](const ReportCase& result) { return result.status == "failed"; });
    if (!document.contains("error") || isAccountedFor) return;
    const Json& error = document.at("error");
    ReportCase result{"",
                      0,
                      TextAt(document, "command"),
                      Outcome::Failed,
                      TextAt(error, "text"),
                      TextsAt(error, "details")};
    AddAdvice(error, result.lines);
    cases.push_back(std::move(result));
}

/// Build servers know a result by its file and name: those that share both are counted.
void TellApart(std::vector<ReportCase>& cases) {
    std::map<std::pair<std::string, std::string>, int> counts;
    for (ReportCase& result : cases) {
        const int count = ++counts[{result.file, result.name}];
        if (count > 1) result.name += " (" + std::to_string(count) + ")";
    }
}

}  // namespace

std::string_view TargetName(std::string_view key) {
    if (key == "ini") return "Pyx.ini";
    return key == "ddinstall" ? "Ddinstal.ini" : key;
}

std::vector<std::string> LeftOut(const Json& document) {
    return TextsAt(document, "leftOut");
}

std::string TransactionStatus(const Json& document) {
    return TextAt(document.value("transaction", Json::object()), "status");
}

std::string TimeText(const LocalTime& time, char between) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d%c%02d:%02d:%02d", time.year, time.month, time.day,
                  between, time.hour, time.minute, time.second);
    return text.data();
}

std::vector<ReportCase> ReportCases(const Json& document) {
    std::vector<ReportCase> cases;
    AddCheck(document, cases);
    for (const Json& entry : ListAt(document, "entries")) AddEntry(entry, cases);
    AddError(document, cases);
    TellApart(cases);
    return cases;
}

}  // namespace ventlock
