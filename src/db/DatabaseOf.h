#pragma once

#include <memory>
#include <string_view>

#include "core/AppObjects.h"
#include "db/SearchIndex.h"
#include "platform/Database.h"

namespace ventlock {

/// The open connection of the shared "Connection". Fetch it for every call: a switch replaces it.
/// @throws RunTimeError 91 without AppObjects or without an open connection, 5 when there is no "Connection".
IConnection& DatabaseOf(const AppObjects* oAppObjects);

/// A snapshot of a query's rows on that connection.
std::unique_ptr<Recordset> OpenSnapshot(const AppObjects* oAppObjects, std::string_view statement);

/// A snapshot for a walk that looks for a row. In a transaction rows that make no difference to the walk are
/// left out.
std::unique_ptr<Recordset> OpenSearch(const AppObjects* oAppObjects, std::string_view statement,
                                      const RowSearch& search);

}  // namespace ventlock
