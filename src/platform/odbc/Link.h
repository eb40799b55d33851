#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "OdbcApi.h"
#include "base/RunTimeError.h"
#include "platform/Database.h"
#include "platform/odbc/Calls.h"
#include "platform/odbc/Handle.h"

namespace ventlock::odbc {

/// The open link to one database and its handles. Used by its worker's thread only, but for IsDead and
/// MarkDead.
class Link {
 public:
    explicit Link(std::shared_ptr<const EnvironmentHandle> environment)
        : environment_(std::move(environment)) {}
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    /// Connects without asking anybody. @throws RunTimeError 3146.
    void Connect(std::string_view connect, std::chrono::milliseconds loginLimit, bool readOnly);

    /// Begins a transaction of its own on serializable rows. @throws RunTimeError 3146, and nothing begins.
    void Begin();

    /// Ends the transaction; `how` is SQL_COMMIT or SQL_ROLLBACK. @throws RunTimeError 3146.
    void End(SQLSMALLINT how);

    /// What the connection tells about itself.
    [[nodiscard]] ConnectionFacts Facts() const;

    [[nodiscard]] SQLHANDLE Get() const noexcept { return connection_.Get(); }

    /// How its driver takes text.
    [[nodiscard]] TextForm Form() const noexcept { return form_; }

    /// Room for a block of rows. It is had once and kept, because the searches of an entry read whole tables
    /// one after the other: what it held for the query before is gone.
    [[nodiscard]] std::byte* RoomForRows(std::size_t bytes);

    /// The error that a failed call on `handle` stands for; marks the link dead when it is broken.
    RunTimeError Failure(SQLSMALLINT handleType, SQLHANDLE handle);

    [[nodiscard]] bool IsDead() const noexcept { return dead_; }
    void MarkDead() noexcept { dead_ = true; }

 private:
    [[nodiscard]] std::string Fact(SQLUSMALLINT kind) const;
    [[nodiscard]] bool OffersSerializable() const;
    void SetAttribute(SQLINTEGER attribute, SQLULEN value);

    std::shared_ptr<const EnvironmentHandle> environment_;
    ConnectionHandle connection_;
    bool connected_ = false;
    bool inTransaction_ = false;
    TextForm form_ = TextForm::Wide;
    std::atomic<bool> dead_ = false;
    std::vector<std::string> passwords_;
    std::unique_ptr<std::byte[]> room_;
    std::size_t roomBytes_ = 0;
};

}  // namespace ventlock::odbc
