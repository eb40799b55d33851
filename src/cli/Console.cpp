#include "cli/Console.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace ventlock {
namespace {

/// True for the character at `at` when a terminal would act on it instead of showing it. Line ends and tabs
/// may stay.
bool IsCommand(std::string_view text, std::size_t at) {
    const auto c = static_cast<unsigned char>(text[at]);
    if (c == '\n' || c == '\t') return false;
    if (c == '\r') return at + 1 < text.size() && text[at + 1] != '\n';
    return c < 0x20 || c == 0x7F;
}

/// True when a two-byte control character, U+0080 to U+009F, begins at `at`.
bool IsWideCommand(std::string_view text, std::size_t at) {
    if (text[at] != '\xC2' || at + 1 >= text.size()) return false;
    const auto next = static_cast<unsigned char>(text[at + 1]);
    return next >= 0x80 && next < 0xA0;
}

/// The text with "\x1B" and its like written out: names and paths come from files that anybody may have made.
std::string Shown(std::string_view text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isWide = IsWideCommand(text, at);
        if (!isWide && !IsCommand(text, at)) {
            shown += text[at];
            continue;
        }
        if (isWide) ++at;
        std::array<char, 5> code{};
        std::snprintf(code.data(), code.size(), "\\x%02X", static_cast<unsigned char>(text[at]));
        shown += code.data();
    }
    return shown;
}

}  // namespace

void Console::WriteLine(const std::string& line) {
    if (isJson) return;
    ClearProgress();
    out_ << Shown(line) << '\n';
}

void Console::WriteNews(const std::string& line) {
    if (isQuiet) return;
    WriteLine(line);
    out_.flush();
}

void Console::WriteProblem(const std::string& line) {
    ClearProgress();
    err_ << Shown(line) << '\n';
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
