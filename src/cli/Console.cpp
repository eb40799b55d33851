#include "cli/Console.h"

#include "base/ShownText.h"

namespace ventlock {

std::string DocumentText(const nlohmann::ordered_json& document) {
    return document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

void Console::WriteLine(const std::string& line) {
    if (isJson) return;
    ClearProgress();
    out_ << ShownText(line) << '\n';
}

void Console::WriteNews(const std::string& line) {
    if (isQuiet) return;
    WriteLine(line);
    out_.flush();
}

void Console::WriteProblem(const std::string& line) {
    ClearProgress();
    err_ << ShownText(line) << '\n';
}

void Console::WriteWarning(const std::string& text) {
    document["warnings"].push_back(text);
    if (!isJson && !isQuiet) WriteProblem("ventlock-cli: " + text);
}

void Console::WriteError(const CliError& error) {
    document["error"] = {{"text", error.what()}, {"details", error.Details()}, {"advice", error.Advice()}};
    TellError(error);
}

void Console::TellError(const CliError& error) {
    if (isJson) return;
    WriteProblem(std::string("ventlock-cli: ") + error.what());
    for (const std::string& detail : error.Details()) WriteProblem("  " + detail);
    if (!error.Advice().empty()) WriteProblem("  " + error.Advice());
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
    out_ << DocumentText(document);
}

}  // namespace ventlock
