#include "platform/odbc/SnapshotReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "OdbcApi.h"
#include "platform/odbc/Calls.h"

namespace ventlock::odbc {
namespace {

constexpr std::size_t kRowsInBlock = 256;
constexpr SQLLEN kLongestBound = 1024;     // characters
constexpr std::size_t kPieceUnits = 4096;  // of a long text

struct ColumnFacts {
    std::string name;
    std::size_t units = 0;  // of the longest text with its NUL, 0: long or unknown
};

// A column of a block of rows.
template <class Char>
struct BoundColumn {
    std::size_t units = 0;
    Char* texts = nullptr;
    std::vector<SQLLEN> lengths;  // in bytes, or SQL_NULL_DATA

    [[nodiscard]] bool IsCut(std::size_t row) const {
        const SQLLEN length = lengths[row];
        return length == SQL_NO_TOTAL || length > static_cast<SQLLEN>((units - 1) * sizeof(Char));
    }

    void AppendTo(Recordset& rows, std::size_t row, std::string& room) const {
        if (lengths[row] == SQL_NULL_DATA) {
            rows.AppendCell(std::nullopt);
        } else {
            rows.AppendCell(Calls<Char>::View(texts + row * units,
                                              static_cast<std::size_t>(lengths[row]) / sizeof(Char), room));
        }
    }
};

template <class Char>
std::string ColumnName(Statement& statement, SQLUSMALLINT column) {
    std::vector<Char> name(128);
    for (;;) {
        statement.Require(Calls<Char>::ColumnName(statement.Get(), column, name.data(),
                                                  static_cast<SQLSMALLINT>(name.size())));
        const std::size_t filled = FilledLength(name.data(), name.size());
        if (filled + 1 < name.size() || name.size() >= INT16_MAX)
            return Calls<Char>::Decode(name.data(), filled);
        name.assign(std::min<std::size_t>(name.size() * 4, INT16_MAX), 0);
    }
}

template <class Char>
std::size_t BoundUnits(Statement& statement, SQLUSMALLINT column) {
    SQLLEN characters = 0;
    const SQLRETURN result =
        SQLColAttributeW(statement.Get(), column, SQL_DESC_DISPLAY_SIZE, nullptr, 0, nullptr, &characters);
    if (!SQL_SUCCEEDED(result) || characters < 1 || characters > kLongestBound) return 0;
    return static_cast<std::size_t>(characters) * Calls<Char>::kUnitsOfCharacter + 1;
}

template <class Char>
std::vector<ColumnFacts> DescribeColumns(Statement& statement) {
    SQLSMALLINT count = 0;
    statement.Require(SQLNumResultCols(statement.Get(), &count));
    std::vector<ColumnFacts> columns;
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        const auto column = static_cast<SQLUSMALLINT>(i);
        columns.push_back({ColumnName<Char>(statement, column), BoundUnits<Char>(statement, column)});
    }
    return columns;
}

std::unique_ptr<Recordset> EmptyRecordset(const std::vector<ColumnFacts>& columns) {
    std::vector<std::string> names;
    names.reserve(columns.size());
    for (const ColumnFacts& column : columns) names.push_back(column.name);
    return std::make_unique<Recordset>(std::move(names));
}

std::size_t AskForBlocks(Statement& statement) {
    SQLSetStmtAttrW(statement.Get(), SQL_ATTR_ROW_ARRAY_SIZE, AttributeValue(kRowsInBlock), SQL_IS_UINTEGER);
    SQLULEN granted = 1;
    statement.Require(
        SQLGetStmtAttrW(statement.Get(), SQL_ATTR_ROW_ARRAY_SIZE, &granted, SQL_IS_UINTEGER, nullptr));
    return std::clamp<std::size_t>(granted, 1, kRowsInBlock);
}

// Rows in blocks; nothing when a cell was longer than its column was said to be.
template <class Char>
std::unique_ptr<Recordset> ReadBlocks(Statement& statement, const std::vector<ColumnFacts>& columns) {
    const std::size_t rowsInBlock = AskForBlocks(statement);
    std::size_t unitsOfRow = 0;
    for (const ColumnFacts& column : columns) unitsOfRow += column.units;
    auto* texts = reinterpret_cast<Char*>(statement.RoomForRows(rowsInBlock * unitsOfRow * sizeof(Char)));
    std::vector<BoundColumn<Char>> bound(columns.size());
    for (std::size_t i = 0; i < bound.size(); ++i) {
        bound[i].units = columns[i].units;
        bound[i].texts = texts;
        bound[i].lengths.resize(rowsInBlock, SQL_NULL_DATA);
        texts += rowsInBlock * bound[i].units;
        statement.Require(SQLBindCol(
            statement.Get(), static_cast<SQLUSMALLINT>(i + 1), Calls<Char>::kBufferType, bound[i].texts,
            static_cast<SQLLEN>(bound[i].units * sizeof(Char)), bound[i].lengths.data()));
    }
    SQLULEN fetched = 0;
    std::vector<SQLUSMALLINT> states(rowsInBlock, SQL_ROW_SUCCESS);
    statement.Require(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched, SQL_IS_POINTER));
    statement.Require(
        SQLSetStmtAttrW(statement.Get(), SQL_ATTR_ROW_STATUS_PTR, states.data(), SQL_IS_POINTER));

