#pragma once

#include <string>
#include <vector>

#include "support/Upsert.h"

namespace ventlock::bench {

/// The upserts as SimpleIni does them: load, set, save over the file. Nothing is locked, backed up or
/// flushed.
/// @throws std::runtime_error
void UpsertBySimpleIni(const std::string& path, const std::vector<Upsert>& upserts);

}  // namespace ventlock::bench
