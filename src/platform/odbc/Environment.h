#pragma once

#include "platform/odbc/Handle.h"

namespace ventlock::odbc {

/// The driver manager, set up for version 3 of its interface. @throws RunTimeError 429.
EnvironmentHandle OpenEnvironment();

}  // namespace ventlock::odbc
