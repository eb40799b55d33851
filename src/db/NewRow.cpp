#include "db/NewRow.h"

#include "db/RowChange.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

constexpr std::string_view kInsert = "INSERT INTO ";
constexpr std::string_view kNameEnds = " ,()";

std::string_view WordAt(std::string_view text, std::size_t at) {
    at = text.find_first_not_of(' ', at);
    if (at == std::string_view::npos) return {};
    return text.substr(at, text.find_first_of(kNameEnds, at) - at);
}

/// The column that a result column stands for: the word before " AS <column>", else itself. All in upper
/// case, because some databases give the names of result columns in a letter case of their own.
std::string_view SourceColumn(std::string_view select, std::string_view column) {
    const std::string alias = " AS " + std::string(column);
    for (std::size_t at = select.find(alias); at != std::string_view::npos; at = select.find(alias, at + 1)) {
        const std::size_t end = at + alias.size();
        if (end < select.size() && kNameEnds.find(select[end]) == std::string_view::npos) continue;
        const std::size_t begin = select.find_last_of(' ', at - 1);
        return select.substr(begin + 1, at - begin - 1);
    }
    return column;
}

}  // namespace

bool IsInsert(std::string_view statement) {
    return statement.starts_with(kInsert);
}

std::optional<NewRow> RowOf(std::string_view statement) {
    const std::optional<RowChange> change = IsInsert(statement) ? ChangeOf(statement) : std::nullopt;
    if (!change) return std::nullopt;
    NewRow row{UpperCase(change->table), {}};
    for (const ColumnValue& value : change->values) row.values[UpperCase(value.column)] = value.value;
    return row;
}

std::string TableOf(std::string_view query) {
    constexpr std::string_view kFrom = " FROM ";
    const std::string upper = UpperCase(query);
    const std::size_t from = upper.find(kFrom);
    return from == std::string::npos ? "" : std::string(WordAt(upper, from + kFrom.size()));
}

void AppendTo(Recordset& rows, std::string_view query, const NewRow& row) {
    const std::string upper = UpperCase(query);
    RowCells cells;
    for (const std::string& column : rows.Columns()) {
        const std::string name = UpperCase(column);
        const auto value = row.values.find(std::string(SourceColumn(upper, name)));
        cells.push_back(value == row.values.end() ? std::nullopt
                                                  : std::optional<std::string_view>(value->second));
    }
    rows.AppendRow(cells);
}

}  // namespace ventlock
