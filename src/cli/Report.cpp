#include "cli/Report.h"

#include <algorithm>

#include "cli/Advice.h"
#include "cli/EntryFiles.h"
#include "cli/JunitReport.h"
#include "cli/Services.h"
#include "cli/TextReport.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

using Json = nlohmann::ordered_json;

std::string_view WordFor(ReportFormat format) {
    switch (format) {
        case ReportFormat::Json:
            return "json";
        case ReportFormat::Junit:
            return "junit";
        case ReportFormat::Text:
            break;
    }
    return "text";
}

bool HasEnding(std::string_view path, std::string_view ending) {
    return path.size() >= ending.size() &&
           EqualIgnoringCase(path.substr(path.size() - ending.size()), ending);
}

/// Whether a file that begins so may be replaced by a report: an older report, or an empty file.
bool MayBecomeReport(std::string_view beginning) {
    return beginning.empty() || beginning.starts_with("ventlock-cli ") ||
           beginning.starts_with("{\n  \"version\":") ||
           beginning.find("<testsuites name=\"ventlock-cli ") != std::string_view::npos;
}

CliError ReportError(const std::string& path, const RunTimeError& error) {
    return {CodeOf(error), "report " + path + ": " + error.what(), {}, FileAdvice(error.Number())};
}

}  // namespace

ReportFormat FormatOfName(std::string_view path) {
    if (HasEnding(path, ".xml")) return ReportFormat::Junit;
    return HasEnding(path, ".json") ? ReportFormat::Json : ReportFormat::Text;
}

Report::Report(Host& host, const std::string& path, std::optional<ReportFormat> format)
    : host_(host),
      given_(path),
      path_(AbsolutePath(host.Paths(), path)),
      format_(format.value_or(FormatOfName(path))),
      begin_(host.Clock().Now()) {}

void Report::RequireWritable(const std::vector<std::string>& sources) {
    for (const std::string& source : sources) RequireNone({AbsolutePath(host_.Paths(), source)});
    try {
        host_.Files().RequireReplaceable(path_);
        RequireOwnFile();
    } catch (const RunTimeError& error) {
        throw ReportError(given_, error);
    }
}

void Report::RequireNone(const std::vector<std::string>& targets) {
    isRefused_ = std::find(targets.begin(), targets.end(), path_) != targets.end();
    if (!isRefused_) return;
    throw CliError(ExitCode::WrongCall, "report " + given_ + ": the run itself reads or writes this file", {},
                   "Name another file for the report.");
}

void Report::RequireOwnFile() const {
    constexpr std::size_t kEnoughToTell = 128;
    IFiles& files = host_.Files();
    if (!files.Exists(path_) || MayBecomeReport(files.ReadBeginning(path_, kEnoughToTell))) return;
    throw CliError(ExitCode::WrongCall, "report " + given_ + ": there is a file that is no report", {},
                   "Name another file for the report, or remove this one.");
}

ExitCode Report::Write(Console& console, ExitCode code) {
    if (isRefused_) return code;
    console.document["exitCode"] = static_cast<int>(code);
    const std::string content = Content(console.document);
    Json& told = console.document["report"] = {{"file", path_}, {"format", WordFor(format_)}};
    const std::optional<CliError> failure = Replace(content);
    told["status"] = failure ? "failed" : "written";
    if (!failure) return code;
    told["messages"] = {failure->what()};
    told["advice"] = failure->Advice();
    console.TellError(*failure);
    return code == ExitCode::Done ? ExitCode::TargetFailed : code;
}

std::optional<CliError> Report::Replace(const std::string& content) const {
    try {
        IFiles& files = host_.Files();
        const auto lock = files.Lock(path_);
        RequireOwnFile();  // the run may have made one there
        files.Replace(path_, content);
        return {};
    } catch (const CliError& error) {
        return error;
    } catch (const RunTimeError& error) {
        return ReportError(given_, error);
    }
}

std::string Report::Content(const Json& document) const {
    switch (format_) {
        case ReportFormat::Json:
            return DocumentText(document);
        case ReportFormat::Junit:
            return JunitReport(document, begin_);
        case ReportFormat::Text:
            break;
    }
    return TextReport(document, begin_);
}

}  // namespace ventlock
