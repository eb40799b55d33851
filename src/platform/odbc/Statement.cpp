#include "platform/odbc/Statement.h"

#include "OdbcApi.h"
#include "platform/odbc/Seconds.h"
#include "platform/odbc/Wide.h"

namespace ventlock::odbc {

void Cancellation::Cancel() {
    const std::lock_guard lock(mutex_);
    requested_ = true;
    if (executing_ != nullptr) SQLCancel(executing_);
}

void Cancellation::Begin(SQLHANDLE statement) {
    Check();
    const std::lock_guard lock(mutex_);
    executing_ = statement;
}

void Cancellation::End() noexcept {
    const std::lock_guard lock(mutex_);
    executing_ = nullptr;
}

void Cancellation::Check() {
    const std::lock_guard lock(mutex_);
    if (requested_) throw RunTimeError::OdbcCallFailed({"[HY008] The call was cancelled (0)"});
}

Statement::Statement(Link& link, Cancellation& cancellation, std::chrono::milliseconds queryLimit)
    : link_(link), cancellation_(cancellation), handle_(StatementHandle::Allocate(link.Get())) {
    if (!handle_) throw link.Failure(SQL_HANDLE_DBC, link.Get());
    // A driver without a time limit goes on without it; the worker's own limit stands behind it.
    SQLSetStmtAttrW(handle_.Get(), SQL_ATTR_QUERY_TIMEOUT, AttributeValue(WholeSeconds(queryLimit)),
                    SQL_IS_UINTEGER);
}

void Statement::Execute(std::string_view text) {
    Require(WithCharacterOf(Form(), [&](auto character) {
        using TextCalls = Calls<decltype(character)>;
        auto encoded = TextCalls::Encode(text);
        cancellation_.Begin(handle_.Get());
        const SQLRETURN result = TextCalls::Execute(handle_.Get(), encoded.data());
        cancellation_.End();
        return result;
    }));
}

void Statement::Close() {
    Require(SQLFreeStmt(handle_.Get(), SQL_CLOSE));
    Require(SQLFreeStmt(handle_.Get(), SQL_UNBIND));
}

void Statement::Require(SQLRETURN result) {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) throw link_.Failure(SQL_HANDLE_STMT, handle_.Get());
}

}  // namespace ventlock::odbc
