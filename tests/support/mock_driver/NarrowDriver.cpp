// A driver that has the functions without "W" only. It ends a text that it translates where the caller's room
// ends, but in the text that it was given, as the driver for SQLite does.

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstring>

extern "C" {

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT /*unused*/, SQLHANDLE /*unused*/, SQLHANDLE* handle) {
    *handle = new char;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT /*unused*/, SQLHANDLE handle) {
    delete static_cast<char*>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV /*unused*/, SQLINTEGER /*unused*/, SQLPOINTER /*unused*/,
                                SQLINTEGER /*unused*/) {
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDriverConnect(SQLHDBC /*unused*/, SQLHWND /*unused*/, SQLCHAR* /*unused*/,
                                   SQLSMALLINT /*unused*/, SQLCHAR* /*unused*/, SQLSMALLINT /*unused*/,
                                   SQLSMALLINT* /*unused*/, SQLUSMALLINT /*unused*/) {
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC /*unused*/) {
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetInfo(SQLHDBC /*unused*/, SQLUSMALLINT /*unused*/, SQLPOINTER target,
                             SQLSMALLINT bytes, SQLSMALLINT* /*unused*/) {
    std::memset(target, 0, bytes >= 4 ? 4 : 2);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLNativeSql(SQLHDBC /*unused*/, SQLCHAR* text, SQLINTEGER /*unused*/, SQLCHAR* target,
                               SQLINTEGER room, SQLINTEGER* whole) {
    const std::size_t length = std::strlen(reinterpret_cast<const char*>(text));
    std::copy_n(text, std::min<std::size_t>(length + 1, room - 1), target);
    text[room - 1] = 0;
    if (whole != nullptr) *whole = static_cast<SQLINTEGER>(length);
    return SQL_SUCCESS;
}
}
