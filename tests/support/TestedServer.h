#pragma once

#include "support/DatabaseServer.h"

namespace ventlock::test {

/// The server of the tested product; there must be one. It runs from the first call to the end of the
/// process.
DatabaseServer& TestedServer();

}  // namespace ventlock::test
