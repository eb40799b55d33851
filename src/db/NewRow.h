#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Recordset.h"

namespace ventlock {

/// A row that a statement adds to a table, as the statement's text says it. Names are in upper case.
struct NewRow {
    std::string table;
    std::map<std::string, std::string> values;  ///< by column
};

/// True for the statements that add a row.
bool IsInsert(std::string_view statement);

/// The row that an insert statement adds. Nothing when its text is no list of columns and one of as many
/// values; a database refuses that.
std::optional<NewRow> RowOf(std::string_view statement);

/// The upper-cased name of the table that a query reads, "" when it names none.
std::string TableOf(std::string_view query);

/// Adds the row at the end of what the query has given. Columns that the row does not name are NULL.
void AppendTo(Recordset& rows, std::string_view query, const NewRow& row);

}  // namespace ventlock
