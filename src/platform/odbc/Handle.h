#pragma once

#include <utility>

#include "OdbcApi.h"

namespace ventlock::odbc {

/// Owns one handle of the driver manager; empty when nothing was allocated.
template <SQLSMALLINT Type>
class Handle {
 public:
    Handle() = default;

    /// A handle that belongs to `parent` (SQL_NULL_HANDLE for an environment); empty when it cannot be had,
    /// which leaves the reason with the parent.
    static Handle Allocate(SQLHANDLE parent) noexcept {
        Handle handle;
        if (!SQL_SUCCEEDED(SQLAllocHandle(Type, parent, &handle.handle_))) handle.handle_ = nullptr;
        return handle;
    }

    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Handle() {
        if (handle_ != nullptr) SQLFreeHandle(Type, handle_);
    }

    [[nodiscard]] SQLHANDLE Get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != nullptr; }

 private:
    SQLHANDLE handle_ = nullptr;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

}  // namespace ventlock::odbc
