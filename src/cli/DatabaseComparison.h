#pragma once

#include <cstdint>
#include <vector>

#include "base/Difference.h"
#include "db/StatementJournal.h"
#include "db/clsTavDB.h"
#include "platform/Database.h"

namespace ventlock {

/// In what the database differs from the rows that an entry's write would leave in it. What the write is, its
/// own statements say: a new row is one that is missing, a change is compared with the row that is there.
/// Texts are compared without blanks around them, numbers as numbers.
/// @param statements  of the write, noted and not sent
/// @param facade      that has made them
/// @throws RunTimeError 3146 when a table cannot be read.
std::vector<Difference> CompareRows(IConnection& connection, const std::vector<JournalEntry>& statements,
                                    clsTavDB& facade, std::int16_t schemaVersion);

}  // namespace ventlock
