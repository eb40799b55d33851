#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/CommandDescription.h"

namespace ventlock {

/// The first argument of a shell's question how a call may go on: "complete WORD...". It is for the
/// completion files of the shells only, so that no help names it.
inline constexpr std::string_view kCompleteCommand = "complete";

/// Answers with what may stand in place of the last of `words`, the part of it that is typed already
/// included: one candidate a line, a tab and what it is behind it. Where paths may stand a last line begins
/// with a tab, "files" or "ini-files" follows. A call that is wrong, or data sources that cannot be listed,
/// have nothing to offer; nothing is written or logged.
void WriteCompletions(const CommandDescription& program, const std::vector<std::string>& words,
                      std::ostream& out);

}  // namespace ventlock
