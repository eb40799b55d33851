#include "db/NewRow.h"

#include <vector>

#include "base/Text.h"
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

/// The value at or after `at`, which is moved to the "," or ")" that ends it. A text in quotes is taken as it
/// stands, with a doubled apostrophe as one. Nothing when the text there is no value.
std::optional<std::string> ValueAt(std::string_view text, std::size_t& at) {
    at = text.find_first_not_of(' ', at);
    if (at == std::string_view::npos) return std::nullopt;
    if (text[at] != '\'') {
        const std::size_t begin = at;
        at = text.find_first_of(",)", at);
        if (at == std::string_view::npos) return std::nullopt;
        return std::string(Trim(text.substr(begin, at - begin)));
    }
    std::string value;
    for (bool isOpen = true; isOpen;) {
        const std::size_t begin = at + 1;
        at = text.find('\'', begin);
        if (at == std::string_view::npos) return std::nullopt;
        value += text.substr(begin, at - begin);
        ++at;
        isOpen = at < text.size() && text[at] == '\'';
        if (isOpen) value += '\'';
    }
    at = text.find_first_not_of(' ', at);
    if (at == std::string_view::npos || (text[at] != ',' && text[at] != ')')) return std::nullopt;
    return value;
}

/// The list between the parentheses that open at or after `at`, which is moved to the closing one. Nothing
/// when the text is no such list.
std::optional<std::vector<std::string>> ListAt(std::string_view text, std::size_t& at) {
    at = text.find('(', at);
    if (at == std::string_view::npos) return std::nullopt;
    std::vector<std::string> items;
    do {
        ++at;
        std::optional<std::string> item = ValueAt(text, at);
        if (!item) return std::nullopt;
        items.push_back(std::move(*item));
    } while (text[at] == ',');
    return items;
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
    std::size_t at = kInsert.size();
    NewRow row{UpperCase(WordAt(statement, at)), {}};
    const auto columns = ListAt(statement, at);
    const auto values = columns ? ListAt(statement, at) : std::nullopt;
    if (!values || values->size() != columns->size()) return std::nullopt;
    for (std::size_t i = 0; i < columns->size(); ++i) row.values[UpperCase((*columns)[i])] = (*values)[i];
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