    std::unique_ptr<Recordset> rows = EmptyRecordset(columns);
    std::string room;
    for (;;) {
        statement.CheckCancelled();
        const SQLRETURN result = SQLFetch(statement.Get());
        if (result == SQL_NO_DATA) return rows;
        statement.Require(result);
        for (std::size_t row = 0; row < std::min<std::size_t>(fetched, rowsInBlock); ++row) {
            if (states[row] == SQL_ROW_ERROR) statement.Require(SQL_ERROR);
            if (states[row] == SQL_ROW_NOROW) continue;
            for (const BoundColumn<Char>& column : bound) {
                if (column.IsCut(row)) return nullptr;
                column.AppendTo(*rows, row, room);
            }
        }
    }
}

// A text of any length, in pieces; they are put together before they are converted, because a piece may end
// between the units of one character.
template <class Char>
std::optional<std::string> ReadLongText(Statement& statement, SQLUSMALLINT column, std::vector<Char>& text) {
    std::size_t filled = 0;
    for (;;) {
        if (text.size() < filled + kPieceUnits) text.resize(filled + kPieceUnits);
        SQLLEN length = 0;
        const auto room = static_cast<SQLLEN>(kPieceUnits * sizeof(Char));
        const SQLRETURN result = SQLGetData(statement.Get(), column, Calls<Char>::kBufferType,
                                            text.data() + filled, room, &length);
        if (result == SQL_NO_DATA) break;
        statement.Require(result);
        if (length == SQL_NULL_DATA) return std::nullopt;
        const bool more = length == SQL_NO_TOTAL || length >= room;
        filled += more ? FilledLength(text.data() + filled, kPieceUnits - 1)
                       : static_cast<std::size_t>(length) / sizeof(Char);
        if (!more) break;
    }
    return Calls<Char>::Decode(text.data(), filled);
}

template <class Char>
std::unique_ptr<Recordset> ReadRowByRow(Statement& statement, const std::vector<ColumnFacts>& columns) {
    std::unique_ptr<Recordset> rows = EmptyRecordset(columns);
    std::vector<Char> buffer;
    for (;;) {
        statement.CheckCancelled();
        const SQLRETURN result = SQLFetch(statement.Get());
        if (result == SQL_NO_DATA) return rows;
        statement.Require(result);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            rows->AppendCell(ReadLongText(statement, static_cast<SQLUSMALLINT>(i + 1), buffer));
        }
    }
}

void BackToSingleRows(Statement& statement) {
    statement.Close();
    statement.Require(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, SQL_IS_POINTER));
    statement.Require(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_ROW_STATUS_PTR, nullptr, SQL_IS_POINTER));
    statement.Require(
        SQLSetStmtAttrW(statement.Get(), SQL_ATTR_ROW_ARRAY_SIZE, AttributeValue(1), SQL_IS_UINTEGER));
}

template <class Char>
std::unique_ptr<Recordset> Read(Statement& statement, std::string_view query) {
    statement.Execute(query);
    statement.CheckCancelled();
    const std::vector<ColumnFacts> columns = DescribeColumns<Char>(statement);
    if (columns.empty()) return EmptyRecordset(columns);
    const bool allShort = std::all_of(columns.begin(), columns.end(),
                                      [](const ColumnFacts& column) { return column.units > 0; });
    if (allShort) {
        if (std::unique_ptr<Recordset> rows = ReadBlocks<Char>(statement, columns)) return rows;
        BackToSingleRows(statement);
        statement.Execute(query);
    }
    return ReadRowByRow<Char>(statement, columns);
}

}  // namespace

std::unique_ptr<Recordset> ReadSnapshot(Statement& statement, std::string_view query) {
    if (statement.Form() == TextForm::Wide) return Read<SQLWCHAR>(statement, query);
    return Read<SQLCHAR>(statement, query);
}

}  // namespace ventlock::odbc
