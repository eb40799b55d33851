#pragma once

#include <string_view>
#include <vector>

#include "platform/Recordset.h"
#include "platform/odbc/Statement.h"

namespace ventlock::odbc {

/// Adds one row to a table; the values are bound, numbers as numbers, never put into the text.
/// @throws RunTimeError 3146.
void InsertRecord(Statement& statement, std::string_view table, const std::vector<RecordField>& record);

}  // namespace ventlock::odbc
