#include "files/UnifiedDiff.h"

#include <algorithm>
#include <dtl/dtl.hpp>
#include <sstream>
#include <vector>

#include "platform/ProfileLines.h"

namespace ventlock {
namespace {

struct Lines {
    std::vector<std::string> contents;
    std::vector<std::string_view> ends;
};

Lines LinesOf(std::string_view text) {
    Lines lines;
    ProfileLines walk(text);
    for (ProfileLine line; walk.Next(line);) {
        lines.contents.emplace_back(line.Content(text));
        lines.ends.push_back(text.substr(line.end, line.next - line.end));
    }
    return lines;
}

/// Lines of the old text that have another end than the CR LF that every line of the new one has.
std::size_t ChangedEnds(const Lines& before, const Lines& after) {
    std::size_t changed = 0;
    const bool allWindows =
        std::all_of(after.ends.begin(), after.ends.end(), [](auto end) { return end == "\r\n"; });
    for (const std::string_view end : before.ends) {
        if (allWindows && end != "\r\n") ++changed;
    }
    return changed;
}

}  // namespace

std::string UnifiedDiff(std::string_view before, std::string_view after, const std::string& path,
                        bool existed) {
    if (before == after && existed) return {};
    const Lines oldLines = LinesOf(before);
    const Lines newLines = LinesOf(after);
    dtl::Diff<std::string> diff(oldLines.contents, newLines.contents);
    diff.compose();
    diff.composeUnifiedHunks();

    std::ostringstream hunks;
    diff.printUnifiedFormat(hunks);
    std::string text = "--- " + (existed ? path : "/dev/null") + "\n+++ " + path + "\n" + hunks.str();
    // An empty range begins before its first line; the library counts it from 1.
    constexpr std::string_view kFromEmpty = "\n@@ -1,0 ";
    const std::size_t range = text.find(kFromEmpty);
    if (range != std::string::npos) text.replace(range, kFromEmpty.size(), "\n@@ -0,0 ");
    const std::size_t changedEnds = ChangedEnds(oldLines, newLines);
    if (changedEnds != 0) text += "(line ends of " + std::to_string(changedEnds) + " lines become CR LF)\n";
    return text;
}

}  // namespace ventlock
