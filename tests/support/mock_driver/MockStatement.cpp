// Statements and rows of the mock driver.

#include <algorithm>

#include "MockState.h"

using ventlock::mock::HangUntil;
using ventlock::mock::Manner;
using ventlock::mock::RowsOf;
using ventlock::mock::State;
using ventlock::mock::Statement;

namespace {

constexpr SQLULEN kMostRowsAtOnce = 2;
constexpr SQLULEN kColumnSize = 8;

SQLRETURN Fail(Statement& statement, std::vector<ventlock::mock::Record> records) {
    statement.records = std::move(records);
    return SQL_ERROR;
}

SQLRETURN HangUntilCancelled(Statement& statement) {
    HangUntil([&statement] { return statement.cancelled; });
    if (statement.connection->manner == Manner::SucceedsWhenCancelled) return SQL_SUCCESS;
    return Fail(statement, {{"HY008", 57, u"Operation cancelled"}});
}

SQLRETURN Execute(Statement& statement) {
    switch (statement.connection->manner) {
        case Manner::HangsInExecute:
            HangUntil([] { return State().released; });
            return SQL_SUCCESS;
        case Manner::HangsUntilCancelled:
        case Manner::SucceedsWhenCancelled:
            return HangUntilCancelled(statement);
        case Manner::ThreeRecords:
            return Fail(statement, {{"42000", 1, u"first"},
                                    {"HY000", 2, std::u16string(3000, u'x')},
                                    {"01000", -3, u"thi\u03A9rd"}});
        case Manner::NoRecord:
            return SQL_ERROR;
        case Manner::WithInfo:
            statement.records = {{"01000", 4, u"Done with a warning"}};
            return SQL_SUCCESS_WITH_INFO;
        case Manner::NoData:
            return SQL_NO_DATA;
        case Manner::BreaksLink:
            return Fail(statement, {{"08S01", 9, u"Link failure"}});
        case Manner::LosesLink:
            statement.connection->lost = true;
            return Fail(statement, {{"HY000", 9, u"Gone"}});
        case Manner::SmallBlocks:
        case Manner::LongCell:
        case Manner::SpoiltRow:
        case Manner::FailsInFetch:
        case Manner::HangsInFetch:
            statement.hasRows = true;
            return SQL_SUCCESS;
        default:
            return SQL_SUCCESS;
    }
}

// Fills a buffer with as much of the text as fits behind `from`.
SQLRETURN GiveCell(const std::u16string& text, std::size_t from, SQLWCHAR* target, SQLLEN bytes,
                   SQLLEN* length) {
    const std::size_t left = text.size() - from;
    const std::size_t units = std::min(left, static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR) - 1);
    std::copy_n(text.begin() + static_cast<std::ptrdiff_t>(from), units, target);
    target[units] = 0;
    if (length != nullptr) *length = static_cast<SQLLEN>(left * sizeof(SQLWCHAR));
    return units < left ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

}  // namespace

extern "C" {

SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* /*unused*/, SQLINTEGER /*unused*/) {
    auto& statement = *static_cast<Statement*>(handle);
    {
        const std::lock_guard lock(State().mutex);
        ++State().executions;
    }
    statement.records.clear();
    statement.nextRow = 0;
    return Execute(statement);
}

