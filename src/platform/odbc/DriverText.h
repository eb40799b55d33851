#pragma once

#include "OdbcApi.h"
#include "platform/odbc/Calls.h"

namespace ventlock::odbc {

/// The form in which text reaches the driver of an open connection whole. It is Wide wherever the driver
/// manager does not spoil wide text on its way to a driver that has only the functions without "W".
TextForm FormForDriver(SQLHANDLE connection);

}  // namespace ventlock::odbc
