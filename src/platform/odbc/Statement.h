#pragma once

#include <chrono>
#include <mutex>
#include <string_view>

#include "OdbcApi.h"
#include "platform/odbc/Handle.h"
#include "platform/odbc/Link.h"

namespace ventlock::odbc {

/// Ends a call from another thread: a statement that is being executed is cancelled, reading rows stops at
/// the next block.
class Cancellation {
 public:
    /// To be called at the limit; returns when the driver has taken notice.
    void Cancel();

    /// Brackets the time in which a driver may be asked to cancel. @throws RunTimeError 3146 when it is too
    /// late.
    void Begin(SQLHANDLE statement);
    void End() noexcept;

    /// @throws RunTimeError 3146 after Cancel.
    void Check();

 private:
    std::mutex mutex_;
    SQLHANDLE executing_ = nullptr;
    bool requested_ = false;
};

/// One statement of a link; freed with all its rows by the destructor. All calls raise RunTimeError 3146.
class Statement {
 public:
    Statement(Link& link, Cancellation& cancellation, std::chrono::milliseconds queryLimit);

    /// Sends the text as it stands.
    void Execute(std::string_view text);

    /// Ends the rows of an execution and its bindings, so that the statement can be executed again.
    void Close();

    /// Raises what the driver says when `result` is a failure; a warning and "no data" are none.
    void Require(SQLRETURN result);

    [[nodiscard]] TextForm Form() const noexcept { return link_.Form(); }

    /// See Link.
    [[nodiscard]] std::byte* RoomForRows(std::size_t bytes) { return link_.RoomForRows(bytes); }

    void CheckCancelled() { cancellation_.Check(); }

    [[nodiscard]] SQLHANDLE Get() const noexcept { return handle_.Get(); }

 private:
    Link& link_;
    Cancellation& cancellation_;
    StatementHandle handle_;
};

}  // namespace ventlock::odbc
