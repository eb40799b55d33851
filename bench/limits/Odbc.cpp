#include "limits/Odbc.h"

#include <array>
#include <stdexcept>

namespace ventlock::bench {
namespace {

auto* Bytes(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

}  // namespace

void Require(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle) {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    std::array<SQLCHAR, 6> state{};
    std::array<SQLCHAR, 512> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRec(type, handle, 1, state.data(), &native, text.data(), text.size(), &length);
    throw std::runtime_error(reinterpret_cast<const char*>(text.data()));
}

Odbc::Odbc(const std::string& dataSource) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<void*>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    const std::string connect = "UID=sa;PWD=;DSN=" + dataSource;
    Require(SQLDriverConnect(connection_, nullptr, Bytes(connect), SQL_NTS, nullptr, 0, nullptr,
                             SQL_DRIVER_NOPROMPT),
            SQL_HANDLE_DBC, connection_);
    std::array<char, 64> driver{};
    SQLGetInfo(connection_, SQL_DRIVER_NAME, driver.data(), driver.size(), nullptr);
    isWide_ = std::string(driver.data()).find("sqlite") == std::string::npos;
}

Odbc::~Odbc() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

SQLHSTMT Odbc::Run(const std::string& text) {
    SQLHSTMT statement = nullptr;
    Require(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement), SQL_HANDLE_DBC, connection_);
    Require(SQLExecDirect(statement, Bytes(text), SQL_NTS), SQL_HANDLE_STMT, statement);
    return statement;
}

void Odbc::Free(SQLHSTMT statement) {
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

void Odbc::Begin() {
    Require(SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<void*>(SQL_AUTOCOMMIT_OFF),
                              SQL_IS_UINTEGER),
            SQL_HANDLE_DBC, connection_);
}

void Odbc::Commit() {
    Require(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT), SQL_HANDLE_DBC, connection_);
}

}  // namespace ventlock::bench
