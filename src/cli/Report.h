#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/CliError.h"
#include "cli/Console.h"
#include "platform/Host.h"

namespace ventlock {

/// Forms of a report: for people, the document of --json, or the XML that build servers show as test results.
enum class ReportFormat : std::uint8_t { Text, Json, Junit };

/// The form that a file's name asks for: JUnit for .xml, JSON for .json, in any letter case, else text.
ReportFormat FormatOfName(std::string_view path);

/// A report of a command's run in a file of its own. It tells what the command's document tells, whatever
/// became of the run, and is written whole or not at all, with --dry-run too.
class Report {
 public:
    /// The run begins now.
    /// @param path  against the working folder
    Report(Host& host, const std::string& path, std::optional<ReportFormat> format);

    /// Looks beforehand whether the report can be written, and not over one of the `sources` or any other
    /// file that is no report.
    /// @throws CliError 1 or 3, 2 for such a file; nothing should be done then.
    void RequireWritable(const std::vector<std::string>& sources);

    /// Refuses a run that writes one of these files, absolute, itself; it has no report then.
    /// @throws CliError 2.
    void RequireNone(const std::vector<std::string>& targets);

    /// Writes the report of a run that ended with `code`, and tells of a report that cannot be written.
    /// @return how the program ends: as the run, but not well without a report
    ExitCode Write(Console& console, ExitCode code);

 private:
    /// @throws CliError 2 for a file that is there and is none of a report: whatever its name, it is not
    /// lost.
    void RequireOwnFile() const;

    /// @return why it could not be done
    [[nodiscard]] std::optional<CliError> Replace(const std::string& content) const;
    [[nodiscard]] std::string Content(const nlohmann::ordered_json& document) const;

    Host& host_;
    std::string given_;
    std::string path_;
    ReportFormat format_;
    LocalTime begin_;
    bool isRefused_ = false;
};

}  // namespace ventlock
