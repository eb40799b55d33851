#include "platform/odbc/Link.h"

#include <array>
#include <cstddef>

#include "platform/odbc/ConnectString.h"
#include "platform/odbc/Diagnostics.h"
#include "platform/odbc/DriverText.h"
#include "platform/odbc/Seconds.h"
#include "platform/odbc/Wide.h"

namespace ventlock::odbc {

Link::~Link() {
    // A connection with an open transaction is not to be closed.
    if (inTransaction_ && !dead_) SQLEndTran(SQL_HANDLE_DBC, connection_.Get(), SQL_ROLLBACK);
    if (connected_) SQLDisconnect(connection_.Get());
}

void Link::Connect(std::string_view connect, std::chrono::milliseconds loginLimit, bool readOnly) {
    passwords_ = PasswordsOf(connect);
    connection_ = ConnectionHandle::Allocate(environment_->Get());
    if (!connection_) throw Failure(SQL_HANDLE_ENV, environment_->Get());
    // A driver without these two goes on without them; the worker's own limit stands behind the first.
    SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT, AttributeValue(WholeSeconds(loginLimit)),
                       SQL_IS_UINTEGER);
    if (readOnly) {
        SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_ACCESS_MODE, AttributeValue(SQL_MODE_READ_ONLY),
                           SQL_IS_UINTEGER);
    }
    WideText text = ToWide(connect);
    const SQLRETURN result = SQLDriverConnectW(connection_.Get(), nullptr, text.data(), SQL_NTS, nullptr, 0,
                                               nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) throw Failure(SQL_HANDLE_DBC, connection_.Get());
    connected_ = true;
    form_ = FormForDriver(connection_.Get());
}

RunTimeError Link::Failure(SQLSMALLINT handleType, SQLHANDLE handle) {
    const std::vector<Diagnostic> diagnostics = ReadDiagnostics(handleType, handle, form_);
    if (connected_) {
        SQLUINTEGER dead = SQL_CD_FALSE;
        const SQLRETURN result =
            SQLGetConnectAttrW(connection_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
        if (TellsBrokenLink(diagnostics) || (SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE)) MarkDead();
    }
    return RunTimeError::OdbcCallFailed(DiagnosticTexts(diagnostics, passwords_));
}

bool Link::OffersSerializable() const {
    SQLUSMALLINT capable = SQL_TC_NONE;
    SQLUINTEGER levels = 0;
    return SQL_SUCCEEDED(
               SQLGetInfoW(connection_.Get(), SQL_TXN_CAPABLE, &capable, sizeof(capable), nullptr)) &&
           SQL_SUCCEEDED(
               SQLGetInfoW(connection_.Get(), SQL_TXN_ISOLATION_OPTION, &levels, sizeof(levels), nullptr)) &&
           capable != SQL_TC_NONE && (levels & SQL_TXN_SERIALIZABLE) != 0;
}

void Link::SetAttribute(SQLINTEGER attribute, SQLULEN value) {
    const SQLRETURN result =
        SQLSetConnectAttrW(connection_.Get(), attribute, AttributeValue(value), SQL_IS_UINTEGER);
    if (!SQL_SUCCEEDED(result)) throw Failure(SQL_HANDLE_DBC, connection_.Get());
}

void Link::Begin() {
    if (!OffersSerializable()) {
        throw RunTimeError::OdbcCallFailed({"[HYC00] The driver offers no serializable transactions (0)"});
    }
    SetAttribute(SQL_ATTR_TXN_ISOLATION, SQL_TXN_SERIALIZABLE);
    SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF);
    inTransaction_ = true;
}

void Link::End(SQLSMALLINT how) {
    const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, connection_.Get(), how);
    if (!SQL_SUCCEEDED(result)) throw Failure(SQL_HANDLE_DBC, connection_.Get());
    inTransaction_ = false;
    // The end stands whatever happens here; a link whose statements would wait for another end is of no use.
    const SQLRETURN back = SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_AUTOCOMMIT,
                                              AttributeValue(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
    if (!SQL_SUCCEEDED(back)) MarkDead();
}

std::byte* Link::RoomForRows(std::size_t bytes) {
    if (roomBytes_ < bytes) {
        room_ = std::make_unique_for_overwrite<std::byte[]>(bytes);
        roomBytes_ = bytes;
    }
    return room_.get();
}

ConnectionFacts Link::Facts() const {
    return {Fact(SQL_DRIVER_NAME), Fact(SQL_DRIVER_VER), Fact(SQL_DM_VER),
            Fact(SQL_DBMS_NAME),   Fact(SQL_DBMS_VER),   Fact(SQL_DATABASE_NAME)};
}

std::string Link::Fact(SQLUSMALLINT kind) const {
    return WithCharacterOf(form_, [&](auto character) {
        using Char = decltype(character);
        std::array<Char, 4096> text{};
        const SQLRETURN result =
            Calls<Char>::Info(connection_.Get(), kind, text.data(), static_cast<SQLSMALLINT>(sizeof(text)));
        if (!SQL_SUCCEEDED(result)) return std::string();
        return Calls<Char>::Decode(text.data(), FilledLength(text.data(), text.size()));
    });
}

}  // namespace ventlock::odbc
