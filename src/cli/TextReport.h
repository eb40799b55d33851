#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "platform/IClock.h"

namespace ventlock {

/// A command's document as lines for people: the command and its beginning, its targets, each result with
/// what was said about it, and how the run ended. Control characters are written out.
std::string TextReport(const nlohmann::ordered_json& document, const LocalTime& begin);

}  // namespace ventlock
