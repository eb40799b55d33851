#pragma once

#include <string_view>
#include <vector>

#include "db/SearchIndex.h"
#include "platform/Recordset.h"

namespace ventlock {

/// What the rows of one thing in a table carry: a manufacturer's protocol, a device type, a revision.
struct RowKey {
    std::string_view table;
    std::vector<RowSearch::Part> parts;  ///< numbers
};

/// True when the current row carries this number. @throws RunTimeError 3265 when the column is missing.
bool Carries(const Recordset& rows, const RowSearch::Part& part);

/// True when the current row carries all numbers of the key.
bool Carries(const Recordset& rows, const RowKey& key);

}  // namespace ventlock
