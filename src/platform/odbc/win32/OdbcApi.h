#pragma once

// The driver manager's functions, as this host declares them: with names of the system's own header.

#include <windows.h>

#include <sql.h>
#include <sqlext.h>
