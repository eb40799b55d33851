#include "support/OdbcProbe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <vector>

#include "OdbcApi.h"
#include "base/Utf.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

std::vector<SQLWCHAR> Wide(std::string_view utf8) {
    const std::u16string units = ToUtf16(utf8);
    std::vector<SQLWCHAR> wide(units.begin(), units.end());
    wide.push_back(0);
    return wide;
}

std::string Narrow(const std::vector<SQLWCHAR>& wide) {
    return FromUtf16(std::u16string(wide.begin(), wide.end()));
}

// Reads one cell in pieces of `Char`s.
template <class Char>
std::optional<std::vector<Char>> Cell(SQLHANDLE statement, SQLUSMALLINT column, SQLSMALLINT type) {
    std::vector<Char> text;
    for (;;) {
        std::array<Char, 512> piece{};
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(statement, column, type, piece.data(), sizeof(piece), &length);
        if (result == SQL_NO_DATA) break;
        EXPECT_TRUE(SQL_SUCCEEDED(result)) << "column " << column << " cannot be read";
        if (!SQL_SUCCEEDED(result)) break;
        if (length == SQL_NULL_DATA) return std::nullopt;
        text.insert(text.end(), piece.begin(), std::find(piece.begin(), piece.end(), Char{0}));
        if (result == SQL_SUCCESS) break;
    }
    return text;
}

std::string CellText(SQLHANDLE statement, SQLUSMALLINT column, ProbeText form) {
    if (form == ProbeText::Bytes) {
        const auto text = Cell<char>(statement, column, SQL_C_CHAR);
        return text ? std::string(text->begin(), text->end()) : "NULL";
    }
    const auto text = Cell<SQLWCHAR>(statement, column, SQL_C_WCHAR);
    return text ? Narrow(*text) : "NULL";
}

}  // namespace

OdbcProbe::OdbcProbe(const std::string& connect, ProbeText text) : text_(text) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    auto* const version = reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3);  // NOLINT(performance-no-int-to-ptr)
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, version, 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    std::vector<SQLWCHAR> wide = Wide(connect);
    const SQLRETURN result = SQLDriverConnectW(connection_, nullptr, wide.data(), SQL_NTS, nullptr, 0,
                                               nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) Fail(SQL_HANDLE_DBC, connection_, connect);
}

OdbcProbe::~OdbcProbe() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

void OdbcProbe::Fail(short handleType, void* handle, std::string_view what) {
    std::array<SQLWCHAR, 6> state{};
    std::vector<SQLWCHAR> text(2048);
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRecW(handleType, handle, 1, state.data(), &native, text.data(),
                   static_cast<SQLSMALLINT>(text.size()), &length);
    ADD_FAILURE() << what << ": " << Narrow(text).c_str();
}

short OdbcProbe::ExecuteDirectly(void* statement, const std::string& sql) {
    if (text_ == ProbeText::Bytes) {
        std::vector<SQLCHAR> bytes(sql.begin(), sql.end());
        bytes.push_back(0);
        return SQLExecDirect(statement, bytes.data(), SQL_NTS);
    }
    std::vector<SQLWCHAR> wide = Wide(sql);
    return SQLExecDirectW(statement, wide.data(), SQL_NTS);
}

void* OdbcProbe::Run(std::string_view sql) {
    SQLHANDLE statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
    const SQLRETURN result = ExecuteDirectly(statement, std::string(sql));
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) Fail(SQL_HANDLE_STMT, statement, sql);
    return statement;
}

void OdbcProbe::Execute(std::string_view sql) {
    SQLFreeHandle(SQL_HANDLE_STMT, Run(sql));
}

std::string OdbcProbe::Rows(std::string_view sql) {
    SQLHANDLE statement = Run(sql);
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    std::string rows;
    while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement))) {
        for (SQLSMALLINT i = 1; i <= columns; ++i) {
            if (i > 1) rows += '|';
            rows += CellText(statement, static_cast<SQLUSMALLINT>(i), text_);
        }
        rows += '\n';
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return rows;
}

void OdbcProbe::RunScript(const std::string& path) {
    std::istringstream lines(ReadBytes(path));
    std::string statement;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("--")) continue;
        statement += line + '\n';
        if (line.empty() || line.back() != ';') continue;
        statement.resize(statement.rfind(';'));
        Execute(statement);
        statement.clear();
    }
    EXPECT_EQ(statement.find_first_not_of(" \n"), std::string::npos) << path << " ends within a statement";
}

}  // namespace ventlock::test
