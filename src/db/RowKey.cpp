#include "db/RowKey.h"

#include <algorithm>

#include "base/Numbers.h"

namespace ventlock {

bool Carries(const Recordset& rows, const RowSearch::Part& part) {
    return SameNumber(rows.Column(part.column).Value(), std::get<double>(part.value));
}

bool Carries(const Recordset& rows, const RowKey& key) {
    return std::all_of(key.parts.begin(), key.parts.end(),
                       [&](const RowSearch::Part& part) { return Carries(rows, part); });
}

}  // namespace ventlock
