// Handles, connecting, attributes and diagnostics of the mock driver.

#include <algorithm>
#include <cstring>

#include "MockState.h"

using ventlock::mock::Connection;
using ventlock::mock::Environment;
using ventlock::mock::HangUntil;
using ventlock::mock::Manner;
using ventlock::mock::Record;
using ventlock::mock::State;
using ventlock::mock::Statement;

namespace {

std::u16string Text(const SQLWCHAR* text, SQLINTEGER length) {
    std::u16string units;
    for (SQLINTEGER i = 0; length == SQL_NTS ? text[i] != 0 : i < length; ++i)
        units += static_cast<char16_t>(text[i]);
    return units;
}

// Copies as much as fits and says how long the whole is.
SQLRETURN Give(const std::u16string& text, SQLWCHAR* target, std::size_t capacity, SQLSMALLINT* length) {
    if (length != nullptr) *length = static_cast<SQLSMALLINT>(text.size());
    if (target == nullptr || capacity == 0) return SQL_SUCCESS;
    const std::size_t units = std::min(text.size(), capacity - 1);
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(units), target,
                   [](char16_t unit) { return static_cast<SQLWCHAR>(unit); });
    target[units] = 0;
    return units < text.size() ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

const std::vector<Record>* RecordsOf(SQLSMALLINT type, SQLHANDLE handle) {
    if (type == SQL_HANDLE_DBC) return &static_cast<Connection*>(handle)->records;
    if (type == SQL_HANDLE_STMT) return &static_cast<Statement*>(handle)->records;
    return nullptr;
}

}  // namespace

extern "C" {

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT type, SQLHANDLE parent, SQLHANDLE* handle) {
    if (type == SQL_HANDLE_ENV) *handle = new Environment;
    if (type == SQL_HANDLE_DBC) *handle = new Connection;
    if (type == SQL_HANDLE_STMT) {
        auto* const statement = new Statement;
        statement->connection = static_cast<Connection*>(parent);
        *handle = statement;
    }
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT type, SQLHANDLE handle) {
    if (type == SQL_HANDLE_ENV) delete static_cast<Environment*>(handle);
    if (type == SQL_HANDLE_DBC) delete static_cast<Connection*>(handle);
    if (type == SQL_HANDLE_STMT) delete static_cast<Statement*>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV /*unused*/, SQLINTEGER /*unused*/, SQLPOINTER /*unused*/,
                                SQLINTEGER /*unused*/) {
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDriverConnectW(SQLHDBC handle, SQLHWND /*unused*/, SQLWCHAR* connect, SQLSMALLINT length,
                                    SQLWCHAR* /*unused*/, SQLSMALLINT /*unused*/, SQLSMALLINT* /*unused*/,
                                    SQLUSMALLINT /*unused*/) {
    auto* connection = static_cast<Connection*>(handle);
    const std::u16string text = Text(connect, length);
    connection->manner = ventlock::mock::MannerOf(text);
    connection->records.clear();
    if (connection->manner == Manner::HangsInConnect) HangUntil([] { return State().released; });
    if (connection->manner == Manner::RefusesConnect) {
        connection->records = {{"28000", 18, u"No login with " + text}};
        return SQL_ERROR;
    }
    if (connection->manner != Manner::WithInfo) return SQL_SUCCESS;
    connection->records = {{"01000", 1, u"Connected with a warning"}};
    return SQL_SUCCESS_WITH_INFO;
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC handle) {
    if (static_cast<Connection*>(handle)->manner == Manner::HangsInDisconnect) {
        HangUntil([] { return State().released; });
    }
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetInfoW(SQLHDBC handle, SQLUSMALLINT kind, SQLPOINTER target, SQLSMALLINT bytes,
                              SQLSMALLINT* length) {
    std::u16string text;
    if (kind == SQL_DRIVER_ODBC_VER) text = u"03.00";
    if (kind == SQL_DRIVER_NAME) text = u"mock";
    if (kind == SQL_DBMS_NAME) text = u"M\u00F6ck \u03A9";
    if (text.empty() && kind != SQL_DRIVER_VER && kind != SQL_DBMS_VER) {
        std::memset(target, 0, bytes >= 4 ? 4 : 2);  // a number
        const bool readsCommitted = static_cast<Connection*>(handle)->manner == Manner::ReadsCommitted;
        if (readsCommitted && kind == SQL_TXN_CAPABLE) *static_cast<SQLUSMALLINT*>(target) = SQL_TC_ALL;
        if (readsCommitted && kind == SQL_TXN_ISOLATION_OPTION)
            *static_cast<SQLUINTEGER*>(target) = SQL_TXN_READ_COMMITTED;
        return SQL_SUCCESS;
    }
    const SQLRETURN result = Give(text, static_cast<SQLWCHAR*>(target),
                                  static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), length);
    if (length != nullptr) *length = static_cast<SQLSMALLINT>(text.size() * sizeof(SQLWCHAR));
    return result;
}

SQLRETURN SQL_API SQLSetConnectAttrW(SQLHDBC /*unused*/, SQLINTEGER attribute, SQLPOINTER value,
                                     SQLINTEGER /*unused*/) {
    if (attribute == SQL_ATTR_ACCESS_MODE && reinterpret_cast<SQLULEN>(value) == SQL_MODE_READ_ONLY) {
        const std::lock_guard lock(State().mutex);
        ++State().readOnlyConnections;
    }
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetConnectAttrW(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value,
                                     SQLINTEGER /*unused*/, SQLINTEGER* /*unused*/) {
    if (attribute != SQL_ATTR_CONNECTION_DEAD) return SQL_ERROR;
    *static_cast<SQLUINTEGER*>(value) = static_cast<Connection*>(handle)->lost ? SQL_CD_TRUE : SQL_CD_FALSE;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLNativeSqlW(SQLHDBC /*unused*/, SQLWCHAR* text, SQLINTEGER length, SQLWCHAR* target,
                                SQLINTEGER units, SQLINTEGER* whole) {
    SQLSMALLINT size = 0;
    const SQLRETURN result = Give(Text(text, length), target, static_cast<std::size_t>(units), &size);
    if (whole != nullptr) *whole = size;
    return result;
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, SQLWCHAR* state,
                                 SQLINTEGER* native, SQLWCHAR* text, SQLSMALLINT units, SQLSMALLINT* length) {
    const std::vector<Record>* records = RecordsOf(type, handle);
    if (records == nullptr || static_cast<std::size_t>(number) > records->size()) return SQL_NO_DATA;
    const Record& record = (*records)[static_cast<std::size_t>(number) - 1];
    if (state != nullptr) std::copy_n(record.state.c_str(), 6, state);
    if (native != nullptr) *native = record.native;
    return Give(record.text, text, static_cast<std::size_t>(units), length);
}

SQLRETURN SQL_API SQLGetDiagFieldW(SQLSMALLINT /*unused*/, SQLHANDLE /*unused*/, SQLSMALLINT /*unused*/,
                                   SQLSMALLINT /*unused*/, SQLPOINTER /*unused*/, SQLSMALLINT /*unused*/,
                                   SQLSMALLINT* /*unused*/) {
    return SQL_NO_DATA;
}
}
