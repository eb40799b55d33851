#include "cli/CheckCommand.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "cli/EntryFiles.h"
#include "cli/ReportCases.h"
#include "db/SchemaVersion.h"
#include "entry/SameDevice.h"

namespace ventlock {

ExitCode RunCheck(Services& services, const CheckOptions& options, Console& console) {
    const ProfileFile ini = EncodingOfTarget(services, options.iniPath);
    const ProfileFile ddInstall = EncodingOfTarget(services, options.ddInstallPath);
    std::size_t errors = 0;
    std::size_t warnings = 0;
    auto list = nlohmann::ordered_json::array();
    auto checked = nlohmann::ordered_json::array();
    SameDevices sameDevices;
    const std::vector<LoadedEntryFile> files = LoadEntryFiles(services, options.files, console);
    warnings += LeftOut(console.document).size();
    for (const LoadedEntryFile& file : files) {
        std::vector<Finding> findings = file.content.findings;
        for (const FileEntry& entry : file.content.entries) {
            if (auto same = sameDevices.Take(file.path, entry)) findings.push_back(*std::move(same));
            const auto found =
                CheckEntry(entry, {.targets = options.targets,
                                   .schemaVersion = options.isOldSchema ? kOldSchema : kCurrentSchema,
                                   .ini = &ini,
                                   .ddInstall = &ddInstall,
                                   .hasResource = ResourcesBeside(services, file.path)});
            findings.insert(findings.end(), found.begin(), found.end());
        }
        std::stable_sort(findings.begin(), findings.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
        for (const Finding& finding : findings) {
            console.WriteLine(FindingLine(file.path, finding));
            list.push_back(Console::FindingJson(file.path, finding));
            ++(finding.severity == Severity::Error ? errors : warnings);
        }
        checked.push_back({{"file", file.path}, {"entries", file.content.entries.size()}});
    }
    console.document["strict"] = options.isStrict;
    console.document["findings"] = std::move(list);
    console.document["files"] = std::move(checked);
    const bool isWrong = errors != 0 || (options.isStrict && warnings != 0);
    console.WriteNews(Counted(errors, "error") + ", " + Counted(warnings, "warning"));
    return isWrong ? ExitCode::WrongCall : ExitCode::Done;
}

}  // namespace ventlock
