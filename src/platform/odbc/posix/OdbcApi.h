#pragma once

// The driver manager's functions, as this host declares them.

#include <sql.h>
#include <sqlext.h>
