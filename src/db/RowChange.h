#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ventlock {

/// A column and what a statement says of it.
struct ColumnValue {
    std::string column;
    std::string value;
    bool isText = false;  ///< in quotes, which are left out

    bool operator==(const ColumnValue&) const = default;
};

/// What a statement does to a table, as its text says it. Names are spelled as there.
struct RowChange {
    std::string table;
    std::vector<ColumnValue> values;  ///< what the columns are to hold
    std::vector<ColumnValue> key;     ///< what the rows are found by; empty for a new row
};

/// The change that an update or insert statement makes. Nothing when its text is none of that form.
std::optional<RowChange> ChangeOf(std::string_view statement);

/// The columns that the rows of a statement are found by: those behind its WHERE.
std::vector<std::string> KeyColumnsOf(std::string_view statement);

}  // namespace ventlock
