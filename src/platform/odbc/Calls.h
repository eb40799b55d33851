#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "OdbcApi.h"
#include "platform/odbc/Wide.h"

namespace ventlock::odbc {

/// How text goes to a driver and comes back.
enum class TextForm {
    Wide,   ///< UTF-16, by the wide functions
    Bytes,  ///< UTF-8, by the functions without "W"
};

/// The functions of the driver manager that carry text, for one kind of character.
template <class Char>
struct Calls;

template <>
struct Calls<SQLWCHAR> {
    static constexpr SQLSMALLINT kBufferType = SQL_C_WCHAR;
    static constexpr SQLSMALLINT kTextType = SQL_WVARCHAR;
    static constexpr std::size_t kUnitsOfCharacter = 2;  // the most that one takes

    static std::vector<SQLWCHAR> Encode(std::string_view utf8) { return ToWide(utf8); }
    static std::string Decode(const SQLWCHAR* text, std::size_t units) { return FromWide(text, units); }
    /// The same without a string of its own; it lives as long as `text` and `room` stay what they are.
    static std::string_view View(const SQLWCHAR* text, std::size_t units, std::string& room) {
        return FromWide(text, units, room);
    }

    static SQLRETURN Execute(SQLHANDLE statement, SQLWCHAR* text) {
        return SQLExecDirectW(statement, text, SQL_NTS);
    }

    static SQLRETURN ColumnName(SQLHANDLE statement, SQLUSMALLINT column, SQLWCHAR* name, SQLSMALLINT units) {
        return SQLDescribeColW(statement, column, name, units, nullptr, nullptr, nullptr, nullptr, nullptr);
    }

    static SQLRETURN Diagnostic(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, SQLWCHAR* state,
                                SQLINTEGER* native, SQLWCHAR* text, SQLSMALLINT units,
                                SQLSMALLINT* reported) {
        return SQLGetDiagRecW(type, handle, number, state, native, text, units, reported);
    }

    static SQLRETURN Info(SQLHANDLE connection, SQLUSMALLINT kind, SQLWCHAR* text, SQLSMALLINT bytes) {
        return SQLGetInfoW(connection, kind, text, bytes, nullptr);
    }
};

template <>
struct Calls<SQLCHAR> {
    static constexpr SQLSMALLINT kBufferType = SQL_C_CHAR;
    static constexpr SQLSMALLINT kTextType = SQL_VARCHAR;
    static constexpr std::size_t kUnitsOfCharacter = 4;

    static std::vector<SQLCHAR> Encode(std::string_view utf8) {
        std::vector<SQLCHAR> text(utf8.begin(), utf8.end());
        text.push_back(0);
        return text;
    }
    static std::string Decode(const SQLCHAR* text, std::size_t units) { return {text, text + units}; }
    static std::string_view View(const SQLCHAR* text, std::size_t units, std::string& /*room*/) {
        return {reinterpret_cast<const char*>(text), units};
    }

    static SQLRETURN Execute(SQLHANDLE statement, SQLCHAR* text) {
        return SQLExecDirect(statement, text, SQL_NTS);
    }

    static SQLRETURN ColumnName(SQLHANDLE statement, SQLUSMALLINT column, SQLCHAR* name, SQLSMALLINT units) {
        return SQLDescribeCol(statement, column, name, units, nullptr, nullptr, nullptr, nullptr, nullptr);
    }

    static SQLRETURN Diagnostic(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, SQLCHAR* state,
                                SQLINTEGER* native, SQLCHAR* text, SQLSMALLINT units, SQLSMALLINT* reported) {
        return SQLGetDiagRec(type, handle, number, state, native, text, units, reported);
    }

    static SQLRETURN Info(SQLHANDLE connection, SQLUSMALLINT kind, SQLCHAR* text, SQLSMALLINT bytes) {
        return SQLGetInfo(connection, kind, text, bytes, nullptr);
    }
};

/// Units of a text in a buffer that a driver filled: up to the first NUL, never past `capacity`.
template <class Char>
std::size_t FilledLength(const Char* text, std::size_t capacity) noexcept {
    return static_cast<std::size_t>(std::find(text, text + capacity, Char{0}) - text);
}

/// Calls `work` with a Char{} of the form's characters.
template <class Work>
auto WithCharacterOf(TextForm form, Work work) {
    return form == TextForm::Wide ? work(SQLWCHAR{}) : work(SQLCHAR{});
}

}  // namespace ventlock::odbc
