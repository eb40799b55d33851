#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "OdbcApi.h"

namespace ventlock::odbc {

static_assert(sizeof(SQLWCHAR) == 2, "the driver manager's wide characters are UTF-16 units");

/// UTF-16 units as the driver manager takes them.
using WideText = std::vector<SQLWCHAR>;

/// UTF-8 to UTF-16 with a NUL behind it.
WideText ToWide(std::string_view utf8);

/// `length` UTF-16 units to UTF-8.
std::string FromWide(const SQLWCHAR* text, std::size_t length);

/// The same text, which lives in `room` until that changes.
std::string_view FromWide(const SQLWCHAR* text, std::size_t length, std::string& room);

/// A number as the attribute functions take it.
SQLPOINTER AttributeValue(SQLULEN value) noexcept;

}  // namespace ventlock::odbc
