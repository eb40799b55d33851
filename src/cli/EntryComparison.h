#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Difference.h"
#include "cli/EntryObjects.h"
#include "cli/RegisterPlan.h"
#include "cli/Services.h"
#include "platform/ProfileFile.h"

namespace ventlock {

/// A difference in words, without the target's name.
std::string DifferenceText(const Difference& difference);

/// A target file as it is now; a missing one holds nothing. `naming` as FileAdvice takes it.
/// @throws CliError 1 or 3.
ProfileFile ReadTarget(Services& services, const std::string& path, std::string_view naming);

/// In what the database differs from what the entry's write would leave there; fills the entry's records.
/// The services must be ones that only note statements.
/// @throws CliError 1 when the entry cannot be compared; its text names no entry.
std::vector<Difference> CompareDatabase(Services& services, RegisterPlan& plan, EntryObjects& objects);

}  // namespace ventlock
