#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Recordset.h"

namespace ventlock {

/// The statement that a new record of a table becomes: its column names and one "?" a value, which is bound.
std::string InsertStatement(std::string_view table, const std::vector<RecordField>& record);

}  // namespace ventlock
