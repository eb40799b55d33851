#pragma once

#include <memory>
#include <string_view>

#include "platform/Recordset.h"
#include "platform/odbc/Statement.h"

namespace ventlock::odbc {

/// Runs a query as it stands and reads its rows to the end. Rows come in blocks when the driver says that
/// every column is short, else one by one with long texts in pieces. A driver that promised less than a cell
/// holds is asked once more, row by row: no text is ever cut. A statement without columns gives a recordset
/// without any.
/// @throws RunTimeError 3146.
std::unique_ptr<Recordset> ReadSnapshot(Statement& statement, std::string_view query);

}  // namespace ventlock::odbc
