#pragma once

#include <string>

#include "entry/EntryPreview.h"
#include "entry/WriteObstacles.h"

namespace ventlock {

/// What the preview tells of a command, in the window's language: the statements and the diff as they are,
/// and what would be reported. Ends without a line end.
std::string PreviewText(const TargetPreview& preview);

/// Why a command is disabled.
std::string DisabledText(const WriteObstacles& obstacles);

}  // namespace ventlock
