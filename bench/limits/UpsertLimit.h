#pragma once

#include <string>
#include <vector>

#include "support/Upsert.h"

namespace ventlock::bench {

/// The upserts done with nothing but what they cannot be done without: the system calls that lock, read, back
/// up, flush and replace a file, one pass over its lines by memchr, and no second image of it. Takes a tidy
/// file of at least the sections' usual form only, and names as they are spelled in it.
/// @throws std::runtime_error
void UpsertAtTheLimit(const std::string& path, const std::vector<Upsert>& upserts);

}  // namespace ventlock::bench
