#pragma once

#include "core/IList.h"
#include "db/clsTavDB.h"

namespace ventlock {

/// Fills the three lists that come from the database: protocols, major categories, minor categories. The
/// first load that fails ends it with False; the lists after it stay empty.
bool LoadReferenceLists(clsTavDB& tavDB, IList& protocols, IList& majorCategories, IList& minorCategories);

}  // namespace ventlock
