#include "entry/OpenEntry.h"

#include <algorithm>
#include <set>
#include <string>

#include "db/SchemaVersion.h"
#include "entry/CheckEntry.h"

namespace ventlock {

OpenedEntry OpenEntry(const FileEntry& entry, const ReferenceLists& lists, std::int16_t schemaVersion,
                      IEvents& events) {
    OpenedEntry opened{ToForm(entry, {}, events), CheckEntry(entry, {.targets = {},
                                                                     .schemaVersion = schemaVersion,
                                                                     .ini = nullptr,
                                                                     .ddInstall = nullptr,
                                                                     .hasResource = {}})};
    std::set<std::string> known{""};
    std::erase_if(opened.form.lstTAVVersionSupport,
                  [&](const OfferedVersion& version) { return !known.insert(version.text).second; });
    if (schemaVersion < kCurrentSchema || HasErrors(opened.findings)) return opened;
    const std::vector<Finding> more = ChooseFromLists(entry, lists, schemaVersion, opened.form);
    opened.findings.insert(opened.findings.end(), more.begin(), more.end());
    std::stable_sort(opened.findings.begin(), opened.findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    return opened;
}

FindingLines LinesOf(const std::string& path, const std::vector<Finding>& findings, std::size_t most) {
    const std::size_t shown = std::min(most, findings.size());
    FindingLines lines{{}, findings.size() - shown};
    for (std::size_t i = 0; i < shown; ++i)
        lines.text.append(i == 0 ? "" : "\n").append(FindingLine(path, findings[i]));
    return lines;
}

}  // namespace ventlock