SQLRETURN SQL_API SQLCancel(SQLHSTMT handle) {
    const std::lock_guard lock(State().mutex);
    ++State().cancels;
    static_cast<Statement*>(handle)->cancelled = true;
    State().changed.notify_all();
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT option) {
    auto& statement = *static_cast<Statement*>(handle);
    if (option == SQL_UNBIND) statement.target = nullptr;
    if (option == SQL_CLOSE) statement.hasRows = false;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLCloseCursor(SQLHSTMT handle) {
    return SQLFreeStmt(handle, SQL_CLOSE);
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count) {
    *count = static_cast<Statement*>(handle)->hasRows ? 1 : 0;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT /*unused*/, SQLLEN* count) {
    *count = 0;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDescribeColW(SQLHSTMT /*unused*/, SQLUSMALLINT /*unused*/, SQLWCHAR* name,
                                  SQLSMALLINT units, SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size,
                                  SQLSMALLINT* digits, SQLSMALLINT* nullable) {
    if (name != nullptr && units > 1) {
        name[0] = 0x03A9;
        name[1] = 0;
    }
    if (length != nullptr) *length = 1;
    if (type != nullptr) *type = SQL_WVARCHAR;
    if (size != nullptr) *size = kColumnSize;
    if (digits != nullptr) *digits = 0;
    if (nullable != nullptr) *nullable = SQL_NULLABLE;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLColAttributeW(SQLHSTMT /*unused*/, SQLUSMALLINT /*unused*/, SQLUSMALLINT /*unused*/,
                                   SQLPOINTER /*unused*/, SQLSMALLINT /*unused*/, SQLSMALLINT* /*unused*/,
                                   SQLLEN* number) {
    if (number != nullptr) *number = static_cast<SQLLEN>(kColumnSize);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLBindCol(SQLHSTMT handle, SQLUSMALLINT /*unused*/, SQLSMALLINT /*unused*/,
                             SQLPOINTER target, SQLLEN bytes, SQLLEN* lengths) {
    auto& statement = *static_cast<Statement*>(handle);
    statement.target = static_cast<SQLWCHAR*>(target);
    statement.targetBytes = bytes;
    statement.lengths = lengths;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT handle) {
    auto& statement = *static_cast<Statement*>(handle);
    if (statement.connection->manner == Manner::HangsInFetch) HangUntil([] { return State().released; });
    if (statement.connection->manner == Manner::FailsInFetch)
        return Fail(statement, {{"40001", 8, u"Given up"}});
    const std::vector<std::u16string> rows = RowsOf(statement.connection->manner);
    if (statement.nextRow >= rows.size()) return SQL_NO_DATA;
    const std::size_t count = std::min<std::size_t>(statement.rowArraySize, rows.size() - statement.nextRow);
    SQLRETURN result = SQL_SUCCESS;
    for (std::size_t i = 0; i < statement.rowArraySize; ++i) {
        if (statement.rowStates != nullptr)
            statement.rowStates[i] = i < count ? SQL_ROW_SUCCESS : SQL_ROW_NOROW;
        if (i >= count || statement.target == nullptr) continue;
        SQLWCHAR* target =
            statement.target + i * static_cast<std::size_t>(statement.targetBytes) / sizeof(SQLWCHAR);
        const SQLRETURN cell =
            GiveCell(rows[statement.nextRow + i], 0, target, statement.targetBytes, statement.lengths + i);
        if (cell == SQL_SUCCESS_WITH_INFO) result = SQL_SUCCESS_WITH_INFO;
    }
    if (statement.connection->manner == Manner::SpoiltRow) {
        statement.records = {{"22018", 7, u"No text"}};
        if (statement.rowStates != nullptr) statement.rowStates[1] = SQL_ROW_ERROR;
        result = SQL_SUCCESS_WITH_INFO;
    }
    if (statement.rowsFetched != nullptr) *statement.rowsFetched = count;
    statement.nextRow += count;
    statement.readUnits = 0;
    return result;
}

SQLRETURN SQL_API SQLGetData(SQLHSTMT handle, SQLUSMALLINT /*unused*/, SQLSMALLINT /*unused*/,
                             SQLPOINTER target, SQLLEN bytes, SQLLEN* length) {
    auto& statement = *static_cast<Statement*>(handle);
    const std::u16string text = RowsOf(statement.connection->manner)[statement.nextRow - 1];
    if (statement.readUnits > 0 && statement.readUnits == text.size()) return SQL_NO_DATA;
    const SQLRETURN result =
        GiveCell(text, statement.readUnits, static_cast<SQLWCHAR*>(target), bytes, length);
    statement.readUnits =
        std::min(text.size(), statement.readUnits + static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR) - 1);
    if (result == SQL_SUCCESS_WITH_INFO && length != nullptr) *length = SQL_NO_TOTAL;
    return result;
}

SQLRETURN SQL_API SQLSetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value,
                                  SQLINTEGER /*unused*/) {
    auto& statement = *static_cast<Statement*>(handle);
    if (attribute == SQL_ATTR_ROWS_FETCHED_PTR) statement.rowsFetched = static_cast<SQLULEN*>(value);
    if (attribute == SQL_ATTR_ROW_STATUS_PTR) statement.rowStates = static_cast<SQLUSMALLINT*>(value);
    if (attribute != SQL_ATTR_ROW_ARRAY_SIZE) return SQL_SUCCESS;
    const auto wanted = reinterpret_cast<SQLULEN>(value);
    statement.rowArraySize = std::min(wanted, kMostRowsAtOnce);
    return wanted > kMostRowsAtOnce ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value,
                                  SQLINTEGER /*unused*/, SQLINTEGER* /*unused*/) {
    if (attribute != SQL_ATTR_ROW_ARRAY_SIZE) return SQL_ERROR;
    *static_cast<SQLULEN*>(value) = static_cast<Statement*>(handle)->rowArraySize;
    return SQL_SUCCESS;
}
}
