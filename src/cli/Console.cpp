#include "cli/Console.h"

namespace ventlock {

void Console::WriteLine(const std::string& line) {
    if (isJson) return;
    ClearProgress();
    out_ << line << '\n';
}

void Console::WriteNews(const std::string& line) {
    if (!isQuiet) WriteLine(line);
}

void Console::WriteProblem(const std::string& line) {
    ClearProgress();
    err_ << line << '\n';
}

void Console::WriteError(const CliError& error) {
    document["error"] = {{"text", error.what()}, {"details", error.Details()}, {"advice", error.Advice()}};
    if (isJson) return;
    WriteProblem(std::string("ventlock-cli: ") + error.what());
    for (const std::string& detail : error.Details()) WriteProblem("  " + detail);
    if (!error.Advice().empty()) WriteProblem("  " + error.Advice());
}

std::string Console::FindingLine(const std::string& path, const Finding& finding) {
    return path + ":" + std::to_string(finding.line) + ": " +
           (finding.severity == Severity::Error ? "error" : "warning") + " [" + finding.id + "] " +
           finding.text;
}

nlohmann::ordered_json Console::FindingJson(const std::string& path, const Finding& finding) {
    return {{"file", path},
            {"line", finding.line},
            {"severity", finding.severity == Severity::Error ? "error" : "warning"},
            {"id", finding.id},
            {"text", finding.text}};
}

void Console::ShowProgress(std::size_t done, std::size_t all) {
    if (!isTerminal_ || isQuiet || isJson || all < 2) return;
    err_ << '\r' << done << " of " << all << " entries" << std::flush;
    hasProgress_ = true;
}

void Console::ClearProgress() {
    if (!hasProgress_) return;
    err_ << "\r\033[K" << std::flush;
    hasProgress_ = false;
}

void Console::Finish(ExitCode code) {
    ClearProgress();
    if (!isJson) return;
    document["exitCode"] = static_cast<int>(code);
    // Text from drivers may hold anything; the document is valid all the same.
    out_ << document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace ventlock
